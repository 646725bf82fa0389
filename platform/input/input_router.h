#pragma once

#include "platform/controls/control.h"
#include "platform/input/key.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace klopfmeise {

class Form;
class FormRuntime;
class InputLine;

/// Which control or form hears of a key or of the mouse, and in which order. A backend says what happened and
/// lets its widgets do what the router leaves to them.
///
/// A key goes to the control that has the focus. If that has handlers for keys, it hears key-down, then a
/// key-press for each character, and its widget gets the characters that no handler swallowed; the form hears
/// nothing. A control without such handlers leaves the key to its widget, and what the widget has no use for
/// goes to the form: key-down, key-press, and later key-up. Codes tell a key, characters of the 8-bit code
/// page a key-press: forms do not hear of other characters, and they do not get past the filter of a box.
class InputRouter {
public:
    /// Has a control's widget take a key with these characters; true if it had a use for it.
    using Widget = std::function<bool(const std::wstring& text)>;

    InputRouter(FormRuntime& runtime, InputLine& line)
        : runtime_(runtime)
        , line_(line) {}

    void keyPress(Form& form, const Key& key, const Widget& widget);
    void keyRelease(Form& form, const Widget& widget);
    /// What of a pasted text gets into a box: no control characters, and only what its key filter lets pass.
    /// To be called from a reaction of the form, as the filter may unload it.
    std::wstring pasted(Control& box, std::wstring_view text);

    /// The mouse at a point of a container (twips): the uppermost drawn control there hears of it, or the
    /// container itself.
    void mouseDown(Container& container, int x, int y, MouseButton button);
    /// A left press and release on the same control is a click.
    void mouseUp(Container& container, int x, int y, MouseButton button);
    void mouseMove(Container& container, int x, int y);
    /// A click on a control by other means than the mouse.
    void press(Control& control);
    /// A control is about to go.
    void forget(const Control& control);

    /// Has a handler of a form called behind the input that is being served, unless the form is gone or
    /// disabled by then.
    void tell(Form& form, std::function<void()> handler);

private:
    /// The characters that a key filter lets pass. A filter knows the 8-bit code page only, so nothing else
    /// does.
    std::wstring filtered(Form& form, const KeyHandlers& handlers, std::wstring_view text);

    FormRuntime& runtime_;
    InputLine& line_;
    /// Under the left button, on the form that `pressedLife_` is of.
    const Control* pressed_ = nullptr;
    std::weak_ptr<const int> pressedLife_;
    /// The last press was of use to a widget.
    bool widgetTook_ = false;
};

} // namespace klopfmeise
