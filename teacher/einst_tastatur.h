#pragma once

#include "platform/controls/button.h"
#include "platform/controls/checks.h"
#include "platform/controls/drawn.h"
#include "platform/controls/lists.h"
#include "platform/controls/panels.h"
#include "platform/controls/ranges.h"
#include "platform/controls/text_box.h"
#include "platform/forms/form.h"
#include "platform/forms/timer.h"
#include "screens/bildknopf.h"
#include "store/dateinamen.h"
#include "store/pfade.h"

#include <optional>
#include <string>

namespace klopfmeise {

/// "Kurs-Konten": the children of the chosen class, and for the selected one where it stands in the course
/// and how it works. Every move of a slider and every press on an option is written at once and read back;
/// the controls are the only copy of what the account holds.
class einstTastatur final : public Form {
public:
    explicit einstTastatur(const Umgebung& umgebung);

    void Form_Load() override { moveTo(100, 100); }
    void Form_Activate() override;
    void Form_Deactivate() override { runtime().unload(*this); }

private:
    void cmdNeu_Click();
    void cmdLöschen_Click();
    void cmdText1Ok_Click();
    void Text1_KeyPress(KeyPress& taste);
    void sld_Change();
    void Timer1_Timer();
    void imgAbbildung_Click();
    void cmdKonto_Click();

    /// Makes the account named in the box if it is new. False if that was not possible; then the user has
    /// been told.
    bool Namenseingabe();
    void EinstellungenLaden();
    void EinstellungenSpeichern();

    /// Sets `AktuellesKonto` to the selected child; false if none is selected.
    bool kontoGewählt();
    void zahlenZeigen();
    void lektionZeigen(int Stufennummer);
    void namenseingabeZeigen(bool zeigen);
    void listeAuffrischen();
    void stopp(const wchar_t* titel, const std::wstring& text);

    static constexpr int Schieberhöhe = 435;
    static constexpr int größteStufe = 12;
    static constexpr Rect Knopfplatz{105, 5355, 2115, 1380};
    static LabelLook text(const wchar_t* caption) { return {.caption = caption, .wrap = false}; }
    static LabelLook zahl() { return {.font = {courier, 9.75, true}, .wrap = false}; }
    static LabelLook titel() { return {.fore = RGB(0, 0, 128), .wrap = false}; }
    RangeLook schieber(int höchstens, const wchar_t* gesprochen) {
        return {.min = 1,
                .max = höchstens,
                .value = 1,
                .smallStep = 1,
                .largeStep = 5,
                .spoken = gesprochen,
                .change = [this] { sld_Change(); }};
    }
    CheckLook option(const wchar_t* caption) {
        return {.caption = caption, .font = {courier, 7.5}, .click = [this] { EinstellungenSpeichern(); }};
    }

    Umgebung umgebung_;
    /// The lesson as last read or saved, that of the picture button.
    int lektion_ = 1;
    /// The child has passed the last lesson; that stays so while the slider stands on it.
    bool kursZuEnde_ = false;
    /// Whose values the controls hold; nothing is saved for anyone else.
    std::optional<std::wstring> geladen_;

    FileList File1{*this,
                   L"File1",
                   {105, 105, 2115, 5130},
                   {.pattern = std::wstring(Kontomuster), .spoken = L"Konten der Kinder", .click = [this] {
                        EinstellungenLaden();
                    }}};
    Button cmdNeu{*this,
                  L"cmdNeu",
                  {105, 5355, 1065, 1380},
                  {.caption = L"  Neues  Konto", .toolTip = L"Neues Konto anlegen", .click = [this] {
                       cmdNeu_Click();
                   }}};
    Button cmdLöschen{*this,
                      L"cmdLöschen",
                      {1155, 5355, 1065, 1380},
                      {.caption = L"Konto löschen", .toolTip = L"Markiertes Konto löschen", .click = [this] {
                           cmdLöschen_Click();
                       }}};

    Frame frmNeuesKind{*this, L"frmNeuesKind", Knopfplatz, {.visible = false}};
    Label lblSchleichEingabe{frmNeuesKind,
                             L"lblSchleichEingabe",
                             {105, 75, 1905, 450},
                             {.caption = L"Name für neues Konto eingeben:"}};
    TextBox Text1{frmNeuesKind,
                  L"Text1",
                  {105, 555, 1905, 330},
                  {.maxLength = längsterKontoname,
                   .spoken = L"Name für neues Konto",
                   .keys = {.press = [this](KeyPress& taste) { Text1_KeyPress(taste); }}}};
    Button cmdText1Ok{frmNeuesKind, L"cmdText1Ok", {105, 945, 1905, 375}, {.caption = L"Ok", .click = [this] {
                                                                               cmdText1Ok_Click();
                                                                           }}};

    static constexpr const wchar_t* kontoUnlesbar = L"Das Konto kann gerade nicht gelesen werden.";
    static constexpr const wchar_t* klasseUnlesbar =
        L"Der Ordner der Klasse kann gerade nicht gelesen werden.";
    /// Shown in place of the parameters: what could not be read.
    Label lblUnlesbar{*this,
                      L"lblUnlesbar",
                      {2415, 105, 7785, 300},
                      {.caption = kontoUnlesbar,
                       .back = colors::wrong,
                       .align = Align::center,
                       .wrap = false,
                       .visible = false}};

