#include "platform/qt/sound/wave.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace klopfmeise;

// Whatever a wave file holds, the sound is one of at most ten seconds or none.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Wave wave = readWave({reinterpret_cast<const char*>(data), size});
    if (wave.size() > std::size_t{longestWaveSeconds} * waveRate)
        std::abort();
    return 0;
}
