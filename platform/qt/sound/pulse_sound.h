#pragma once

#include "platform/machine/services.h"
#include "platform/qt/sound/feeder.h"

#include <map>
#include <string>

namespace klopfmeise {

/// Wave files through the sound server of this machine. Each file is read when it is first played and kept.
class PulseSound final : public Sound {
public:
    explicit PulseSound(Files& files, SoundRest rest = {})
        : files_(files)
        , feeder_(rest) {}

    int play(const std::wstring& path) override;

private:
    Files& files_;
    /// An empty wave where a file is none. Before the feeder, which plays from here to its end.
    std::map<std::wstring, Wave> waves_;
    Feeder feeder_;
};

} // namespace klopfmeise
