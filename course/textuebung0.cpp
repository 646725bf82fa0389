#include "course/textuebung0.h"

#include "platform/values/text.h"
#include "screens/bildwechsel.h"
#include "screens/formnamen.h"
#include "screens/zeichencodes.h"
#include "store/einstellungsdatei.h"
#include "store/texte.h"
#include "store/textkonto.h"

namespace klopfmeise {

namespace {

double zahlIn(const Label& label) { return spelledNumber(label.caption()).value_or(0); }

} // namespace

Textübung0::Textübung0(const Umgebung& umgebung)
    : Form(umgebung.runtime, formname::Textübung0, {.picture = L"hintergrund_tastatur"})
    , umgebung_(umgebung) {}

void Textübung0::Form_Load() {
    centre();
    fuß_.kindZeigen();
    Nullen();
    Textname = textnameLesen(umgebung_.dateien(), umgebung_.global);
    LblBib.setCaption(Textname);
    text_.Text1.loadFile(klassentext(umgebung_.global, Textname));
    Startaufstellung();
}

void Textübung0::Startaufstellung() {
    text_.Fehlersperre = 0;
    text_.Übernehmen();
    Timer1.setEnabled(false);
    for (Label* anzeige : {&lblZeit, &lblAnschläge, &lblAnschlägeDurchschnitt})
        anzeige->setCaption(L"0");
    Fehlerzahl = 0;
    Anzeige();
    repaint();
    kontowerteZeigen();
}

void Textübung0::kontowerteZeigen() {
    const auto stand = textstandLesen(umgebung_.dateien(), umgebung_.global);
    lblRichtig.setCaption(stand ? wertText(stand->TexteGesamt) : unbekannt);
    lblAnschlägeDurchschnitt.setCaption(stand ? wertText(stand->AnschlaegeSchnitt) : unbekannt);
}

std::wstring Textübung0::wertText(const Wert& wert) const {
    return textAus(wert, umgebung_.dezimalzeichen());
}

void Textübung0::Anzeige() { fehlerZeigen(lblFehler, Fehlerzahl); }

void Textübung0::Picture1_KeyPress(const KeyPress& taste) {
    bild_.TastenLeuchten(taste, false);
    if (taste.code == CodeRück && text_.Pos > 1) {
        umgebung_.klang(L"knopf.wav");
        text_.rücktaste();
        return;
    }
    if (text_.amEnde() || text_.Fehlersperre == 1 || taste.code == CodeRück)
        return;
    // The mark of a line end is an "l" in another font; the letter does not do for the Enter key.
    const bool richtig = text_.amZeilenende() ? taste.code == CodeEingabe : text_.zeichenStimmt(taste);
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
    runtime().show(formname::HilfeFehlerbericht);
    const auto texte = textZählen(umgebung_.dateien(), umgebung_.global);
    const auto schnitt = schnittFortschreiben(umgebung_.dateien(), umgebung_.global, lblAnschläge.caption());
    if (schnitt)
        lblAnschlägeDurchschnitt.setCaption(wertText(*schnitt));
    if (texte)
        lblRichtig.setCaption(wertText(*texte));
    Startaufstellung();
}

void Textübung0::Timer1_Timer() {
    text_.scrollen();
    lblZeit.setCaption(formatted(umgebung_.uhr().seconds() - Startzeit, 0, umgebung_.dezimalzeichen()));
    // In the first half second the time shows 0, and the keystrokes keep their value.
    if (const double zeit = zahlIn(lblZeit); zeit > 0)
        lblAnschläge.setCaption(numberText(Int(60 * text_.Pos / zeit), umgebung_.dezimalzeichen()));
}

void Textübung0::imgNeu_Click() { Startaufstellung(); }

} // namespace klopfmeise
