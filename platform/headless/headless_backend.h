#pragma once

#include "platform/forms/form_runtime.h"
#include "platform/headless/headless_services.h"

#include <deque>
#include <functional>
#include <vector>

namespace klopfmeise {

/// The backend of the tests: time stands until the test moves it, messages are answered from a queue and
/// recorded.
class HeadlessBackend final : public Backend {
public:
    explicit HeadlessBackend(ManualClock& clock)
        : clock_(clock) {}

    std::unique_ptr<FormView> makeView(Form& form) override;
    Answer showMessage(const Message& message) override;
    void wait(int milliseconds) override;
    void work(const std::function<void()>& job) override { job(); }
    void timersChanged() override {}
    Rect screen() const override { return {0, 0, 12000, 9000}; }
    void quit() override { quitAsked = true; }

    /// Called at the beginning of each wait, for a look at the screen or for keys that come meanwhile.
    std::function<void(int milliseconds)> duringWait;
    /// Called at each painting inside a handler, for a look at what a person sees at that moment.
    std::function<void(Form& form)> whenPainted;
    /// Message boxes shown so far.
    std::vector<Message> messages;
    /// Answers to come; where none is left, the one that changes nothing.
    std::deque<Answer> answers;
    bool quitAsked = false;
    /// What was painted inside a handler, shown and hidden, in order.
    std::vector<std::wstring> log;

private:
    ManualClock& clock_;
};

} // namespace klopfmeise
