#include "games/spielrahmen.h"

#include "platform/values/text.h"
#include "screens/anzeigen.h"
#include "store/kursplatz.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace klopfmeise {

namespace {

constexpr const wchar_t* unspielbar =
    L"Auf dieser Stufe kann man nicht spielen. Bitte sage deiner Lehrkraft Bescheid.";
constexpr const wchar_t* nichtGespeichert = L"Dein Ergebnis konnte nicht gespeichert werden.";
/// Three lines of 32 characters under the middle of START.
constexpr Rect hinweisplatz(const Rect& start) {
    constexpr int breite = 4650;
    return {start.left + (start.width - breite) / 2, start.bottom() + 60, breite, 840};
}
/// Six characters, as the form's right edge is near.
constexpr int rekordBreite = 2700;
/// Milliseconds that an end without a high score is seen at least, where nothing is heard.
constexpr int abschied = 1000;
constexpr Color rekordfarbe = RGB(0, 192, 192);

} // namespace

Spielrahmen::Spielrahmen(Form& form, const Umgebung& umgebung, SpielLook look)
    : form_(form)
    , umgebung_(umgebung)
    , satz_(look.rekord)
    , cmdNeuesSpiel(form, L"cmdNeuesSpiel", look.cmdNeuesSpiel,
                    {.caption = L"START",
                     .font = {courier, 36, true},
                     .back = colors::blush,
                     .tabStop = false,
                     .click = std::move(look.start)})
    , lblHigh(form, L"lblHigh", look.lblHigh,
              {.font = {courier, 36, true}, .align = Align::center, .mostWidth = rekordBreite, .wrap = false})
    , LblLektion(form, L"LblLektion", {3675, 8610, 2520, 240}, {.fore = colors::midGrey, .wrap = false})
    , lblHinweis(form, L"lblHinweis", hinweisplatz(look.cmdNeuesSpiel),
                 {.font = {courier, 12},
                  .back = colors::white,
                  .align = Align::center,
                  .border = true,
                  .visible = false})
    , fuß_(form, umgebung,
           {.übung = look.übung,
            .grund = colors::coral,
            .neu = std::move(look.neu),
            .hilfeIndex = Control::noIndex}) {}

std::wstring Spielrahmen::kursplatzLesen() {
    const Kursplatz platz = klopfmeise::kursplatzLesen(umgebung_.dateien(), umgebung_.global);
    LblLektion.setCaption(platz.hindernis == Hindernis::kontoUnlesbar ? std::wstring(L"Lektion ") + unbekannt
                                                                      : lektionUndStufe(platz.konto));
    umgebung_.dienste().random.randomize();
    return platz.lektion.stufe ? platz.lektion.stufe->Stufentext : std::wstring();
}

void Spielrahmen::freigeben(bool spielbar) {
    cmdNeuesSpiel.setEnabled(spielbar);
    const bool verloren = std::exchange(verloren_, false);
    lblHinweis.setCaption(spielbar ? nichtGespeichert : unspielbar);
    lblHinweis.setVisible(!spielbar || verloren);
}

void Spielrahmen::startZeigen(bool bereit) {
    cmdNeuesSpiel.setVisible(bereit);
    if (!bereit)
        lblHinweis.hide();
}

void Spielrahmen::rekordLesen() {
    Rekord = klopfmeise::rekordLesen(umgebung_.dateien(), umgebung_.global, satz_);
    rekordZeigen();
}

void Spielrahmen::rekordZeigen() {
    lblHigh.setCaption(Rekord ? textAus(*Rekord, umgebung_.dezimalzeichen()) : unbekannt);
}

void Spielrahmen::Rekordpruefung(int Punkte) {
    ergebnis_ = L"Spielende, " + std::to_wstring(Punkte) + L" Punkte";
    const Spielausgang ausgang =
        rekordFortschreiben(umgebung_.dateien(), umgebung_.global, satz_, Punkte, Rekord);
    Rekord = ausgang.Rekord;
    rekordZeigen();
    lblHigh.repaint();
    verloren_ = ausgang.verloren;
    if (!ausgang.neuerRekord) {
        form_.runtime().wait(std::max(abschied, umgebung_.klang(L"falsch.wav")));
        return;
    }
    ergebnis_ += L", neuer High-Score";
    umgebung_.klang(L"typewriterding.wav");
    constexpr int blinken = 10;
    for (int i = 0; i < blinken; ++i)
        for (const Color farbe : {rekordfarbe, colors::black}) {
            lblHigh.setFore(farbe);
            lblHigh.repaint();
            Kurzwarten(0.1);
        }
}

void Spielrahmen::Kurzwarten(double sekunden) {
    form_.runtime().wait(static_cast<int>(std::lround(sekunden * 1000)));
}

void Spielrahmen::bildAbwarten(double beginn) {
    constexpr double bilddauer = 1.0 / 60;
    const double vergangen = umgebung_.uhr().seconds() - beginn;
    if (vergangen < bilddauer)
        Kurzwarten(bilddauer - vergangen);
}

void Spielrahmen::ansagen(const std::wstring& tasten, int Punkte) {
    if (tasten == angesagteTasten_ && Punkte == angesagtePunkte_ && ergebnis_.empty())
        return;
    ansage_ = tasten;
    if (tasten.empty())
        ansage_ = std::exchange(ergebnis_, {});
    else if (Punkte != angesagtePunkte_)
        ansage_ += L", " + std::to_wstring(Punkte) + L" Punkte";
    angesagteTasten_ = tasten;
    angesagtePunkte_ = Punkte;
}

} // namespace klopfmeise
