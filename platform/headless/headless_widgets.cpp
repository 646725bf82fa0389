#include "platform/headless/headless_widgets.h"

#include "platform/controls/visit.h"
#include "platform/forms/form_runtime.h"
#include "platform/headless/headless_editor.h"

#include <algorithm>

namespace klopfmeise {

namespace {

constexpr int backspaceCode = 8;
constexpr int enterCode = 13;
constexpr int blankCode = 32;
constexpr int pageUpCode = 33;
constexpr int pageDownCode = 34;
constexpr int leftCode = 37;
constexpr int upCode = 38;
constexpr int rightCode = 39;
constexpr int downCode = 40;
constexpr int deleteCode = 46;
constexpr wchar_t firstPrintable = 32;

void insert(TextBox& box, const std::wstring& characters) {
    if (box.readOnly())
        return;
    std::wstring text = box.allSelected() ? std::wstring() : box.text();
    auto caret = std::min(text.size(), static_cast<std::size_t>(box.caret()));
    for (const wchar_t character : characters)
        if (box.maxLength() == 0 || static_cast<int>(text.size()) < box.maxLength())
            text.insert(caret++, 1, character);
    box.edited(std::move(text), static_cast<int>(caret));
}

bool takes(TextBox& box, const Key& key, const std::wstring& text) {
    if (std::ranges::find(key.codes, backspaceCode) != key.codes.end()) {
        if (!box.readOnly() && box.caret() > 0) {
            std::wstring rest = box.text();
            const int from = box.allSelected() ? 0 : box.caret() - 1;
            rest.erase(static_cast<std::size_t>(from), static_cast<std::size_t>(box.caret() - from));
            box.edited(std::move(rest), from);
        }
        return true;
    }
    if (text.empty() || text.front() < firstPrintable)
        return false;
    insert(box, text);
    return true;
}

bool takes(RichTextBox& box, const Key& key, const std::wstring& text) {
    const auto pressedWith = [&](int code) { return std::ranges::find(key.codes, code) != key.codes.end(); };
    if (pressedWith(backspaceCode) || pressedWith(deleteCode))
        removeFromEditor(box, pressedWith(backspaceCode));
    else if (pressedWith(leftCode) || pressedWith(rightCode))
        moveInEditor(box, pressedWith(leftCode));
    else if (!text.empty() && (text.front() >= firstPrintable || pressedWith(enterCode)))
        insertIntoEditor(box, text);
    else
        return false;
    return true;
}

/// Steps that the arrow and page keys mean; 0 for other keys.
int steps(const Key& key, int small, int large) {
    for (const int code : key.codes) {
        if (code == upCode || code == leftCode)
            return -small;
        if (code == downCode || code == rightCode)
            return small;
        if (code == pageUpCode)
            return -large;
        if (code == pageDownCode)
            return large;
    }
    return 0;
}

} // namespace

bool widgetTakes(Control& control, const Key& key, const std::wstring& text, InputRouter& router) {
    Form& form = formOf(control);
    FormRuntime& runtime = form.runtime();
    const auto pressedWith = [&](int code) { return std::ranges::find(key.codes, code) != key.codes.end(); };
    const auto typed = [&](auto& box) {
        bool taken = false;
        runtime.dispatch(form, [&] { taken = takes(box, key, text); });
        return taken;
    };
    return visit(
        control,
        Overloaded{[&](TextBox& box) { return typed(box); }, [&](RichTextBox& box) { return typed(box); },
                   [&](Button& button) {
                       const bool pressed = pressedWith(enterCode) || pressedWith(blankCode);
                       if (pressed)
                           router.press(button);
                       return pressed;
                   },
                   [&](ListControl& list) {
                       const int by = steps(key, 1, 8);
                       if (by != 0 && list.itemCount() > 0)
                           router.tell(form, [&list, by] {
                               list.movedTo(std::clamp(list.selected() + by, 0, list.itemCount() - 1));
                           });
                       return by != 0;
                   },
                   [&](RangeControl& range) {
                       int by = steps(key, range.smallStep(), range.largeStep());
                       // On a slider that lies, up is more.
                       const bool sideways = pressedWith(leftCode) || pressedWith(rightCode);
                       if (range.kind() == Kind::slider && !range.vertical() && !sideways)
                           by = -by;
                       if (by != 0)
                           router.tell(form, [&range, by] { range.movedTo(range.value() + by); });
                       return by != 0;
                   },
                   [&](CheckControl& check) {
                       const bool pressed = pressedWith(blankCode);
                       if (pressed)
                           router.tell(form, [&check] { check.pressed(); });
                       return pressed;
                   },
                   [](Control&) { return false; }});
}

void insertInto(Control& control, const std::wstring& text) {
    if (auto* box = as<TextBox>(&control))
        formOf(control).runtime().dispatch(formOf(control), [&] { insert(*box, text); });
}

} // namespace klopfmeise
