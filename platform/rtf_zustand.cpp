#include "platform/rtf_zustand.h"

#include <algorithm>

namespace klopfmeise {

void RtfZustand::zeichenformat(RtfWort wort, int zahl, bool an) {
    const RtfZustand vorgabe;
    switch (wort) {
    case RtfWort::plain:
        schrift = vorgabe.schrift;
        groesse = vorgabe.groesse;
        farbe = vorgabe.farbe;
        fett = kursiv = unterstrichen = false;
        versteckt = geloescht = false;
        break;
    case RtfWort::schrift:
        schrift = zahl;
        break;
    case RtfWort::groesse:
        groesse = zahl > 0 ? std::clamp(zahl, 2, 3276) : vorgabe.groesse;
        break;
    case RtfWort::farbe:
        farbe = zahl;
        break;
    case RtfWort::fett:
        fett = an;
        break;
    case RtfWort::kursiv:
        kursiv = an;
        break;
    case RtfWort::unterstrichen:
        unterstrichen = an;
        break;
    case RtfWort::keinStrich:
        unterstrichen = false;
        break;
    case RtfWort::versteckt:
        versteckt = an;
        break;
    case RtfWort::geloescht:
        geloescht = an;
        break;
    default:
        break;
    }
}

} // namespace klopfmeise
