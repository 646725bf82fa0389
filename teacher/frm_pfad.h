#pragma once

#include "platform/controls/button.h"
#include "platform/controls/drawn.h"
#include "platform/controls/panels.h"
#include "platform/controls/text_box.h"
#include "platform/forms/form.h"
#include "screens/umgebung.h"
#include "screens/zeichencodes.h"

namespace klopfmeise {

/// The folder screen: points the program at another data folder. A new folder is tested, written to the
/// machine-wide values, and the program ends, so that the next start runs on it from the first step.
class frmPfad final : public Form {
public:
    explicit frmPfad(const Umgebung& umgebung);

    void Form_Load() override;
    void Form_Deactivate() override { runtime().unload(*this); }

private:
    void cmdApiPfad_Click();
    void cmdBrowse_Click();
    void cmdExplorer_Click();
    void cmdPfad_Click();
    void cmdNeuerPfad_Click();
    void OrdnerÜbernehmen();
    void warnung();
    std::wstring gezeigt(const std::wstring& pfad) const { return umgebung_.dateien().shown(pfad); }

    static constexpr Font kopfschrift{courier, 9.75, true};
    static constexpr Font textschrift{courier, 9};
    static LabelLook hilfe(const wchar_t* text) { return {.caption = text, .font = textschrift}; }
    static LabelLook kopf(const wchar_t* text) { return {.caption = text, .font = kopfschrift}; }

    Umgebung umgebung_;

    Frame Frame2{*this,
                 L"Frame2",
                 {210, 105, 10500, 840},
                 {.caption = L"AKTUELL EINGESTELLTER ORDNER FÜR DIE DATENABLAGE",
                  .back = colors::paleGrey,
                  .font = textschrift}};
    Label lblPfadAktuell{Frame2,
                         L"lblPfadAktuell",
                         {150, 345, 8250, 300},
                         {.font = {courier, 12, true},
                          .fore = RGB(0, 128, 0),
                          .back = colors::right,
                          .border = true,
                          .wrap = false}};
    Button cmdExplorer{Frame2,
                       L"cmdExplorer",
                       {8550, 300, 1800, 405},
                       {.caption = L"anzeigen...", .click = [this] { cmdExplorer_Click(); }}};

    Label Label1_3{*this,
                   L"Label1",
                   {210, 1080, 10500, 240},
                   kopf(L"1. Möglichkeit: Datenablage auf diesem lokalen Computer"),
                   3};
    Button cmdApiPfad{*this,
                      L"cmdApiPfad",
                      {210, 1365, 2400, 690},
                      {.caption = L"Standard-Ablageordner", .font = {courier, 8.25}, .click = [this] {
                           cmdApiPfad_Click();
                       }}};
    Label Label1_1{
        *this,
        L"Label1",
        {2700, 1365, 8010, 1260},
        hilfe(L"Klicken Sie auf den Schalter \"Standard-Ablageordner\" und anschließend auf den Schalter "
              L"\"übernehmen\", um die Datenablage von Klopfmeise für diesen Computer lokal festzulegen! "
              L"Unter Windows XP lautet der von Windows für Klopfmeise vorgesehende Standard-Ablageordner "
              L"zum Beispiel \"C:\\Dokumente und Einstellungen\\All Users\\Anwendungsdaten\\Klopfmeise\\\". "
              L"Unter Windows Vista lautet er \"C:\\Program Data\\Klopfmeise\\\"."),
        1};

    Label Label1_0{*this,
                   L"Label1",
                   {210, 2730, 10500, 240},
                   kopf(L"2. Möglichkeit: Datenablage im Netzwerk oder einem Freigabe-Ordner"),
                   0};
    Button cmdBrowse{*this,
                     L"cmdBrowse",
                     {210, 3015, 2400, 690},
                     {.caption = L"durchsuchen...", .click = [this] { cmdBrowse_Click(); }}};
    Label Label1_2{
        *this,
        L"Label1",
        {2700, 3015, 8010, 2100},
        hilfe(L"Klicken Sie auf den Schalter \"durchsuchen\" und es wird sich ein Fenster öffnen, mit dem "
              L"Sie diesen Computer und das Netzwerk durchsuchen können. In diesem Fenster wählen Sie dann "
              L"den Ordner aus, in dem alle Klopfmeise-Ordner befindlich sind, die Klopfmeise zur Laufzeit "
              L"benötigt. Es handelt sich dabei um all jene Ordner, die Klopfmeise während der Installation "
              L"in den Standard-Ablageordner kopiert. Unter Windows XP lautet dieser Ordner z. B. "
              L"\"C:\\Dokumente und Einstellungen\\All Users\\Anwendungsdaten\\Klopfmeise\\\". Unter Windows "
              L"Vista lautet er \"C:\\Program Data\\Klopfmeise\\\". Dieser Ordner muss vorher sowohl für den "
              L"Netzwerkzugriff für eingeschränkte Benutzer, als auch für den vollen Lese- und "
              L"Schreibzugriff FREIGEGEBEN worden sein."),
        2};
    Label Label1_6{
        *this,
        L"Label1",
        {2700, 5190, 8010, 630},
        hilfe(L"Anstatt das Netzwerk zu durchsuchen, haben Sie auch die Möglichkeit, den Pfad manuell in die "
              L"weiße Eingabezeile einzutragen. Dies setzt freilich voraus, dass Sie den Pfad kennen."),
        6};

    Frame Frame1{*this,
                 L"Frame1",
                 {210, 6030, 10500, 900},
                 {.caption = L"NEUEN ORDNER FÜR DIE DATENABLAGE WÄHLEN",
                  .back = colors::paleGrey,
                  .font = textschrift}};
    TextBox txtPfadNeu{
        Frame1,
        L"txtPfadNeu",
        {150, 345, 8250, 405},
        {.font = {courier, 12},
         .spoken = L"Neuer Ordner für die Datenablage",
         .keys = {.press = [](KeyPress& taste) { taste.swallowed = taste.code == CodeEingabe; }}}};
    Button cmdNeuerPfad{Frame1,
                        L"cmdNeuerPfad",
                        {8550, 345, 1800, 405},
                        {.caption = L"übernehmen", .click = [this] { cmdNeuerPfad_Click(); }}};

    /// Outside the visible area, so that only the Tab key leads to it.
    Button cmdPfad{*this,
                   L"cmdPfad",
                   {-1050, 6030, 900, 405},
                   {.caption = L"Programm-Ordner", .click = [this] { cmdPfad_Click(); }}};
    TextBox Text1{*this, L"Text1", {0, 0, 1200, 300}, {.visible = false, .spoken = L"Standard-Ablageordner"}};
};

} // namespace klopfmeise
