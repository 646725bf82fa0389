#pragma once

#include "platform/richtext/rtf.h"
#include "platform/richtext/rtf_words.h"

namespace klopfmeise {

/// Where the characters of a group go.
enum class RtfTarget { text, schriften, farben, nirgends };

/// What a group inherits, and what its end takes back.
struct RtfState {
    RtfTarget ziel = RtfTarget::text;
    int schrift = -1; ///< -1: the default of the document
    int groesse = RtfFormat{}.halfPoints;
    int color = 0;  ///< index into the colour table
    int ersatz = 1; ///< characters after a \u that stand for it where \u is unknown
    bool bold = false;
    bool italic = false;
    bool underlined = false;
    bool versteckt = false;
    bool geloescht = false;
    RtfAlignment alignment = RtfAlignment::left;

    /// Takes up a word that changes the look of characters; any other changes nothing.
    void zeichenformat(RtfWord wort, int zahl, bool an);
};

} // namespace klopfmeise
