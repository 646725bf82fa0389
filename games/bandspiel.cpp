#include "games/bandspiel.h"

#include "games/ziehung.h"
#include "platform/values/text.h"

#include <cmath>
#include <utility>

namespace klopfmeise {

void Bandspiel::Startaufstellung(std::wstring text) {
    Stufentext = std::move(text);
    Punkte = 0;
    Schrittzehntel = 10;
    läuft = false;
    Intervall = 200;
    for (Stein& stein : steine)
        stein.sichtbar = false;
}

void Bandspiel::starten(Random& zufall) {
    Radbild = 0;
    NeueTasten(zufall);
    läuft = true;
}

void Bandspiel::NeueTasten(Random& zufall) {
    Position = 1;
    if (!hatZeichen(Stufentext))
        return;
    for (Stein& stein : steine)
        stein = {0, true, false, zeichenZiehen(Stufentext, zufall)};
    for (int i = Steinzahl, rechts = rechtesEnde.left; i >= 1; --i)
        rechts = imgStein(i).left = rechts - steinbreite;
}

bool Bandspiel::Timer1_Timer() {
    // Half twips are exact, and all stones are rounded to the same side.
    const double schritt = twipsPerPixel * Schrittzehntel / 10.0;
    for (Stein& stein : steine)
        stein.left = static_cast<int>(std::floor(stein.left - schritt + 0.5));
    if (linkesEnde.right() < imgStein(1).left)
        return false;
    for (int i = 1, links = linkesEnde.right(); i <= Steinzahl; ++i, links += steinbreite)
        imgStein(i).left = links;
    return true;
}

void Bandspiel::danebentippen() {
    --Punkte;
    for (Stein& stein : steine)
        stein.left -= steinbreite;
}

bool Bandspiel::tippen() {
    imgStein(Position).getippt = true;
    ++Position;
    return Position > Steinzahl;
}

void Bandspiel::gutschreiben() {
    // From the left edge of the left end, not from its right one.
    const double weg = pixelAus(imgStein(1).left - linkesEnde.left);
    Punkte += static_cast<int>(Int((Punkte + weg) / 100));
}

void Bandspiel::Beschleunigen() {
    constexpr int kürzung = 10;
    if (Intervall <= kürzung)
        ++Schrittzehntel;
    if (Intervall - kürzung >= 0)
        Intervall -= kürzung;
    if (Intervall < 1)
        Intervall = 1;
}

bool Bandspiel::zurücklaufen() {
    for (Stein& stein : steine)
        stein.left += pixel(5);
    return imgStein(1).left < rechtesEnde.left;
}

} // namespace klopfmeise
