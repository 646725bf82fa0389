#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace klopfmeise {

/// Samples of one channel, 16 bits, `waveRate` a second.
using Wave = std::vector<std::int16_t>;
inline constexpr int waveRate = 44100;
inline constexpr int longestWaveSeconds = 10;

/// The sound in the bytes of a wave file: whole numbers of 8 to 32 bits, any number of channels and any usual
/// rate. Empty if it cannot be told, or lasts longer than `longestWaveSeconds`. A file that ends too early
/// sounds as far as it goes.
Wave readWave(std::string_view file);

} // namespace klopfmeise
