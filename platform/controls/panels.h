#pragma once

#include "platform/controls/typed_control.h"
#include "platform/values/color.h"
#include "platform/values/font.h"

namespace klopfmeise {

struct FrameLook {
    std::wstring caption = {};
    Color back = colors::panel;
    bool border = true;
    bool visible = true;
    Font font = {};
    Handler mouseMove = {};
};

/// A panel that holds, paints and clips controls of its own.
class Frame final : public TypedControl<FrameLook>, public Container {
public:
    Frame(Container& parent, std::wstring_view name, const Rect& place, Look look = {}, int index = noIndex)
        : TypedControl(Kind::frame, parent, name, place, std::move(look), index) {}
    static constexpr bool is(Kind kind) { return kind == Kind::frame; }

    const std::wstring& caption() const { return look().caption; }
    Color back() const { return look().back; }
    bool border() const { return look().border; }
    const Font& font() const { return look().font; }

    Container* asContainer() override { return this; }
    Control* asControl() override { return this; }
    Host& host() override { return Control::host(); }
};

struct PictureBoxLook {
    Color back = colors::white;
    /// Name of one of the program's own drawings.
    std::wstring picture = {};
    bool visible = true;
    std::wstring toolTip = {};
    KeyHandlers keys = {};
    MouseHandler mouseDown = {};
};

/// A panel with a picture or a plain ground that holds and clips controls and can take the keys.
class PictureBox final : public TypedControl<PictureBoxLook>, public Container {
public:
    PictureBox(Container& parent, std::wstring_view name, const Rect& place, Look look = {},
               int index = noIndex)
        : TypedControl(Kind::pictureBox, parent, name, place, std::move(look), index) {}
    static constexpr bool is(Kind kind) { return kind == Kind::pictureBox; }

    Color back() const { return look().back; }
    const std::wstring& picture() const { return look().picture; }
    void setPicture(std::wstring name) { put(&Look::picture, std::move(name)); }

    Container* asContainer() override { return this; }
    Control* asControl() override { return this; }
    Host& host() override { return Control::host(); }
};

} // namespace klopfmeise
