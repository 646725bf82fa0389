#pragma once

#include <cstdint>
#include <deque>
#include <functional>

namespace klopfmeise {

/// What the line has to know of an input to keep order among the inputs.
struct InputMark {
    enum class Kind { keyDown, keyUp, mouseMove, other };
    Kind kind = Kind::other;
    /// The window it belongs to, by its address.
    const void* window = nullptr;
    /// Which key of the keyboard, by its place.
    std::uint32_t key = 0;
    /// The machine repeats a held key.
    bool repeat = false;
    /// The machine's time stamp; 0 if it gives none.
    std::uint64_t time = 0;
};

/// The one way into the program for whatever a user does. Inputs stand in line while a handler runs and are
/// served one by one, each to its end with the reactions of the controls it met, before the next is. Of the
/// repeats of a held key at most one waits, and a move of the mouse takes the place of the one before it.
class InputLine {
public:
    /// True while a handler runs.
    std::function<bool()> busy;
    /// Called when something waits that can be served.
    std::function<void()> wake;
    /// Calls `then` some milliseconds later. Where there is one, a release waits so long for what may come
    /// behind it: machines tell the repeat of a held key as a release and a press of the same time, and the
    /// press may arrive a little later.
    std::function<void(std::function<void()> then)> shortly;

    void enter(const InputMark& mark, std::function<void()> serve);
    /// Runs `reaction` behind the input being served, before the next one.
    void react(std::function<void()> reaction);
    /// Serves the reactions and the first input in line with its own; nothing while a handler runs.
    void serve();
    bool empty() const { return inputs_.empty() && reactions_.empty(); }
    /// True if there is something that need not wait any longer.
    bool ready() const { return !reactions_.empty() || (!inputs_.empty() && !restingRelease()); }

private:
    struct Input {
        InputMark mark;
        std::function<void()> serve;
    };

    bool repeatWaits(const InputMark& mark) const;
    /// A repeat whose release and press arrived apart, so that the machine's toolkit took them for two
    /// strokes: the press bears the very time of the release before it, which is still in line.
    bool splitRepeat(const InputMark& mark) const;
    /// True if all that is in line is a release behind which something may come.
    bool restingRelease() const { return resting_ && inputs_.size() == 1; }
    void runReactions();

    std::deque<Input> inputs_;
    std::deque<std::function<void()>> reactions_;
    bool serving_ = false;
    /// The last input is a release that waits, the one of this number.
    bool resting_ = false;
    std::uint64_t releases_ = 0;
};

} // namespace klopfmeise
