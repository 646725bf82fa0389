#include "platform/qt/sound/pulse_sound.h"

namespace klopfmeise {

namespace {

constexpr std::size_t largestFile = 8 << 20;

}

int PulseSound::play(const std::wstring& path) {
    auto found = waves_.find(path);
    if (found == waves_.end()) {
        // What cannot be opened may be there the next time.
        const auto bytes = files_.readAll(path, largestFile);
        if (!bytes)
            return 0;
        found = waves_.emplace(path, bytes->size() < largestFile ? readWave(*bytes) : Wave{}).first;
    }
    return found->second.empty() ? 0 : feeder_.play(found->second);
}

} // namespace klopfmeise
