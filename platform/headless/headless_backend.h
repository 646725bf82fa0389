#pragma once

#include "platform/forms/form_runtime.h"
#include "platform/headless/headless_services.h"

#include <deque>
#include <vector>

namespace klopfmeise {

class ListControl;

/// The backend of the tests: time stands until the test moves it, messages are answered from a queue and
/// recorded.
class HeadlessBackend final : public Backend {
public:
    explicit HeadlessBackend(ManualClock& clock)
        : clock_(clock) {}

    std::unique_ptr<FormView> makeView(Form& form) override;
    Answer showMessage(const Message& message) override;
    void wait(int milliseconds) override { clock_.advance(milliseconds / 1000.0); }
    void timersChanged() override {}
    Rect screen() const override { return {0, 0, 12000, 9000}; }
    void quit() override { quitAsked = true; }

    /// Message boxes shown so far.
    std::vector<Message> messages;
    /// Answers to come; where none is left, the one that changes nothing.
    std::deque<Answer> answers;
    bool quitAsked = false;
    /// Names of forms and controls painted inside a handler, and of windows activated, in order.
    std::vector<std::wstring> log;

private:
    ManualClock& clock_;
};

/// What a person does at the machine, played on a runtime.
class HeadlessUser {
public:
    HeadlessUser(FormRuntime& runtime, ManualClock& clock)
        : runtime_(runtime)
        , clock_(clock) {}

    /// Lets time pass; timers due in it tick in their order.
    void pass(int milliseconds);
    /// A key with a character: key-down, key-press, key-up at the control that has the focus, or at the form.
    void type(wchar_t character);
    void type(std::wstring_view text);
    /// As a held key repeats: key-down and key-press without key-up.
    void repeat(wchar_t character);
    /// A key without a character, by virtual-key code.
    void keyDown(int keyCode);
    void keyUp();
    /// A press and release of the mouse on a control; nothing if it or a container of it is hidden or
    /// disabled.
    void click(Control& control);
    /// By name on the active form.
    void click(std::wstring_view control, int index = Control::noIndex);
    void pressRow(ListControl& list, int row);
    void hover(Control& control);
    /// The user clicks on another window of the program.
    void activate(Form& form);
    void close(Form& form);

private:
    void press(wchar_t character, bool release);

    FormRuntime& runtime_;
    ManualClock& clock_;
};

} // namespace klopfmeise
