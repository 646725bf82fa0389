#include "platform/headless/headless_backend.h"

#include "platform/controls/windowed.h"
#include "platform/values/windows1252.h"

#include <algorithm>
#include <stdexcept>

namespace klopfmeise {

namespace {

/// Remembers what was painted inside a handler; all other changes can be read off the model.
class HeadlessView final : public FormView {
public:
    HeadlessView(Form& form, std::vector<std::wstring>& log)
        : form_(form)
        , log_(log) {}

    void controlAdded(Control&) override {}
    void controlRemoved(Control&) override {}
    void controlChanged(Control&) override {}
    void areaDirty(Container&, const Rect&) override {}
    void paintNow(Container& container, const Rect&) override {
        log_.push_back(L"paint " + std::wstring(container.ownerForm().name()));
    }
    void formChanged() override {}
    void show() override { log_.push_back(L"show " + std::wstring(form_.name())); }
    void hide() override { log_.push_back(L"hide " + std::wstring(form_.name())); }
    void activate() override {}
    void takeFocus(Control&) override {}

private:
    Form& form_;
    std::vector<std::wstring>& log_;
};

bool reachable(Control& control) {
    for (Control* at = &control; at; at = at->parent().asControl())
        if (!at->visible() || !at->enabled())
            return false;
    return true;
}

/// Virtual-key code of a character's key, as far as tests need one.
int keyCodeOf(wchar_t character) {
    if (character >= L'a' && character <= L'z')
        return character - 32;
    return character;
}

KeyHandlers* keyHandlersOf(Control* control) {
    if (auto* box = dynamic_cast<PictureBox*>(control))
        return &box->keys;
    if (auto* box = dynamic_cast<TextBox*>(control))
        return &box->keys;
    return nullptr;
}

/// What a text box makes of a character that no handler swallowed.
void edit(TextBox& box, int code) {
    if (box.readOnly())
        return;
    std::wstring text = box.text();
    const auto at = static_cast<std::size_t>(box.caret());
    if (code == 8) {
        if (at == 0)
            return;
        text.erase(at - 1, 1);
        box.edited(text, box.caret() - 1);
    } else if (code >= 32 && (box.maxLength() == 0 || static_cast<int>(text.size()) < box.maxLength())) {
        text.insert(at, 1, fromWindows1252(static_cast<unsigned char>(code)));
        box.edited(text, box.caret() + 1);
    }
}

} // namespace

std::unique_ptr<FormView> HeadlessBackend::makeView(Form& form) {
    return std::make_unique<HeadlessView>(form, log);
}

Answer HeadlessBackend::showMessage(const Message& message) {
    messages.push_back(message);
    if (answers.empty())
        return message.buttons == MessageButtons::ok ? Answer::ok : Answer::cancel;
    const Answer answer = answers.front();
    answers.pop_front();
    return answer;
}

void HeadlessUser::pass(int milliseconds) {
    const double until = clock_.seconds() + milliseconds / 1000.0;
    for (double next = runtime_.nextTick(); next >= 0 && next <= until; next = runtime_.nextTick()) {
        clock_.advance(std::max(0.0, next - clock_.seconds()));
        runtime_.serveTimers();
    }
    clock_.advance(std::max(0.0, until - clock_.seconds()));
}

void HeadlessUser::press(wchar_t character, bool release) {
    Form* form = runtime_.active();
    if (!form)
        throw std::logic_error("no form takes the key");
    Control* focus = form->focus();
    KeyHandlers* keys = keyHandlersOf(focus);
    const int code = toWindows1252(character);
    const int keyCode = keyCodeOf(character);
    runtime_.dispatch(
        *form, [&] { keys ? (keys->down ? keys->down(keyCode) : void()) : form->Form_KeyDown(keyCode); });
    if (code >= 0) {
        runtime_.dispatch(*form, [&] {
            if (!keys) {
                form->Form_KeyPress(code);
                return;
            }
            KeyPress press{.code = code};
            if (keys->press)
                keys->press(press);
            if (auto* box = dynamic_cast<TextBox*>(focus); box && !press.swallowed)
                edit(*box, code);
        });
    }
    if (release)
        keyUp();
    runtime_.serveTimers();
}

void HeadlessUser::type(wchar_t character) { press(character, true); }

void HeadlessUser::type(std::wstring_view text) {
    for (const wchar_t character : text)
        type(character);
}

void HeadlessUser::repeat(wchar_t character) { press(character, false); }

void HeadlessUser::keyDown(int keyCode) {
    Form& form = *runtime_.active();
    KeyHandlers* keys = keyHandlersOf(form.focus());
    runtime_.dispatch(
        form, [&] { keys ? (keys->down ? keys->down(keyCode) : void()) : form.Form_KeyDown(keyCode); });
    runtime_.serveTimers();
}

void HeadlessUser::keyUp() {
    Form* form = runtime_.active();
    if (!form)
        return;
    KeyHandlers* keys = keyHandlersOf(form->focus());
    runtime_.dispatch(*form, [&] { keys ? (keys->up ? keys->up() : void()) : form->Form_KeyUp(); });
}

void HeadlessUser::click(Control& control) {
    if (!reachable(control))
        return;
    Form& form = control.form();
    runtime_.windowActivated(form);
    if (control.mouseDown)
        runtime_.dispatch(form, [&] { control.mouseDown(); });
    // The press may have unloaded the form or hidden the control.
    if (runtime_.loaded(form.name()) == &form && control.click && reachable(control))
        runtime_.dispatch(form, [&] { control.click(); });
    runtime_.serveTimers();
}

void HeadlessUser::click(std::wstring_view name, int index) {
    Form* form = runtime_.active();
    Control* control = form ? form->find(name, index) : nullptr;
    if (!control)
        throw std::logic_error("no such control on the active form");
    click(*control);
}

void HeadlessUser::pressRow(ListControl& list, int row) {
    if (!reachable(list))
        return;
    runtime_.dispatch(list.form(), [&] {
        if (row >= 0)
            list.select(row);
        if (list.mouseDown)
            list.mouseDown();
    });
}

void HeadlessUser::hover(Control& control) {
    if (reachable(control) && control.mouseMove)
        runtime_.dispatch(control.form(), [&] { control.mouseMove(); });
}

void HeadlessUser::activate(Form& form) { runtime_.windowActivated(form); }

void HeadlessUser::close(Form& form) { runtime_.windowClosed(form); }

} // namespace klopfmeise
