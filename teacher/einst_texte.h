#pragma once

#include "platform/controls/button.h"
#include "platform/controls/drawn.h"
#include "platform/controls/lists.h"
#include "platform/controls/panels.h"
#include "platform/controls/rich_text_box.h"
#include "platform/controls/text_box.h"
#include "platform/forms/form.h"
#include "platform/forms/timer.h"
#include "screens/umgebung.h"
#include "store/texte.h"

#include <string>

namespace klopfmeise {

/// "Eigene Texte": the editor of the texts, and by its selection the choice of the class's text. Each change
/// goes straight to the file; what could not be written stays in the box, and no other text comes into it
/// before.
class einstTexte final : public Form {
public:
    explicit einstTexte(const Umgebung& umgebung);

    void Form_Load() override { moveTo(100, 100); }
    void Form_Activate() override;
    void Form_Deactivate() override { runtime().unload(*this); }
    void Form_Unload() override;

private:
    void fileText_Click();
    void Text1_Change();
    void cmdNeuerText_Click();
    void txtNeuerText_KeyPress(KeyPress& taste);
    void cmdAufgabeOk_Click();
    void cmdTextLöschen_Click();
    void anzeigen();
    std::wstring hinweis() const;
    void laden();
    bool auswählen(const std::wstring& name);
    bool speichern();
    /// Writes what the user changed to its file. True if nothing is left to write.
    bool sichern();
    /// As `sichern` where another text is to come; one that cannot be written is told of and stays.
    bool freigeben();
    const std::wstring& geladener() const { return LblEinstellung.caption(); }

    /// 9 points, in which 76 characters go into the line below the box.
    static constexpr Font klein{courier, 9};

    Umgebung umgebung_;
    /// What came of loading the text that `LblEinstellung` names.
    RtfOutcome geladen_ = RtfOutcome::failed;
    /// The box holds what its file does not.
    bool ungesichert_ = false;
    /// The class took the selected text.
    bool gewählt_ = true;
    wchar_t untippbar_ = 0;
    /// Not all of the last change did fit into the text.
    bool übergelaufen_ = false;

    FileList fileText{
        *this,
        L"fileText",
        {105, 210, 2325, 3240},
        {.pattern = std::wstring(Textmuster), .font = klein, .spoken = L"Eigene Texte", .click = [this] {
             fileText_Click();
         }}};
    Button cmdNeuerText{*this,
                        L"cmdNeuerText",
                        {105, 3570, 1170, 1275},
                        {.caption = L"Neuer Text", .click = [this] { cmdNeuerText_Click(); }}};
    Button cmdTextLöschen{*this,
                          L"cmdTextLöschen",
                          {1260, 3570, 1170, 1275},
                          {.caption = L"Text löschen", .click = [this] { cmdTextLöschen_Click(); }}};

    Frame frmNeuerText{*this, L"frmNeuerText", {105, 3465, 2325, 1380}, {.visible = false}};
    Label lblSchleichEingabe{frmNeuerText,
                             L"lblSchleichEingabe",
                             {105, 75, 2115, 450},
                             {.caption = L"Name für den neuen Text eingeben:", .font = klein}};
    TextBox txtNeuerText{frmNeuerText,
                         L"txtNeuerText",
                         {105, 540, 2115, 330},
                         {.font = klein,
                          .maxLength = 21,
                          .spoken = L"Name für den neuen Text",
                          .keys = {.press = [this](KeyPress& taste) { txtNeuerText_KeyPress(taste); }}}};
    Button cmdAufgabeOk{frmNeuerText,
                        L"cmdAufgabeOk",
                        {105, 915, 2115, 390},
                        {.caption = L"Ok", .click = [this] { cmdAufgabeOk_Click(); }}};

    Frame frmText{*this, L"frmText", {2625, 210, 8625, 4635}, {.visible = false}};
    RichTextBox Text1{frmText,
                      L"Text1",
                      {315, 315, 7995, 3960},
                      {.font = {courier, 10},
                       .spoken = L"Text",
                       .change = [this] { Text1_Change(); },
                       .overflow =
                           [this] {
                               übergelaufen_ = true;
                               anzeigen();
                           }}};
    Label LblLänge{
        frmText, L"LblLänge", {5565, 105, 2745, 225}, {.font = klein, .align = Align::right, .wrap = false}};
    Label lblHinweis{frmText, L"lblHinweis", {315, 4320, 7995, 225}, {.font = klein, .wrap = false}};
    Label lblUnlesbar{*this,
                      L"lblUnlesbar",
                      {2625, 210, 8625, 300},
                      {.back = colors::wrong, .align = Align::center, .wrap = false, .visible = false}};
    Label LblEinstellung{*this, L"LblEinstellung", {2625, 4620, 2745, 330}, {.visible = false}};

    Timer Timer1{*this, L"Timer1", {.interval = 100, .tick = [this] { anzeigen(); }}};
    /// Tries again to write what could not be written.
    Timer tmrSichern{*this, L"tmrSichern", {.interval = 2000, .enabled = false, .tick = [this] {
                                                sichern();
                                                anzeigen();
                                            }}};
};

} // namespace klopfmeise
