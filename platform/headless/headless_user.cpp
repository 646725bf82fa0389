#include "platform/headless/headless_user.h"

#include "platform/controls/visit.h"
#include "platform/headless/headless_editor.h"
#include "platform/headless/headless_widgets.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace klopfmeise {

namespace {

/// Virtual-key code of the key on which a character lies, as far as tests need one.
int keyCodeOf(wchar_t character) {
    return character >= L'a' && character <= L'z' ? character - L'a' + L'A' : character;
}

InputMark markOf(InputMark::Kind kind, const Key& key, bool repeat) {
    InputMark mark;
    mark.kind = kind;
    mark.key = key.codes.empty() ? 0 : static_cast<std::uint32_t>(key.codes.front());
    mark.repeat = repeat;
    return mark;
}

} // namespace

HeadlessUser::HeadlessUser(FormRuntime& runtime, ManualClock& clock)
    : runtime_(runtime)
    , clock_(clock) {
    line_.busy = [this] { return runtime_.busy(); };
    line_.wake = [] {};
}

void HeadlessUser::pass(int milliseconds) {
    const double until = clock_.seconds() + milliseconds / 1000.0;
    for (double next = runtime_.nextTick();
         next >= 0 && next <= until && !runtime_.ended() && !runtime_.busy(); next = runtime_.nextTick()) {
        clock_.advance(std::max(0.0, next - clock_.seconds()));
        runtime_.serveTimers();
        serveAll();
    }
    clock_.advance(std::max(0.0, until - clock_.seconds()));
}

void HeadlessUser::enter(const InputMark& mark, std::function<void()> serve) {
    line_.enter(mark, std::move(serve));
    serveAll();
}

void HeadlessUser::serveAll() {
    while (!line_.empty() && !runtime_.busy()) {
        line_.serve();
        runtime_.serveTimers();
    }
}

void HeadlessUser::press(const Key& key, bool release, bool repeat) {
    const auto serve = [this](Key stroke, bool down) {
        Form* form = runtime_.active();
        if (!form)
            return;
        const auto widget = [&](const std::wstring& text) {
            Control* focus = form->focus();
            return down && focus && focus->reachable() && widgetTakes(*focus, stroke, text, router_);
        };
        if (down)
            router_.keyPress(*form, stroke, widget);
        else
            router_.keyRelease(*form, widget);
    };
    enter(markOf(InputMark::Kind::keyDown, key, repeat), [serve, key] { serve(key, true); });
    if (release)
        enter(markOf(InputMark::Kind::keyUp, key, false), [serve, key] { serve(key, false); });
}

void HeadlessUser::press(wchar_t character, bool release) {
    if (!runtime_.active())
        throw std::logic_error("no form takes the key");
    press({.codes = {keyCodeOf(character)}, .text = deadKeys_.typed(std::wstring_view(&character, 1))},
          release, !release);
}

void HeadlessUser::type(wchar_t character) { press(character, true); }

void HeadlessUser::type(std::wstring_view text) {
    for (const wchar_t character : text)
        type(character);
}

void HeadlessUser::accent(wchar_t sign) {
    press({.codes = {sign}, .text = deadKeys_.accent(sign)}, true, false);
}

void HeadlessUser::repeat(wchar_t character) { press(character, false); }

void HeadlessUser::keyDown(std::vector<int> codes) {
    press({.codes = std::move(codes), .text = {}}, false, false);
}

void HeadlessUser::keyUp() {
    enter({.kind = InputMark::Kind::keyUp}, [this] {
        if (Form* form = runtime_.active())
            router_.keyRelease(*form, [](const std::wstring&) { return false; });
    });
}

void HeadlessUser::strike(int code) { press({.codes = {code}, .text = {}}, true, false); }

