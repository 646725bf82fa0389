#include "games/wolkenspiel.h"

#include "games/ziehung.h"
#include "platform/values/text.h"

#include <utility>

namespace klopfmeise {

namespace {

constexpr int schrittweite = pixel(20);

/// Whole seconds, rounded: the end comes half a second before the time is over.
int ganzeSekunden(double sekunden) {
    return static_cast<int>(spelledNumber(formatted(sekunden, 0, L',')).value_or(0));
}

} // namespace

int Wolkenspiel::platzZiehen(Random& zufall) const {
    int r = 0;
    do
        r = pixel(Int(800 * zufall.next() + 1));
    while (r <= linkerBaum.right() || r >= rechterBaum.left - wertbreite);
    return r;
}

int Wolkenspiel::wertZiehen(Random& zufall) { return static_cast<int>(Int(5 * zufall.next() + 1)); }

void Wolkenspiel::Startaufstellung(std::wstring text, Random& zufall) {
    Stufentext = std::move(text);
    NeueTasten(zufall);
    for (int i = 1; i <= Wolkenzahl; ++i) {
        const int wert = wertZiehen(zufall);
        imgKiste(i) = {platzZiehen(zufall), wolkenoben(i), wert};
    }
    Startzeit = 0;
    Punkte = 0;
    lblZeit = Spielzeit;
    läuft = false;
}

void Wolkenspiel::NeueTasten(Random& zufall) {
    lblLinks.clear();
    lblRechts.clear();
    if (!hatPaar(Stufentext))
        return;
    const Zeichenpaar paar = paarZiehen(Stufentext, zufall);
    lblLinks = paar.erstes;
    lblRechts = paar.zweites;
}

void Wolkenspiel::starten(double uhr) {
    Startzeit = uhr;
    läuft = true;
}

bool Wolkenspiel::Timer1_Timer(double uhr, Random& zufall) {
    const double vergangen = uhr - Startzeit;
    const int übrig = Spielzeit - ganzeSekunden(vergangen);
    if (std::wstring e = formatted(vergangen, 1, L','); e != LetzteAnzeige) {
        lblZeit = übrig;
        zeitRot = übrig <= 10;
        LetzteAnzeige = std::move(e);
    }
    const int k = static_cast<int>(Int(5 * zufall.next() + 1));
    const int d = pixel(5 * Int(3 * zufall.next() - 1));
    Wolke& wolke = imgKiste(k);
    if (wolke.left + d > linkerBaum.right() && wolke.left + d + wolkenbreite < rechterBaum.left)
        wolke.left += d;
    return übrig <= 0;
}

Wolkenspiel::Zug Wolkenspiel::Form_KeyPress(wchar_t zeichen) {
    if (TasteGedrueckt == 1 || !läuft)
        return Zug::keiner;
    const std::wstring_view k(&zeichen, 1);
    Zug zug = Zug::schritt;
    if (linkerBaum.right() < Pushy - schrittweite && k == lblLinks)
        Pushy -= schrittweite;
    else if (Pushy + pushyAmAnfang.width + schrittweite < rechterBaum.left && k == lblRechts)
        Pushy += schrittweite;
    else if (k == L" ")
        zug = Zug::schuss;
    else
        return Zug::keiner;
    TasteGedrueckt = 1;
    return zug;
}

Wolkenspiel::Schuss Wolkenspiel::schießen() const {
    Schuss schuss{Pushy + pushyAmAnfang.width / 2, pushyAmAnfang.top, pixel(10), 0};
    for (int i = 1; i <= Wolkenzahl && schuss.Treffer == 0; ++i)
        if (imgKiste(i).left < schuss.x && imgKiste(i).left + wolkenbreite > schuss.x) {
            schuss.Strahlende = wolkenoben(i) + wolkenhöhe;
            schuss.Treffer = i;
        }
    return schuss;
}

bool Wolkenspiel::fliegen(int Treffer) {
    int& top = imgKiste(Treffer).wertTop;
    top -= pixel(10);
    return top >= 0;
}

void Wolkenspiel::treffen(int Treffer, Random& zufall) {
    Punkte += imgKiste(Treffer).wert;
    const int platz = platzZiehen(zufall);
    imgKiste(Treffer) = {platz, wolkenoben(Treffer), wertZiehen(zufall)};
    NeueTasten(zufall);
}

} // namespace klopfmeise
