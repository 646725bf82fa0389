#pragma once

#include "platform/controls/control.h"

#include <type_traits>
#include <utility>

namespace klopfmeise {

/// A control with the look it was declared with. All its properties live in that look and are set in one way,
/// `put`; what a look does not tell (a tip, a handler) the control does not have.
template <class LookType>
class TypedControl : public Control {
public:
    using Look = LookType;

    const std::wstring& toolTip() const final {
        if constexpr (requires(const Look& look) { look.toolTip; })
            return look_.toolTip;
        else
            return nothing;
    }
    Pointer pointer() const final {
        if constexpr (requires(const Look& look) { look.pointer; })
            return look_.pointer;
        else
            return Pointer::normal;
    }
    const std::wstring& spokenName() const final {
        if constexpr (requires(const Look& look) { look.caption; })
            if (!look_.caption.empty())
                return look_.caption;
        if constexpr (requires(const Look& look) { look.spoken; })
            if (toolTip().empty())
                return look_.spoken;
        return toolTip();
    }
    const Handler& click() const final {
        if constexpr (requires(const Look& look) { look.click; })
            return look_.click;
        else
            return noHandler;
    }
    const MouseHandler& mouseDown() const final {
        if constexpr (requires(const Look& look) { look.mouseDown; })
            return look_.mouseDown;
        else
            return noMouseHandler;
    }
    const Handler& mouseMove() const final {
        if constexpr (requires(const Look& look) { look.mouseMove; })
            return look_.mouseMove;
        else
            return noHandler;
    }
    const KeyHandlers& keys() const final {
        if constexpr (requires(const Look& look) { look.keys; })
            return look_.keys;
        else
            return noKeys;
    }

protected:
    TypedControl(Kind kind, Container& parent, std::wstring_view name, const Rect& place, Look look,
                 int index)
        : Control(kind, parent, name, place, index, stateOf(look))
        , look_(std::move(look)) {}

    const Look& look() const { return look_; }
    /// Gives a property another value and tells the surface; false, and nothing told, if it has it already.
    template <class Value>
    bool put(Value Look::*property, std::type_identity_t<Value> value) {
        if (look_.*property == value)
            return false;
        look_.*property = std::move(value);
        changed();
        return true;
    }
    /// As `put`, for what the surface shows already.
    template <class Value>
    bool take(Value Look::*property, std::type_identity_t<Value> value) {
        if (look_.*property == value)
            return false;
        look_.*property = std::move(value);
        return true;
    }

private:
    static State stateOf(const Look& look) {
        State state;
        state.visible = look.visible;
        if constexpr (requires { look.enabled; })
            state.enabled = look.enabled;
        return state;
    }

    static inline const std::wstring nothing;
    static inline const Handler noHandler;
    static inline const MouseHandler noMouseHandler;
    static inline const KeyHandlers noKeys;

    Look look_;
};

} // namespace klopfmeise
