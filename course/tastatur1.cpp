#include "course/tastatur1.h"

#include "platform/values/text.h"
#include "screens/bildwechsel.h"
#include "screens/formnamen.h"
#include "screens/zeichencodes.h"
#include "store/genauigkeit.h"

#include <algorithm>
#include <cmath>

namespace klopfmeise {

namespace {

/// Milliseconds that a run stopped by an error stays on the screen.
constexpr int stopppause = 2000;

} // namespace

Tastatur1::Tastatur1(const Umgebung& umgebung)
    : Form(umgebung.runtime, formname::Tastatur1, {.picture = L"hintergrund_tastatur"})
    , umgebung_(umgebung) {
    lblPosV(Zellen).setFontName(wingdings);
}

void Tastatur1::Form_Load() {
    centre();
    fuß_.kindZeigen();
    Nullen();
    neuerLauf();
}

void Tastatur1::Nullen() {
    Pos = 1;
    ErfolgDurchgaenge = 0;
    Durchgang = 1;
}

bool Tastatur1::Startaufstellung() {
    Timer1.setEnabled(false);
    for (int i = 1; i <= Zeichenplätze; ++i) {
        lblPosO(i).setCaption(L"");
        lblPosO(i).setBack(colors::white);
    }
    bild_.fingerAus();
    const Kursplatz platz = kursplatzLesen(umgebung_.dateien(), umgebung_.global);
    // What cannot be read stays as it was read last: a stage passed a moment ago is still to be written.
    if (platz.hindernis != Hindernis::kontoUnlesbar)
        konto_ = platz.konto;
    if (!platz.bereit())
        return false;
    Stufenzahl = *platz.lektion.Stufenzahl;
    LblLektion.setCaption(lektionUndStufe(konto_));
    Zeitlimit = konto_.Tempowert / 10.0 * Zellen;
    lblGenau.setCaption(genauigkeitText(konto_.Genauigkeit, umgebung_.dezimalzeichen()));
    frmVorlage.setVisible(konto_.Vorlagemodus == 1);

    const std::wstring& text = platz.lektion.stufe->Stufentext;
    Zeilenlaenge = std::min(static_cast<int>(text.size()), Zeichenplätze);
    for (int i = 1; i <= Zellen; ++i) {
        const bool offen = i <= Zeilenlaenge + 1;
        if (offen)
            lblPosV(i).setCaption(i <= Zeilenlaenge ? std::wstring(1, text[static_cast<std::size_t>(i) - 1])
                                                    : L"");
        for (Label* zelle : {&lblPosV(i), &lblPosO(i), &lblPosU(i)})
            zelle->setVisible(offen);
    }
    lblZeit.setWidth(0);
    lblZeit.setCaption(L"");
    Fehlerzahl = 0;
    Anzeige();
    FingerLeuchten();
    repaint();
    lblPosV(Zellen).setCaption(Endemarke.caption());
    sperre_.TasteFrei = true;
    return true;
}

void Tastatur1::neuerLauf() {
    if (!Startaufstellung())
        zurStartseite();
}

void Tastatur1::Anzeige() {
    fehlerZeigen(lblFehler, Fehlerzahl);
    lblDurchgang.setCaption(std::to_wstring(Durchgang));
    lblErfolg.setCaption(std::to_wstring(ErfolgDurchgaenge) + L" / " +
                         std::to_wstring(konto_.Durchgangszahl));
}

void Tastatur1::FingerLeuchten() {
    bild_.leeren();
    if (Pos > Zeilenlaenge + 1)
        return;
    bild_.leuchten(lblPosV(Pos).caption(), lblPosV(Pos).font().name);
    if (Pos == Zellen)
        bild_.aufTasteZeigen(TasteEingabe);
    bild_.zeichenAufFinger();
}

void Tastatur1::Form_KeyDown(const KeyDown& taste) {
    if (sperre_.durchlassen())
        bild_.TastenLeuchten2(taste);
}

void Tastatur1::Form_KeyPress(KeyPress& taste) {
    bild_.TastenLeuchten(taste, true);
    const bool zeilenende = Pos == Zeilenlaenge + 1 && taste.code == CodeEingabe;
    const bool richtig = Pos < Zellen && lblPosV(Pos).caption() == std::wstring(1, taste.character);
    if (zeilenende || richtig)
        richtigeTaste(taste.character, zeilenende);
    else if (Pos != 1 && Pos != Zeilenlaenge + 1)
        falscheTaste(taste.character);
}

void Tastatur1::richtigeTaste(wchar_t zeichen, bool zeilenende) {
    if (Pos == 1) {
        Startzeit = umgebung_.uhr().seconds();
        Timer1.setEnabled(true);
    }
    tasteWerten();
    if (zeilenende)
        umgebung_.klang(L"typewriterding.wav");
    lblPosO(Pos).setBack(colors::white);
    lblPosO(Pos).setCaption(std::wstring(1, zeichen));
    ++Pos;
    PositionsAnzeiger();
}

void Tastatur1::falscheTaste(wchar_t zeichen) {
    lblPosO(Pos).setBack(colors::red);
    umgebung_.klang(L"falsch.wav");
    ++Fehlerzahl;
    Anzeige();
    tasteWerten();
    if (konto_.Fehlerstopp != 1)
        return;
    lblPosO(Pos).setCaption(std::wstring(1, zeichen));
    lblPosO(Pos).repaint();
    runtime().wait(stopppause);
    lblPosU(Pos).setBack(colors::white);
    Pos = 1;
    ++Durchgang;
    neuerLauf();
}

void Tastatur1::tasteWerten() {
    const auto neu = genauigkeitFortschreiben(umgebung_.dateien(), umgebung_.global,
                                              {konto_.Lektionsnummer, Pos, Fehlerzahl});
    if (neu)
        lblGenau.setCaption(genauigkeitText(*neu, umgebung_.dezimalzeichen()));
}

void Tastatur1::PositionsAnzeiger() {
    bild_.fingerAus();
    FingerLeuchten();
    for (int i = 1; i <= Zellen; ++i)
        lblPosU(i).setBack(colors::white);
    if (Pos == Zeilenlaenge + 2) {
        Pos = 1;
        ++Durchgang;
        const bool inZeit =
            konto_.Zeitmodus == 0 || (konto_.Zeitmodus == 1 && lblZeit.back() == colors::right);
        if (Fehlerzahl == 0 && inZeit)
            ++ErfolgDurchgaenge;
        Anzeige();
        const bool bereit = Startaufstellung();
        if (ErfolgDurchgaenge == konto_.Durchgangszahl) {
            stufeAbschließen();
            return;
        }
        if (!bereit) {
            zurStartseite();
            return;
        }
    }
    lblPosU(Pos).setBack(colors::black);
}

void Tastatur1::stufeAbschließen() {
    --Durchgang;
    lblDurchgang.setCaption(std::to_wstring(Durchgang));
    repaint();
    stufeBestanden(umgebung_.dateien(), umgebung_.global, konto_, Stufenzahl);
    LblLektion.setCaption(L"Lektion " + std::to_wstring(konto_.Lektionsnummer));
    zurStartseite();
}

void Tastatur1::zurStartseite() { Bildwechsel(umgebung_, *this, formname::Tastatur0); }

void Tastatur1::Timer1_Timer() {
    if (konto_.Zeitmodus == 0)
        return;
    const wchar_t dezimal = umgebung_.dezimalzeichen();
    const int volleBreite = lblPosO(Zellen).right() - lblPosO(1).left();
    const double E = verstrichen();
    const std::wstring zehntel = formatted(E, 1, dezimal);
    if (zehntel == LetzteAnzeige)
        return;
    lblZeit.setCaption(formatted(E, 0, dezimal) + L" sek");
    LetzteAnzeige = zehntel;
    // Twice the width is beyond the margin and beyond every comparison.
    lblZeit.setWidth(static_cast<int>(std::lround(std::min(E * volleBreite / Zeitlimit, 2.0 * volleBreite))));
    const int balken = lblZeit.right();
    const bool voraus = lblPosO(Pos).right() >= balken;
    lblZeit.setBack(voraus || Pos >= Zellen ? colors::right : colors::wrong);
    if (lblPosO(Zeilenlaenge + 1).right() <= balken) {
        Timer1.setEnabled(false);
        lblZeit.setCaption(numberText(Zeitlimit, dezimal) + L" sek");
        lblZeit.setWidth(volleBreite);
    }
}

void Tastatur1::Timer2_Timer() {
    Label& spalte = lblPosU(Pos);
    spalte.setBack(spalte.back() == colors::black ? colors::panel : colors::black);
}

void Tastatur1::imgNeu_Click() { zurStartseite(); }

} // namespace klopfmeise