void HeadlessUser::paste(std::wstring_view text) {
    Form* form = runtime_.active();
    if (Control* focus = form ? form->focus() : nullptr)
        enter({}, [this, form, focus, pasted = std::wstring(text)] {
            router_.tell(*form, [this, focus, pasted] {
                // An editor takes lines, which a box of one line does not.
                if (auto* editor = as<RichTextBox>(focus))
                    insertIntoEditor(*editor, pasted);
                else
                    insertInto(*focus, router_.pasted(*focus, pasted));
            });
        });
}

void HeadlessUser::click(Control& control, MouseButton button) {
    if (!control.reachable())
        return;
    enter({}, [this, &control, button, life = formOf(control).life()] {
        if (!activated(control, life))
            return;
        Form& form = formOf(control);
        const bool left = button == MouseButton::left;
        if (Container* inside = control.asContainer()) {
            router_.mouseDown(*inside, -1, -1, button);
        } else if (!control.windowed()) {
            const int x = control.left() + control.width() / 2;
            const int y = control.top() + control.height() / 2;
            router_.mouseDown(control.parent(), x, y, button);
            router_.mouseUp(control.parent(), x, y, button);
        } else if (auto* check = as<CheckControl>(&control); check && left) {
            router_.tell(form, [check] { check->pressed(); });
        } else if (as<TextBox>(&control) || as<RichTextBox>(&control)) {
            form.focusMoved(&control);
        } else if (auto* key = as<Button>(&control); key && left) {
            if (key->tabStop())
                form.focusMoved(key);
            router_.press(control);
        }
    });
}

Control* HeadlessUser::control(std::wstring_view name, int index) const {
    Form* form = runtime_.active();
    return form ? form->find(name, index) : nullptr;
}

void HeadlessUser::click(std::wstring_view name, int index) {
    Control* found = control(name, index);
    if (!found)
        throw std::logic_error("no such control on the active form");
    click(*found);
}

void HeadlessUser::pressRow(ListControl& list, int row, MouseButton button) {
    if (!list.reachable())
        return;
    enter({}, [this, &list, row, button, life = formOf(list).life()] {
        if (!activated(list, life))
            return;
        Form& form = formOf(list);
        router_.tell(form, [&list, row, button] { list.pressed(row, button); });
        if (row >= 0)
            router_.tell(form, [&list] { list.clicked(); });
    });
}

bool HeadlessUser::activated(const Control& control, const std::weak_ptr<const int>& life) {
    if (!life.expired())
        runtime_.windowActivated(formOf(control));
    return !life.expired() && control.reachable();
}

void HeadlessUser::move(Control& range, int value) {
    auto* moved = as<RangeControl>(&range);
    if (moved && moved->reachable())
        enter({}, [this, moved, value, life = formOf(range).life()] {
            if (activated(*moved, life))
                router_.tell(formOf(*moved), [moved, value] { moved->movedTo(value); });
        });
}

void HeadlessUser::hover(Control& control) {
    if (!control.reachable())
        return;
    Container* inside = control.asContainer();
    const int x = control.left() + control.width() / 2;
    const int y = control.top() + control.height() / 2;
    enter({.kind = InputMark::Kind::mouseMove}, [this, inside, x, y, &control] {
        // The edge of a panel, where nothing of what it holds lies.
        if (inside)
            router_.mouseMove(*inside, -1, -1);
        else
            router_.mouseMove(control.parent(), x, y);
    });
}

void HeadlessUser::choose(Form& form, std::wstring_view item) {
    const MenuItem* found = findItem(form.look().menu, item);
    if (!found || !found->click)
        throw std::logic_error("no such entry in the menu");
    enter({}, [this, &form, handler = found->click] { router_.tell(form, handler); });
}

void HeadlessUser::activate(Form& form) {
    runtime_.windowActivated(form);
    serveAll();
}

void HeadlessUser::close(Form& form) {
    runtime_.windowClosed(form);
    serveAll();
}

void HeadlessUser::resize(Form& form, int width, int height, WindowState state) {
    runtime_.windowResized(form, width, height, state);
}

} // namespace klopfmeise
