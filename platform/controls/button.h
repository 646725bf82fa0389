#pragma once

#include "platform/controls/typed_control.h"
#include "platform/values/color.h"
#include "platform/values/font.h"

#include <optional>

namespace klopfmeise {

struct ButtonLook {
    std::wstring caption = {};
    Font font = {};
    std::optional<Color> back = {};
    /// Name of one of the program's own drawings.
    std::wstring picture = {};
    bool visible = true;
    bool enabled = true;
    /// False: neither Tab nor a click gives it the focus, and the keys stay with the form.
    bool tabStop = true;
    std::wstring toolTip = {};
    Handler click = {};
};

class Button final : public TypedControl<ButtonLook> {
public:
    Button(Container& parent, std::wstring_view name, const Rect& place, Look look = {}, int index = noIndex)
        : TypedControl(Kind::button, parent, name, place, std::move(look), index) {}
    static constexpr bool is(Kind kind) { return kind == Kind::button; }

    const std::wstring& caption() const { return look().caption; }
    void setCaption(std::wstring caption) { put(&Look::caption, std::move(caption)); }
    const Font& font() const { return look().font; }
    const std::optional<Color>& back() const { return look().back; }
    const std::wstring& picture() const { return look().picture; }
    bool tabStop() const { return look().tabStop; }
};

} // namespace klopfmeise
