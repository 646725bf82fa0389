#pragma once

#include "platform/controls/typed_control.h"

namespace klopfmeise {

struct RangeLook {
    int min = 0;
    int max = 0;
    int value = 0;
    int smallStep = 1;
    int largeStep = 1;
    bool vertical = false;
    bool visible = true;
    std::wstring spoken = {};
    /// The user moved it to another value.
    Handler change = {};
};

/// A scroll bar or slider: a whole number between two bounds, from its making on. A value beyond them is
/// brought to the nearer one, at once: whoever sets both sets the bounds first.
class RangeControl : public TypedControl<RangeLook> {
public:
    static constexpr bool is(Kind kind) { return kind == Kind::scrollBar || kind == Kind::slider; }

    int min() const { return look().min; }
    int max() const { return look().max; }
    int value() const { return look().value; }
    int smallStep() const { return look().smallStep; }
    int largeStep() const { return look().largeStep; }
    bool vertical() const { return look().vertical; }
    void setMin(int min);
    void setMax(int max);
    void setValue(int value) { put(&Look::value, bounded(value)); }

    /// The user moved it here; calls `change` if that is another value.
    void movedTo(int value);

protected:
    RangeControl(Kind kind, Container& parent, std::wstring_view name, const Rect& place, Look look,
                 int index);

private:
    int bounded(int value) const;
};

class ScrollBar final : public RangeControl {
public:
    ScrollBar(Container& parent, std::wstring_view name, const Rect& place, Look look = {},
              int index = noIndex)
        : RangeControl(Kind::scrollBar, parent, name, place, std::move(look), index) {}
    static constexpr bool is(Kind kind) { return kind == Kind::scrollBar; }
};

class Slider final : public RangeControl {
public:
    Slider(Container& parent, std::wstring_view name, const Rect& place, Look look = {}, int index = noIndex)
        : RangeControl(Kind::slider, parent, name, place, std::move(look), index) {}
    static constexpr bool is(Kind kind) { return kind == Kind::slider; }
};

} // namespace klopfmeise
