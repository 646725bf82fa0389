#pragma once

#include <string_view>

namespace klopfmeise {

/// What a control word means to the reader; the words not in the table are passed over.
enum class RtfWord {
    unbekannt,
    absatz,
    abschnitt,
    alignment,
    bin,
    blau,
    color,
    farbtabelle,
    bold,
    geloescht,
    groesse,
    gruen,
    keinStrich,
    italic,
    pard,
    plain,
    rot,
    schrift,
    schriftVorgabe,
    schrifttabelle,
    uc,
    ueberspringen,
    unicode,
    underlined,
    versteckt,
    zeichen
};

struct RtfSteuerwort {
    std::string_view name;
    RtfWord wort = RtfWord::unbekannt;
    int wert = 0; ///< the character, or the RtfAlignment
};

[[nodiscard]] RtfSteuerwort rtfSteuerwort(std::string_view name);

} // namespace klopfmeise
