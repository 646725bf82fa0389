#include "platform/input/input_router.h"

#include "platform/forms/form_runtime.h"
#include "platform/input/input_line.h"
#include "platform/values/windows1252.h"

#include <algorithm>
#include <utility>

namespace klopfmeise {

namespace {

/// The delete key bears a character on some machines, but types none.
constexpr wchar_t deleteSign = 127;
constexpr wchar_t tabSign = 9;
constexpr wchar_t firstPrintable = 32;

} // namespace

std::wstring InputRouter::filtered(Form& form, const KeyHandlers& handlers, std::wstring_view text) {
    const auto life = form.life();
    std::wstring left;
    for (const wchar_t character : text) {
        KeyPress press{toWindows1252(character), character};
        if (handlers.press && character != deleteSign) {
            if (press.code < 0 || life.expired())
                continue;
            runtime_.dispatch(form, [&] { handlers.press(press); });
        }
        if (!press.swallowed)
            left += character;
    }
    return left;
}

void InputRouter::keyPress(Form& form, const Key& key, const Widget& widget) {
    if (!form.enabled())
        return;
    // A key whose code nobody knows but which types is told too, so that its release has a press.
    const bool told = !key.codes.empty() || !key.text.empty();
    const auto life = form.life();
    const Control* focus = form.focus();
    if (focus && focus->reachable() && focus->keys()) {
        // The handlers may unload the form and with it the control.
        const KeyHandlers handlers = focus->keys();
        const bool inBox = focus->kind() == Kind::textBox;
        widgetTook_ = false;
        if (handlers.down && told)
            runtime_.dispatch(form, [&] { handlers.down({key.codes}); });
        std::wstring left;
        if (!life.expired())
            // Tab leaves a text box and is no character of it.
            left =
                inBox && key.text == std::wstring(1, tabSign) ? key.text : filtered(form, handlers, key.text);
        if (!life.expired() && (key.text.empty() || !left.empty()))
            widget(left);
        return;
    }
    widgetTook_ = widget(key.text);
    if (widgetTook_ || life.expired())
        return;
    if (told)
        runtime_.dispatch(form, [&] { form.Form_KeyDown({key.codes}); });
    for (const wchar_t character : key.text) {
        KeyPress press{toWindows1252(character), character};
        if (press.code >= 0 && character != deleteSign && !life.expired())
            runtime_.dispatch(form, [&] { form.Form_KeyPress(press); });
    }
}

void InputRouter::keyRelease(Form& form, const Widget& widget) {
    if (!form.enabled())
        return;
    const auto life = form.life();
    const Control* focus = form.focus();
    if (focus && focus->reachable() && focus->keys()) {
        const KeyHandlers handlers = focus->keys();
        if (handlers.up)
            runtime_.dispatch(form, handlers.up);
        if (!life.expired())
            widget({});
        return;
    }
    // Who took the press takes the release.
    if (!widget({}) && !widgetTook_ && !life.expired())
        runtime_.dispatch(form, [&] { form.Form_KeyUp(); });
}

std::wstring InputRouter::pasted(Control& box, std::wstring_view text) {
    std::wstring left(text);
    std::erase_if(left, [](wchar_t c) { return c < firstPrintable || c == deleteSign; });
    // The handlers may unload the form and with it the box.
    const KeyHandlers handlers = box.keys();
    return filtered(formOf(box), handlers, left);
}

void InputRouter::tell(Form& form, std::function<void()> handler) {
    line_.react([this, &form, life = form.life(), handler = std::move(handler)] {
        if (handler && !life.expired() && form.enabled())
            runtime_.dispatch(form, handler);
    });
}

void InputRouter::mouseDown(Container& container, int x, int y, MouseButton button) {
    Control* control = container.drawnControlAt(x, y);
    pressed_ = button == MouseButton::left ? control : nullptr;
    pressedLife_ = static_cast<Form&>(container.host()).life();
    if (!control)
        control = container.asControl();
    if (control && control->enabled() && control->mouseDown())
        tell(formOf(*control), [handler = control->mouseDown(), button] { handler(button); });
}

void InputRouter::mouseUp(Container& container, int x, int y, MouseButton button) {
    if (button != MouseButton::left)
        return;
    const Control* pressed = std::exchange(pressed_, nullptr);
    Control* control = container.drawnControlAt(x, y);
    if (control && control == pressed && !pressedLife_.expired() && control->enabled() && control->click())
        tell(formOf(*control), control->click());
}

void InputRouter::mouseMove(Container& container, int x, int y) {
    if (Control* control = container.drawnControlAt(x, y)) {
        if (control->enabled() && control->mouseMove())
            tell(formOf(*control), control->mouseMove());
    } else if (Control* ground = container.asControl()) {
        if (ground->mouseMove())
            tell(formOf(*ground), ground->mouseMove());
    } else {
        Form& form = static_cast<Form&>(container.host());
        tell(form, [&form] { form.Form_MouseMove(); });
    }
}

void InputRouter::press(Control& control) {
    if (!control.enabled())
        return;
    if (control.mouseDown())
        tell(formOf(control), [handler = control.mouseDown()] { handler(MouseButton::left); });
    if (control.click())
        tell(formOf(control), control.click());
}

void InputRouter::forget(const Control& control) {
    if (pressed_ == &control)
        pressed_ = nullptr;
}

} // namespace klopfmeise
