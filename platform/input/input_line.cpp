#include "platform/input/input_line.h"

#include <utility>

namespace klopfmeise {

using enum InputMark::Kind;

void InputLine::enter(const InputMark& told, std::function<void()> serve) {
    InputMark mark = told;
    if (splitRepeat(mark)) {
        inputs_.pop_back();
        mark.repeat = true;
    }
    resting_ = false;
    // Of a held key only the last release is one.
    if (mark.repeat && (mark.kind == keyUp || repeatWaits(mark)))
        return;
    if (mark.kind == mouseMove && !inputs_.empty() && inputs_.back().mark.kind == mouseMove &&
        inputs_.back().mark.window == mark.window)
        inputs_.pop_back();
    inputs_.push_back({mark, std::move(serve)});
    if (mark.kind == keyUp && mark.time != 0 && shortly) {
        resting_ = true;
        shortly([this, release = ++releases_] {
            resting_ = resting_ && release != releases_;
            wake();
        });
    }
    wake();
}

bool InputLine::repeatWaits(const InputMark& mark) const {
    for (auto input = inputs_.rbegin(); input != inputs_.rend(); ++input) {
        const InputMark& earlier = input->mark;
        if ((earlier.kind == keyDown || earlier.kind == keyUp) && earlier.key == mark.key)
            return earlier.kind == keyDown && earlier.repeat;
    }
    return false;
}

bool InputLine::splitRepeat(const InputMark& mark) const {
    if (mark.kind != keyDown || inputs_.empty())
        return false;
    const InputMark& last = inputs_.back().mark;
    return last.kind == keyUp && last.key == mark.key && mark.time != 0 && last.time == mark.time;
}

void InputLine::react(std::function<void()> reaction) {
    reactions_.push_back(std::move(reaction));
    if (!serving_)
        wake();
}

void InputLine::serve() {
    if (serving_ || busy())
        return;
    serving_ = true;
    runReactions();
    if (!inputs_.empty() && !restingRelease()) {
        const Input input = std::move(inputs_.front());
        inputs_.pop_front();
        input.serve();
        runReactions();
    }
    serving_ = false;
}

void InputLine::runReactions() {
    while (!reactions_.empty()) {
        const auto reaction = std::move(reactions_.front());
        reactions_.pop_front();
        reaction();
    }
}

} // namespace klopfmeise
