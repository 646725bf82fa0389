#pragma once

#include "platform/values/color.h"

namespace klopfmeise {

/// The lesson picture archive has one number for each lesson of the course.
inline constexpr int Lektionenzahl = 30;

/// Colours of a number in the archive; they are the whole of its state.
namespace archivfarben {
inline constexpr Color nichtErreicht = colors::white;
inline constexpr Color erreicht = colors::black;
inline constexpr Color grund = colors::blush;
inline constexpr Color gezeigt = colors::coral;
} // namespace archivfarben

} // namespace klopfmeise
