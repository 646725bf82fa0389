#pragma once

#include <algorithm>

namespace klopfmeise {

/// How a command ended; the numbers are its exit codes, and of two endings the higher one counts.
enum class Ausgang : int {
    gut = 0,
    /// Something was found, or something was refused.
    beanstandet = 1,
    falscherAufruf = 2,
    /// Something could not be read or written.
    unzugänglich = 3,
};

inline Ausgang schwererer(Ausgang a, Ausgang b) { return std::max(a, b); }

} // namespace klopfmeise
