#pragma once

namespace klopfmeise {

/// Character codes of key presses that are known by name; all others stand as characters.
inline constexpr int CodeRück = 8;
inline constexpr int CodeEingabe = 13;
inline constexpr int CodeLeer = 32;

} // namespace klopfmeise
