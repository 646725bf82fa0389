#include "course/tastatur2.h"

#include "platform/values/text.h"
#include "screens/bildwechsel.h"
#include "screens/formnamen.h"
#include "screens/zeichencodes.h"
#include "store/genauigkeit.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace klopfmeise {

namespace {
/// Seconds left from which on the countdown warns.
constexpr int knapp = 10;
} // namespace

Tastatur2::Tastatur2(const Umgebung& umgebung)
    : Form(umgebung.runtime, formname::Tastatur2, {.picture = L"hintergrund_tastatur"})
    , umgebung_(umgebung) {}

void Tastatur2::Form_Load() {
    centre();
    fuß_.kindZeigen();
    text_.Picture1.setFocus();
    Nullen();
    Startaufstellung();
}

bool Tastatur2::Startaufstellung() {
    const Kursplatz platz = kursplatzLesen(umgebung_.dateien(), umgebung_.global);
    if (!platz.bereit()) {
        zurStartseite();
        return false;
    }
    konto_ = platz.konto;
    Stufenzahl = *platz.lektion.Stufenzahl;
    LblLektion.setCaption(lektionUndStufe(konto_));
    imgUhr.setVisible(konto_.Zeitmodus != 0);
    lblZeit.setVisible(konto_.Zeitmodus != 0);
    lblGenau.setCaption(genauigkeitText(konto_.Genauigkeit, umgebung_.dezimalzeichen()));
    text_.Text1.setText(platz.lektion.stufe->Stufentext);
    text_.Fehlersperre = 0;
    text_.Übernehmen();
    Timer1.setEnabled(false);
    cmdNeu.hide();
    // In whole numbers, so that no fraction is lost on the way to the whole part.
    const auto zehntel = std::int64_t{konto_.Tempowert} * text_.Zellenzahl;
    Zeitlimit = static_cast<int>(std::min<std::int64_t>(zehntel / 10, 1'000'000));
    lblZeit.setCaption(std::to_wstring(Zeitlimit));
    Fehlerzahl = 0;
    Anzeige();
    repaint();
    sperre_.TasteFrei = true;
    return true;
}

void Tastatur2::Anzeige() {
    fehlerZeigen(lblFehler, Fehlerzahl);
    lblDurchgang.setCaption(std::to_wstring(Durchgang) + L" / " + std::to_wstring(konto_.Durchgangszahl));
}

void Tastatur2::Picture1_KeyPress(const KeyPress& taste) {
    if (cmdNeu.visible())
        return;
    bild_.TastenLeuchten(taste, false);
    if (taste.code == CodeRück && text_.Pos > 1) {
        umgebung_.klang(L"knopf.wav");
        text_.rücktaste();
        return;
    }
    if (text_.Fehlersperre == 1 || text_.amEnde() || taste.code == CodeRück)
        return;
    if (text_.zeichenStimmt(taste))
        richtigeTaste();
    else if (Timer1.enabled())
        falscheTaste();
}

void Tastatur2::richtigeTaste() {
    tasteWerten();
    if (text_.Pos == 1) {
        Timer1.setEnabled(true);
        Startzeit = umgebung_.uhr().seconds();
        if (konto_.Zeitmodus == 1)
            lblZeit.show();
    }
    umgebung_.klang(L"knopf.wav");
    text_.richtig();
    if (text_.amEnde() && text_.alleRichtig()) {
        umgebung_.klang(L"typewriterding.wav");
        ++Durchgang;
        Anzeige();
        if (Durchgang > konto_.Durchgangszahl) {
            stufeAbschließen();
            return;
        }
        if (!Startaufstellung())
            return;
    }
    text_.FingerLeuchten();
}

void Tastatur2::falscheTaste() {
    // Before the error is counted, other than on Tastatur1: here it enters the figure with the next key.
    tasteWerten();
    umgebung_.klang(L"falsch.wav");
    ++Fehlerzahl;
    Anzeige();
    text_.falsch();
}

void Tastatur2::tasteWerten() {
    const auto neu = genauigkeitFortschreiben(umgebung_.dateien(), umgebung_.global,
                                              {konto_.Lektionsnummer, text_.Pos, Fehlerzahl});
    if (neu)
        lblGenau.setCaption(genauigkeitText(*neu, umgebung_.dezimalzeichen()));
}

void Tastatur2::stufeAbschließen() {
    stufeBestanden(umgebung_.dateien(), umgebung_.global, konto_, Stufenzahl);
    LblLektion.setCaption(L"Lektion " + std::to_wstring(konto_.Lektionsnummer));
    zurStartseite();
}

void Tastatur2::zurStartseite() { Bildwechsel(umgebung_, *this, formname::Tastatur0); }

int Tastatur2::Restzeit() const { return Zeitlimit - static_cast<int>(std::lround(verstrichen())); }

void Tastatur2::Timer1_Timer() {
    text_.scrollen();
    if (konto_.Zeitmodus == 0)
        return;
    const int rest = Restzeit();
    if (rest <= 0 && !cmdNeu.visible()) {
        lblZeit.setCaption(L"0");
        umgebung_.klang(L"falsch.wav");
        cmdNeu.show();
        Timer1.setEnabled(false);
        return;
    }
    const std::wstring zehntel = formatted(verstrichen(), 1, umgebung_.dezimalzeichen());
    if (zehntel == LetzteAnzeige)
        return;
    lblZeit.setCaption(std::to_wstring(rest));
    lblZeit.setFore(rest <= knapp ? colors::red : colors::black);
    LetzteAnzeige = zehntel;
}

void Tastatur2::Timer2_Timer() {
    if (konto_.Zeitmodus == 0 || cmdNeu.visible())
        return;
    text_.blinken();
    if (text_.Pos > 1 && Restzeit() <= knapp) {
        lblZeit.setVisible(!lblZeit.visible());
    } else {
        lblZeit.show();
        lblZeit.setFore(colors::black);
    }
}

void Tastatur2::cmdNeu_Click() { Startaufstellung(); }

void Tastatur2::imgNeu_Click() { zurStartseite(); }

} // namespace klopfmeise
