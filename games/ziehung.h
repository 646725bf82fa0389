#pragma once

#include "platform/machine/services.h"

#include <string_view>

namespace klopfmeise {

// The characters of a game come out of the text of the child's stage: every position of it is drawn alike, so
// that a character that stands there often comes up often. Blanks are never drawn, nor what nobody could see
// on a stone: tabs and other control characters, blanks that do not break.

/// True if the text has a character that can be drawn.
bool hatZeichen(std::wstring_view Stufentext);
/// True if it has two different ones.
bool hatPaar(std::wstring_view Stufentext);

/// One character of a text that has one.
wchar_t zeichenZiehen(std::wstring_view Stufentext, Random& zufall);

struct Zeichenpaar {
    wchar_t erstes = 0;
    wchar_t zweites = 0;
};

/// Two different characters of a text that has them, drawn as one event.
Zeichenpaar paarZiehen(std::wstring_view Stufentext, Random& zufall);

} // namespace klopfmeise
