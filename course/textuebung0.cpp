#include "course/textuebung0.h"

#include "platform/values/text.h"
#include "screens/bildwechsel.h"
#include "store/einstellungsdatei.h"
#include "store/kontodatei.h"
#include "store/pfade.h"

#include <algorithm>
#include <cmath>

namespace klopfmeise {

namespace {

constexpr int rück = 8;
constexpr int eingabe = 13;

/// The value of a record that counts; the empty string and Empty count as 0.
std::wstring zählerText(const Wert& wert, wchar_t dezimalzeichen) {
    return gleich(wert, L"") ? L"0" : textAus(wert, dezimalzeichen);
}

double zahlIn(const Label& label) { return spelledNumber(label.caption()).value_or(0); }

} // namespace

Textübung0::Textübung0(const Umgebung& umgebung)
    : Form(umgebung.runtime, L"Textübung0", {.picture = L"hintergrund_tastatur"})
    , umgebung_(umgebung) {}

void Textübung0::Form_Load() {
    centre();
    fuss_.LblName.setCaption(kontoname(umgebung_.global));
    fuss_.LblKlasse.setCaption(umgebung_.global.AktuelleKlasse);
    Nullen();
    Textname = textnameLesen(umgebung_.dateien(), umgebung_.global);
    LblBib.setCaption(Textname);
    text_.Text1.loadFile(umgebung_.global.Datenpfad + L"Data\\Texte\\" + Textname);
    Startaufstellung();
}

void Textübung0::Startaufstellung() {
    text_.Übernehmen();
    Timer1.setEnabled(false);
    for (Label* anzeige : {&lblZeit, &lblAnschläge, &lblAnschlägeDurchschnitt})
        anzeige->setCaption(L"0");
    Fehlerzahl = 0;
    Anzeige();
    text_.FingerLeuchten();
    repaint();
    kontowerteZeigen();
    if (text_.Fehlersperre == 1) {
        text_.Fehlersperre = 0;
        text_.FingerLeuchten();
    }
}

void Textübung0::kontowerteZeigen() {
    Kontodatei datei(umgebung_.dateien(), kontopfad(umgebung_.global));
    const wchar_t dezimal = umgebung_.dezimalzeichen();
    lblRichtig.setCaption(zählerText(datei.lesen(Kontosatz::TexteGesamt), dezimal));
    lblAnschlägeDurchschnitt.setCaption(zählerText(datei.lesen(Kontosatz::AnschlaegeSchnitt), dezimal));
}

void Textübung0::Anzeige() {
    lblFehler.setCaption(std::to_wstring(Fehlerzahl));
    lblFehler.setBack(Fehlerzahl == 0 ? colors::right : colors::wrong);
}

void Textübung0::Picture1_KeyPress(const KeyPress& taste) {
    bild_.TastenLeuchten(taste, false);
    if (taste.code == rück && text_.Pos > 1) {
        umgebung_.klang(L"knopf.wav");
        text_.rücktaste();
        return;
    }
    if (text_.amEnde() || text_.Fehlersperre == 1 || taste.code == rück)
        return;
    // The mark of a line end is an "l" in another font; the letter does not do for the Enter key.
    const bool richtig = text_.amZeilenende() ? taste.code == eingabe : text_.zeichenStimmt(taste);
    if (richtig)
        richtigeTaste();
    else if (Timer1.enabled())
        falscheTaste();
}

void Textübung0::richtigeTaste() {
    if (text_.Pos == 1) {
        Timer1.setEnabled(true);
        Startzeit = umgebung_.uhr().seconds();
    }
    umgebung_.klang(L"knopf.wav");
    text_.richtig();
    if (text_.amEnde() && text_.keineFalsch())
        textFertig();
    text_.FingerLeuchten();
}

void Textübung0::falscheTaste() {
    umgebung_.klang(L"falsch.wav");
    ++Fehlerzahl;
    Anzeige();
    text_.falsch();
}

void Textübung0::textFertig() {
    umgebung_.klang(L"typewriterding.wav");
    umgebung_.global.Fehlerbericht = L"Du hast den Text in " + lblZeit.caption() + L" Sekunden getippt.\r\r" +
                                     L"Das entspricht einer Tippgeschwindigkeit von " +
                                     lblAnschläge.caption() + L" Anschlägen pro Minute.\r\r" +
                                     L"Beim Tippen hast du " + lblFehler.caption() + L" Fehler gemacht.";
    runtime().show(L"HilfeFehlerbericht");
    textZählen();
    schnittFortschreiben();
    Startaufstellung();
}

void Textübung0::textZählen() {
    Kontodatei datei(umgebung_.dateien(), kontopfad(umgebung_.global));
    const double neu = zahlAus(datei.lesen(Kontosatz::TexteGesamt)).value_or(0) + 1;
    if (!datei.gut())
        return;
    datei.schreiben(Kontosatz::TexteGesamt, ganzzahl(static_cast<int>(std::clamp(neu, 1.0, 1e9))));
    lblRichtig.setCaption(numberText(neu, umgebung_.dezimalzeichen()));
}

void Textübung0::schnittFortschreiben() {
    Kontodatei datei(umgebung_.dateien(), kontopfad(umgebung_.global));
    const double bisher = zahlAus(datei.lesen(Kontosatz::AnschlaegeSchnitt)).value_or(0);
    if (!datei.gut())
        return;
    Wert neu = lblAnschläge.caption();
    if (bisher > 0 && std::isfinite(bisher))
        neu = Int((zahlIn(lblAnschläge) + bisher) / 2);
    lblAnschlägeDurchschnitt.setCaption(textAus(neu, umgebung_.dezimalzeichen()));
    datei.schreiben(Kontosatz::AnschlaegeSchnitt, neu);
}

void Textübung0::Timer1_Timer() {
    text_.scrollen();
    lblZeit.setCaption(formatted(umgebung_.uhr().seconds() - Startzeit, 0, umgebung_.dezimalzeichen()));
    // In the first half second the time shows 0, and the keystrokes keep their value.
    if (const double zeit = zahlIn(lblZeit); zeit > 0)
        lblAnschläge.setCaption(numberText(Int(60 * text_.Pos / zeit), umgebung_.dezimalzeichen()));
}

void Textübung0::imgNeu_Click() { Startaufstellung(); }

void Textübung0::imgHilfe_Click() { runtime().show(L"Hilfe"); }

void Textübung0::imgEnde_Click() {
    Bildwechsel(umgebung_, *this, L"Lern1");
    runtime().unload(L"HilfeFehlerbericht");
}

} // namespace klopfmeise
