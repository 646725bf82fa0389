#include "platform/richtext/rtf_state.h"

#include <algorithm>

namespace klopfmeise {

void RtfState::zeichenformat(RtfWord wort, int zahl, bool an) {
    const RtfState vorgabe;
    switch (wort) {
    case RtfWord::plain:
        schrift = vorgabe.schrift;
        groesse = vorgabe.groesse;
        color = vorgabe.color;
        bold = italic = underlined = false;
        versteckt = geloescht = false;
        break;
    case RtfWord::schrift:
        schrift = zahl;
        break;
    case RtfWord::groesse:
        groesse = zahl > 0 ? std::clamp(zahl, 2, 3276) : vorgabe.groesse;
        break;
    case RtfWord::color:
        color = zahl;
        break;
    case RtfWord::bold:
        bold = an;
        break;
    case RtfWord::italic:
        italic = an;
        break;
    case RtfWord::underlined:
        underlined = an;
        break;
    case RtfWord::keinStrich:
        underlined = false;
        break;
    case RtfWord::versteckt:
        versteckt = an;
        break;
    case RtfWord::geloescht:
        geloescht = an;
        break;
    default:
        break;
    }
}

} // namespace klopfmeise
