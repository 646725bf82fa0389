#pragma once

#include "platform/richtext/rtf.h"
#include "platform/richtext/rtf_words.h"

namespace klopfmeise {

/// Where the characters of a group go. Of rowProperties only the end of the row counts.
enum class RtfTarget { text, fonts, colors, rowProperties, nowhere };

/// What a group inherits, and what its end takes back.
struct RtfState {
    RtfTarget target = RtfTarget::text;
    RtfTarget starred = RtfTarget::nowhere; ///< where characters went before a \*
    int font = -1;                          ///< -1: the default of the document
    int size = RtfFormat{}.halfPoints;
    int color = 0;       ///< index into the colour table
    int substitutes = 1; ///< characters after a \u that stand for it where \u is unknown
    bool bold = false;
    bool italic = false;
    bool underlined = false;
    bool hidden = false;
    bool deleted = false;
    RtfAlignment alignment = RtfAlignment::left;

    /// Takes up a word that changes the look of characters; any other changes nothing.
    void applyWord(RtfWord word, int number, bool on);
};

} // namespace klopfmeise
