#pragma once

#include "platform/machine/services.h"

#include <chrono>
#include <random>

namespace klopfmeise {

/// The monotonic clock of the machine, from the making of this object on.
class SteadyClock final : public Clock {
public:
    double seconds() const override {
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start_).count();
    }

private:
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

class SystemRandom final : public Random {
public:
    void randomize() override {
        generator_.seed(static_cast<std::mt19937::result_type>(
            std::chrono::system_clock::now().time_since_epoch().count()));
    }
    double next() override { return std::uniform_real_distribution<double>(0.0, 1.0)(generator_); }

private:
    std::mt19937 generator_;
};

} // namespace klopfmeise
