#pragma once

#include "platform/controls/lists.h"
#include "platform/forms/form_runtime.h"
#include "platform/headless/headless_services.h"
#include "platform/input/dead_keys.h"
#include "platform/input/input_line.h"
#include "platform/input/input_router.h"

#include <string_view>

namespace klopfmeise {

/// What a person does at the machine, played on a runtime. What is done while a handler runs (in a wait)
/// stands in line and is served when that handler has come to its end.
class HeadlessUser {
public:
    HeadlessUser(FormRuntime& runtime, ManualClock& clock);
    HeadlessUser(const HeadlessUser&) = delete;
    HeadlessUser& operator=(const HeadlessUser&) = delete;

    /// Lets time pass; timers due in it tick in their order.
    void pass(int milliseconds);

    /// A stroke of a key with a character, at the active form.
    void type(wchar_t character);
    void type(std::wstring_view text);
    /// An accent key, whose sign joins the next character.
    void accent(wchar_t sign);
    /// As a held key repeats: key-down and key-press without key-up.
    void repeat(wchar_t character);
    /// A key without a character, by its virtual-key codes; it stays down.
    void keyDown(std::vector<int> codes);
    void keyDown(int code) { keyDown(std::vector{code}); }
    void keyUp();
    /// A stroke of a key without a character: arrows, page keys.
    void strike(int code);
    /// Puts a text from the clipboard into the box that has the focus.
    void paste(std::wstring_view text);

    /// A press and release of the mouse in the middle of a control; nothing if the user cannot get at it.
    void click(Control& control, MouseButton button = MouseButton::left);
    /// By name on the active form.
    void click(std::wstring_view control, int index = Control::noIndex);
    void pressRow(ListControl& list, int row, MouseButton button = MouseButton::left);
    /// Moves a scroll bar or slider.
    void move(Control& range, int value);
    void hover(Control& control);
    /// An entry of a form's menu bar.
    void choose(Form& form, std::wstring_view item);

    /// The user clicks on another window of the program.
    void activate(Form& form);
    void close(Form& form);
    void resize(Form& form, int width, int height, WindowState state);

private:
    void press(wchar_t character, bool release);
    void press(const Key& key, bool release, bool repeat);
    void enter(const InputMark& mark, std::function<void()> serve);
    void serveAll();
    Control* control(std::wstring_view name, int index) const;
    /// A press makes its form the active one; false if the control is out of reach by then.
    bool activated(const Control& control, const std::weak_ptr<const int>& life);

    FormRuntime& runtime_;
    ManualClock& clock_;
    InputLine line_;
    InputRouter router_{runtime_, line_};
    DeadKeys deadKeys_;
};

} // namespace klopfmeise
