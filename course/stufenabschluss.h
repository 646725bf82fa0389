#pragma once

#include "store/kurskonto.h"

#include <functional>
#include <string>

namespace klopfmeise {

/// Writes the place in the course behind a passed stage, records 32 and 33 as a pair, and calls `zwischen`
/// between the two. Where the second cannot be written the first is put back, so that the pair never tells a
/// place that nobody reached.
void stufeBestanden(Files& dateien, const std::wstring& pfad, Kurskonto& konto, int Stufenzahl,
                    const std::function<void()>& zwischen);

} // namespace klopfmeise