    Frame frmEinstellungen{*this, L"frmEinstellungen", {2310, 0, 7995, 6735}, {.visible = false}};
    Label Label1_0{frmEinstellungen, L"Label1", {105, 165, 1080, 240}, text(L"Lektion:"), 0};
    Label LblLektion{frmEinstellungen, L"LblLektion", {1185, 165, 480, 240}, zahl()};
    /// Shown when the last change did not reach the account; the controls show what stands there.
    Label lblUngespeichert{frmEinstellungen,
                           L"lblUngespeichert",
                           {2100, 150, 5790, 255},
                           {.caption = L"Die Änderung konnte nicht gespeichert werden.",
                            .back = colors::wrong,
                            .align = Align::center,
                            .wrap = false,
                            .visible = false}};
    Slider sldLektion{
        frmEinstellungen, L"sldLektion", {105, 420, 6840, Schieberhöhe}, schieber(30, L"Lektion")};
    Picture imgAbbildung{frmEinstellungen,
                         L"imgAbbildung",
                         {7020, 420, 855, Schieberhöhe},
                         bildknopf(umgebung_, L"knopf_tastatur", L"Tastaturbild der Lektion",
                                   [this] { imgAbbildung_Click(); })};
    Label lblLektionTitel{frmEinstellungen, L"lblLektionTitel", {105, 840, 7785, 435}, titel()};

    Label Label1_1{frmEinstellungen, L"Label1", {105, 1230, 840, 240}, text(L"Stufe:"), 1};
    Label lblStufe{frmEinstellungen, L"lblStufe", {945, 1230, 480, 240}, zahl()};
    Slider sldStufe{
        frmEinstellungen, L"sldStufe", {105, 1470, 7785, Schieberhöhe}, schieber(größteStufe, L"Stufe")};
    Label lblStufeTitel{frmEinstellungen, L"lblStufeTitel", {105, 1890, 7785, 435}, titel()};

    Label Label1_2{frmEinstellungen, L"Label1", {105, 2280, 2640, 240}, text(L"Durchgänge pro Stufe:"), 2};
    Label lblWdh{frmEinstellungen, L"lblWdh", {2745, 2280, 480, 240}, zahl()};
    Label Label1_4{
        frmEinstellungen, L"Label1", {4770, 2280, 3120, 240}, text(L"(empfohlen: 3 Durchgänge)"), 4};
    Slider sldWdh{
        frmEinstellungen, L"sldWdh", {105, 2520, 7785, Schieberhöhe}, schieber(5, L"Durchgänge pro Stufe")};
    OptionButton optDurchgang_0{
        frmEinstellungen,
        L"optDurchgang",
        {105, 3045, 3900, 540},
        option(L"Durchgang bei Fehler in einzeiligen Stufen zu Ende tippen (empfohlen)"),
        0};
    OptionButton optDurchgang_1{frmEinstellungen,
                                L"optDurchgang",
                                {3990, 3045, 3900, 540},
                                option(L"Durchgang bei Fehler in einzeiligen Stufen neu beginnen"),
                                1};

    Frame Frame2{frmEinstellungen, L"Frame2", {105, 3675, 7785, 645}};
    OptionButton optVorlage_0{Frame2,
                              L"optVorlage",
                              {105, 60, 3600, 525},
                              option(L"Einzeilige Stufen ohne gedruckte Vorlage üben"),
                              0};
    OptionButton optVorlage_1{Frame2,
                              L"optVorlage",
                              {3885, 60, 3600, 525},
                              option(L"Einzeilige Stufen mit gedruckter Vorlage üben"),
                              1};

    Frame Frame1{frmEinstellungen, L"Frame1", {105, 4305, 7785, 645}};
    OptionButton optBalken_0{
        Frame1, L"optBalken", {105, 60, 3600, 525}, option(L"ohne Zeit üben (empfohlen)"), 0};
    OptionButton optBalken_1{Frame1, L"optBalken", {3885, 60, 3600, 525}, option(L"mit Zeit üben"), 1};

    Frame frmZeit{frmEinstellungen, L"frmZeit", {105, 4935, 7785, 750}, {.visible = false}};
    Label Label1_3{
        frmZeit, L"Label1", {45, 30, 4680, 240}, text(L"Durchschn. Zeit pro Buchstabe (in sek):"), 3};
    Label lblSpeed{frmZeit, L"lblSpeed", {4785, 30, 600, 240}, zahl()};
    Slider sldSpeed{frmZeit,
                    L"sldSpeed",
                    {0, 210, 7785, Schieberhöhe},
                    schieber(30, L"Durchschnittliche Zeit pro Buchstabe in Zehntelsekunden")};

    TextBox txtStufeText{frmEinstellungen,
                         L"txtStufeText",
                         {105, 5775, 6600, 840},
                         {.multiLine = true, .readOnly = true, .spoken = L"Text der Stufe"}};
    Button cmdKonto{frmEinstellungen,
                    L"cmdKonto",
                    {6930, 5775, 900, 900},
                    {.picture = L"knopf_konto", .toolTip = L"Konto", .click = [this] { cmdKonto_Click(); }}};

    Timer Timer1{*this, L"Timer1", {.interval = 50, .tick = [this] { Timer1_Timer(); }}};
};

} // namespace klopfmeise
