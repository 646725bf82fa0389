#pragma once

#include "platform/machine/services.h"

#include <memory>

namespace klopfmeise {

/// The sound of this machine, loaded with the first one played: it comes with libraries of its own, which a
/// start need not wait for. Without the module "klopfmeise_sound" beside the program it is silent.
class LateSound final : public Sound {
public:
    explicit LateSound(Files& files)
        : files_(files) {}

    int play(const std::wstring& path) override;

private:
    Files& files_;
    bool tried_ = false;
    std::unique_ptr<Sound> sound_;
};

} // namespace klopfmeise
