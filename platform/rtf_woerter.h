#pragma once

#include <string_view>

namespace klopfmeise {

/// What a control word means to the reader; the words not in the table are passed over.
enum class RtfWort {
    unbekannt,
    absatz,
    abschnitt,
    ausrichtung,
    bin,
    blau,
    farbe,
    farbtabelle,
    fett,
    geloescht,
    groesse,
    gruen,
    keinStrich,
    kursiv,
    pard,
    plain,
    rot,
    schrift,
    schriftVorgabe,
    schrifttabelle,
    uc,
    ueberspringen,
    unicode,
    unterstrichen,
    versteckt,
    zeichen
};

struct RtfSteuerwort {
    std::string_view name;
    RtfWort wort = RtfWort::unbekannt;
    int wert = 0; ///< the character, or the Ausrichtung
};

[[nodiscard]] RtfSteuerwort rtfSteuerwort(std::string_view name);

} // namespace klopfmeise
