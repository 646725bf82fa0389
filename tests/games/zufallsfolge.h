#pragma once

#include "platform/machine/services.h"

#include <stdexcept>
#include <utility>
#include <vector>

namespace klopfmeise {

/// Draws what the test says, one after the other.
class Zufallsfolge final : public Random {
public:
    explicit Zufallsfolge(std::vector<double> folge)
        : folge_(std::move(folge)) {}
    void randomize() override {}
    double next() override {
        if (gezogen == folge_.size())
            throw std::logic_error("more was drawn than the test says");
        return folge_[gezogen++];
    }
    std::size_t gezogen = 0;

private:
    std::vector<double> folge_;
};

} // namespace klopfmeise
