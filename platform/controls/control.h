#pragma once

#include "platform/values/geometry.h"
#include "platform/values/place_list.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace klopfmeise {

class Container;
class Form;

enum class Align { left, right, center };
enum class Pointer { normal, hand };

/// A handler of a control; empty where the control has none.
using Handler = std::function<void()>;

/// A key press on its way to a control; a handler can swallow it, so that the control does not get it.
struct KeyPress {
    /// Character code in Windows-1252, 8 for backspace, 13 for Enter.
    int code = 0;
    bool swallowed = false;
};

/// One control of a form: plain data that the form's rules read and set, told to the backend's view at each
/// change. A control registers itself with its container when made and leaves it when destroyed; later made
/// lies above.
class Control {
public:
    static constexpr int noIndex = -1;

    Control(Container& parent, std::wstring_view name, const Rect& place, int index = noIndex);
    virtual ~Control();
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    /// The name in the code; a literal, so that a view of it suffices.
    std::wstring_view name() const { return name_; }
    int index() const { return index_; }
    /// The name with the index of a control array behind it, as in "LblGruppe(3)".
    std::wstring fullName() const;
    Container& parent() const { return parent_; }
    Form& form() const;

    const Rect& place() const { return place_; }
    int left() const { return place_.left; }
    int top() const { return place_.top; }
    int width() const { return place_.width; }
    int height() const { return place_.height; }
    int right() const { return place_.right(); }
    int bottom() const { return place_.bottom(); }
    void setPlace(const Rect& place);
    void setLeft(int left) { setPlace({left, place_.top, place_.width, place_.height}); }
    void setTop(int top) { setPlace({place_.left, top, place_.width, place_.height}); }
    void setWidth(int width) { setPlace({place_.left, place_.top, width, place_.height}); }
    void setHeight(int height) { setPlace({place_.left, place_.top, place_.width, height}); }

    bool visible() const { return visible_; }
    void setVisible(bool visible);
    void show() { setVisible(true); }
    void hide() { setVisible(false); }
    bool enabled() const { return enabled_; }
    void setEnabled(bool enabled);
    const std::wstring& toolTip() const { return toolTip_; }
    Pointer pointer() const { return pointer_; }
    void setPointer(Pointer pointer);

    /// True for controls that a backend shows as a window of its toolkit; the others are painted by their
    /// container.
    virtual bool windowed() const { return true; }
    /// False for drawn controls that the mouse goes through: shapes and lines.
    virtual bool takesMouse() const { return true; }
    /// What assistive technology reads out as the control's name: caption or tool tip.
    virtual std::wstring spokenName() const { return toolTip_; }

    /// Shows pending changes of this control at once, inside a handler too.
    void repaint();
    void setFocus();

    Handler click;
    Handler mouseDown;
    Handler mouseMove;

protected:
    /// Tells the view that the control has to be shown anew.
    void changed();
    void setToolTip(std::wstring text) { toolTip_ = std::move(text); }
    void startHidden() { visible_ = false; }
    void startDisabled() { enabled_ = false; }
    void startWithPointer(Pointer pointer) { pointer_ = pointer; }

private:
    friend class Container;

    Container& parent_;
    std::wstring_view name_;
    int index_;
    std::size_t slot_ = 0;
    Rect place_;
    bool visible_ = true;
    bool enabled_ = true;
    Pointer pointer_ = Pointer::normal;
    std::wstring toolTip_;
};

/// What can hold controls: a form, a frame, a picture box. It knows its controls in the order of their
/// making, which is the order of painting, and keeps the places of all beside them, so that looking for those
/// in an area stays cheap with thousands of cells.
class Container {
public:
    Container() = default;
    virtual ~Container() = default;
    Container(const Container&) = delete;
    Container& operator=(const Container&) = delete;

    virtual Form& ownerForm() = 0;
    /// The frame or picture box that this container is; null for a form.
    virtual Control* asControl() { return nullptr; }

    std::size_t controlCount() const { return controls_.size(); }
    Control& control(std::size_t slot) const { return *controls_[slot]; }

    /// Calls `visit(Control&)` for the visible controls that touch `area` (twips), lowest first.
    template <class Visit>
    void forEachIn(const Rect& area, Visit visit) const {
        places_.forEachIn(area, [&](std::size_t slot) {
            if (controls_[slot]->visible())
                visit(*controls_[slot]);
        });
    }

    /// The uppermost visible drawn control at this point that takes the mouse; null if there is none.
    Control* drawnControlAt(int x, int y) const;

private:
    friend class Control;
    void enter(Control& control);
    void leave(Control& control);
    void moved(const Control& control);

    std::vector<Control*> controls_;
    /// What each control covers on the screen, its border and a line's width included.
    PlaceList places_;
};

} // namespace klopfmeise
