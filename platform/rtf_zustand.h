#pragma once

#include "platform/rtf.h"
#include "platform/rtf_woerter.h"

namespace klopfmeise {

/// Where the characters of a group go.
enum class RtfZiel { text, schriften, farben, nirgends };

/// What a group inherits, and what its end takes back.
struct RtfZustand {
    RtfZiel ziel = RtfZiel::text;
    int schrift = -1; ///< -1: the default of the document
    int groesse = RtfZeichenformat{}.groesseHalbpunkte;
    int farbe = 0;  ///< index into the colour table
    int ersatz = 1; ///< characters after a \u that stand for it where \u is unknown
    bool fett = false;
    bool kursiv = false;
    bool unterstrichen = false;
    bool versteckt = false;
    bool geloescht = false;
    Ausrichtung ausrichtung = Ausrichtung::links;

    /// Takes up a word that changes the look of characters; any other changes nothing.
    void zeichenformat(RtfWort wort, int zahl, bool an);
};

} // namespace klopfmeise
