#include "course/tastatur0.h"

#include "course/genauigkeit.h"
#include "platform/controls/panels.h"
#include "platform/values/text.h"
#include "screens/bildwechsel.h"
#include "screens/lektionsarchiv.h"
#include "store/kurskonto.h"
#include "store/lektionsdatei.h"
#include "store/pfade.h"

namespace klopfmeise {

Tastatur0::Tastatur0(const Umgebung& umgebung)
    : Form(umgebung.runtime, L"Tastatur0", {.picture = L"hintergrund_start"})
    , umgebung_(umgebung) {}

void Tastatur0::Form_Load() {
    centre();
    fuss_.LblName.setCaption(kontoname(umgebung_.global));
    fuss_.LblKlasse.setCaption(umgebung_.global.AktuelleKlasse);
    Startaufstellung();
}

void Tastatur0::Startaufstellung() {
    const wchar_t zeichen = umgebung_.dezimalzeichen();
    const auto gelesen = kurskontoLesen(umgebung_.dateien(), kontopfad(umgebung_.global));
    const Kurskonto konto = gelesen.value_or(Kurskonto{});
    Lektionsnummer_ = konto.Lektionsnummer;
    const std::wstring nummer = std::to_wstring(konto.Lektionsnummer);

    LblLektion.setCaption(L"Lektion " + nummer);
    lblSpeed.setCaption(numberText(konto.Tempowert / 10.0, zeichen) + L" sek / Buchstabe");
    lblGenauigkeit.setCaption(genauigkeitText(konto.Genauigkeit, zeichen));

    imgAbbildung.loadFile(lektionsbild(umgebung_.global, nummer));

    const Lektion lektion = lektionLesen(
        umgebung_.dateien(), lektionspfad(umgebung_.global, konto.Lektionsnummer), konto.Stufennummer);
    Lektionsart_ = lektion.Lektionsart;
    lblNameLektion.setCaption(lektion.Lektionstitel);
    std::wstring stufe = L"Stufe " + std::to_wstring(konto.Stufennummer);
    if (lektion.Stufenzahl)
        stufe += L" von " + std::to_wstring(*lektion.Stufenzahl);
    lblStufe.setCaption(stufe);
    if (lektion.stufe) {
        lblNameStufe.setCaption(lektion.stufe->Stufentitel);
        lblHinweisName.setCaption(lektion.stufe->Stufenhinweis);
    }

    bereit_ = gelesen && lektion.vollstaendig();
    if (!gelesen) {
        lblHinweisName.setCaption(
            L"Dein Konto kann gerade nicht gelesen werden. Bitte sage deiner Lehrkraft Bescheid.");
    } else if (!bereit_ && konto.Lektionsnummer > Lektionenzahl) {
        lblNameLektion.setCaption(L"Geschafft! Du hast alle Lektionen des Kurses bestanden.");
    } else if (!bereit_) {
        lblHinweisName.setCaption(L"Für Lektion " + nummer + L", Stufe " +
                                  std::to_wstring(konto.Stufennummer) +
                                  L" gibt es keinen Übungstext. Bitte sage deiner Lehrkraft Bescheid.");
    }
}

void Tastatur0::cmdNeuesSpiel_Click() {
    if (!bereit_)
        return;
    umgebung_.klang(L"knopf.wav");
    Bildwechsel(umgebung_, *this, Lektionsart_ == L"Einzeiler" ? L"Tastatur1" : L"Tastatur2");
}

void Tastatur0::Form_KeyPress(KeyPress& taste) {
    if (taste.code == L' ')
        cmdNeuesSpiel_Click();
}

void Tastatur0::imgAbbildung_Click() {
    umgebung_.klang(L"knopf.wav");
    Form* abbildung = runtime().load(L"frmAbbildung");
    if (!abbildung)
        return;
    const std::wstring nummer = std::to_wstring(Lektionsnummer_);
    abbildung->find<Picture>(L"imgAbbildung")->loadFile(lektionsbild(umgebung_.global, nummer));
    abbildung->setCaption(L"Lektion " + nummer);
    for (int i = 1; i <= Lektionenzahl; ++i) {
        Label& zahl = *abbildung->find<Label>(L"lblArchiv", i);
        const bool erreicht = i <= Lektionsnummer_;
        zahl.setFore(erreicht ? archivfarben::erreicht : archivfarben::nichtErreicht);
        zahl.setBack(i == Lektionsnummer_ ? archivfarben::gezeigt : archivfarben::grund);
        zahl.setPointer(erreicht ? Pointer::hand : Pointer::normal);
        Font schrift = zahl.font();
        schrift.bold = erreicht;
        zahl.setFont(schrift);
    }
    abbildung->find<Frame>(L"frmArchiv")->show();
    runtime().show(L"frmAbbildung");
}

void Tastatur0::imgHilfe_Click() {
    umgebung_.klang(L"knopf.wav");
    runtime().show(L"Hilfe");
}

void Tastatur0::imgEnde_Click() {
    umgebung_.klang(L"knopf.wav");
    Bildwechsel(umgebung_, *this, L"Lern1");
}

} // namespace klopfmeise
