#pragma once

#include "platform/controls/typed_control.h"
#include "platform/values/font.h"

namespace klopfmeise {

struct CheckLook {
    std::wstring caption = {};
    Font font = {};
    /// 1 is on, anything else off.
    int value = 0;
    bool visible = true;
    bool enabled = true;
    std::wstring toolTip = {};
    std::wstring spoken = {};
    /// The user pressed it; its value is the new one by then.
    Handler click = {};
};

/// An option button or check box: 1 is on, 0 is off. The options of one container are a group: turning one on
/// turns the others off.
class CheckControl : public TypedControl<CheckLook> {
public:
    static constexpr bool is(Kind kind) { return kind == Kind::optionButton || kind == Kind::checkBox; }
    /// Twips at the left that the sign takes. The caption wraps in the rest of the width.
    static constexpr int signRoom = 20 * twipsPerPixel;

    const std::wstring& caption() const { return look().caption; }
    const Font& font() const { return look().font; }
    int value() const { return look().value; }
    void setValue(int value);

    /// The user pressed it: an option goes on, a check box turns over. Calls `click`, for an option that was
    /// on already too.
    void pressed();

protected:
    CheckControl(Kind kind, Container& parent, std::wstring_view name, const Rect& place, Look look,
                 int index);
};

class OptionButton final : public CheckControl {
public:
    OptionButton(Container& parent, std::wstring_view name, const Rect& place, Look look = {},
                 int index = noIndex)
        : CheckControl(Kind::optionButton, parent, name, place, std::move(look), index) {}
    static constexpr bool is(Kind kind) { return kind == Kind::optionButton; }
};

class CheckBox final : public CheckControl {
public:
    CheckBox(Container& parent, std::wstring_view name, const Rect& place, Look look = {},
             int index = noIndex)
        : CheckControl(Kind::checkBox, parent, name, place, std::move(look), index) {}
    static constexpr bool is(Kind kind) { return kind == Kind::checkBox; }
};

} // namespace klopfmeise
