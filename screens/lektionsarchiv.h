#pragma once

#include "platform/values/color.h"

namespace klopfmeise {

struct Umgebung;

/// Colours of a number in the archive of lesson pictures; they are the whole of its state.
namespace archivfarben {
inline constexpr Color nichtErreicht = colors::white;
inline constexpr Color erreicht = colors::black;
inline constexpr Color grund = colors::blush;
inline constexpr Color gezeigt = colors::coral;
} // namespace archivfarben

/// Opens the window with the keyboard picture of a lesson: for a child with the strip of lesson numbers, by
/// which it can leaf back to the lessons it has reached, for a teacher without.
void lektionsbildZeigen(const Umgebung& umgebung, int lektion, bool mitArchiv);

} // namespace klopfmeise
