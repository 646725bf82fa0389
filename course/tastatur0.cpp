#include "course/tastatur0.h"

#include "platform/values/text.h"
#include "screens/anzeigen.h"
#include "screens/bildwechsel.h"
#include "screens/formnamen.h"
#include "screens/lektionsarchiv.h"
#include "screens/zeichencodes.h"
#include "store/pfade.h"

namespace klopfmeise {

Tastatur0::Tastatur0(const Umgebung& umgebung)
    : Form(umgebung.runtime, formname::Tastatur0, {.picture = L"hintergrund_start"})
    , umgebung_(umgebung) {}

void Tastatur0::Form_Load() {
    centre();
    fuß_.kindZeigen();
    Startaufstellung();
}

void Tastatur0::Startaufstellung() {
    platz_ = kursplatzLesen(umgebung_.dateien(), umgebung_.global);
    if (platz_.hindernis != Hindernis::kontoUnlesbar)
        lernstandZeigen();
    const std::wstring nummer = std::to_wstring(platz_.konto.Lektionsnummer);
    const std::wstring stufe = std::to_wstring(platz_.konto.Stufennummer);
    switch (platz_.hindernis) {
    case Hindernis::keines:
        break;
    case Hindernis::kontoUnlesbar:
        LblLektion.setCaption(std::wstring(L"Lektion ") + unbekannt);
        lblStufe.setCaption(std::wstring(L"Stufe ") + unbekannt);
        for (Label* feld : {&lblGenauigkeit, &lblSpeed})
            feld->setCaption(unbekannt);
        lblHinweisName.setCaption(
            L"Dein Konto kann gerade nicht gelesen werden. Bitte sage deiner Lehrkraft Bescheid.");
        break;
    case Hindernis::kursZuEnde:
        lblNameLektion.setCaption(L"Geschafft! Du hast alle Lektionen des Kurses bestanden.");
        break;
    case Hindernis::keinText:
        lblHinweisName.setCaption(L"Für Lektion " + nummer + L", Stufe " + stufe +
                                  L" gibt es keinen Übungstext. Bitte sage deiner Lehrkraft Bescheid.");
        break;
    }
}

void Tastatur0::lernstandZeigen() {
    const wchar_t zeichen = umgebung_.dezimalzeichen();
    const auto& [hindernis, konto, lektion] = platz_;
    const std::wstring nummer = std::to_wstring(konto.Lektionsnummer);
    LblLektion.setCaption(L"Lektion " + nummer);
    lblSpeed.setCaption(numberText(konto.Tempowert / 10.0, zeichen) + L" sek / Buchstabe");
    lblGenauigkeit.setCaption(genauigkeitText(konto.Genauigkeit, zeichen));
    imgAbbildung.loadFile(lektionsbild(umgebung_.global, nummer));
    lblNameLektion.setCaption(lektion.Lektionstitel);
    std::wstring stufe = L"Stufe " + std::to_wstring(konto.Stufennummer);
    if (lektion.Stufenzahl)
        stufe += L" von " + std::to_wstring(*lektion.Stufenzahl);
    lblStufe.setCaption(stufe);
    if (lektion.stufe) {
        lblNameStufe.setCaption(lektion.stufe->Stufentitel);
        lblHinweisName.setCaption(lektion.stufe->Stufenhinweis);
    }
}

void Tastatur0::cmdNeuesSpiel_Click() {
    if (!platz_.bereit())
        return;
    umgebung_.klang(L"knopf.wav");
    Bildwechsel(umgebung_, *this, platz_.lektion.einzeiler() ? formname::Tastatur1 : formname::Tastatur2);
}

void Tastatur0::Form_KeyPress(KeyPress& taste) {
    if (taste.code == CodeLeer)
        cmdNeuesSpiel_Click();
}

void Tastatur0::imgAbbildung_Click() {
    if (platz_.hindernis == Hindernis::kontoUnlesbar)
        return;
    umgebung_.klang(L"knopf.wav");
    lektionsbildZeigen(umgebung_, platz_.konto.Lektionsnummer, true);
}

} // namespace klopfmeise
