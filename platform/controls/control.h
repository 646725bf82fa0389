#pragma once

#include "platform/controls/events.h"
#include "platform/controls/surface.h"
#include "platform/values/geometry.h"
#include "platform/values/place_list.h"

#include <string>
#include <string_view>
#include <vector>

namespace klopfmeise {

enum class Align { left, right, center };
enum class Pointer { normal, hand };

/// What a control is. A backend decides by it, in a switch or through `visit`, and by nothing else.
enum class Kind {
    label,
    picture,
    shape,
    line,
    frame,
    pictureBox,
    button,
    textBox,
    richTextBox,
    fileList,
    folderList,
    scrollBar,
    slider,
    optionButton,
    checkBox
};

/// True for controls that a backend shows as a window of its toolkit; the others are painted by their
/// container.
constexpr bool isWindowed(Kind kind) { return kind >= Kind::frame; }
/// False for drawn controls that the mouse goes through.
constexpr bool takesMouse(Kind kind) { return kind != Kind::shape && kind != Kind::line; }

/// One control of a form: plain data that the form's rules read and set, told to the form's surface at each
/// change. A control registers itself with its container when made and leaves it when destroyed; later made
/// lies above and comes later in the chain of the Tab key. What the program sets calls no handler; what the
/// user does comes in through operations of its own and calls them.
class Control {
public:
    static constexpr int noIndex = -1;

    virtual ~Control();
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    Kind kind() const { return kind_; }
    /// Each class of controls tells which kinds are its own; this one holds all.
    static constexpr bool is(Kind) { return true; }
    bool windowed() const { return isWindowed(kind_); }
    /// The name in the code; a literal, so that a view of it suffices.
    std::wstring_view name() const { return name_; }
    int index() const { return index_; }
    /// The name with the index of a control array behind it, as in "LblGruppe(3)".
    std::wstring fullName() const;
    Container& parent() const { return parent_; }
    Host& host() const;
    /// What this control holds, where it is a frame or picture box; else null.
    virtual Container* asContainer() { return nullptr; }

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
    /// True if the user can get at it: neither it nor a container of it is hidden or disabled.
    bool reachable() const;

    virtual const std::wstring& toolTip() const = 0;
    virtual Pointer pointer() const = 0;
    /// What assistive technology reads out as the control's name.
    virtual const std::wstring& spokenName() const = 0;
    virtual const Handler& click() const = 0;
    virtual const MouseHandler& mouseDown() const = 0;
    virtual const Handler& mouseMove() const = 0;
    /// Empty for controls that leave the keys to their widget and to the form.
    virtual const KeyHandlers& keys() const = 0;

    /// Shows pending changes of this control at once, inside a handler too.
    void repaint();
    void setFocus();

protected:
    /// How a control stands when it is made.
    struct State {
        bool visible = true;
        bool enabled = true;
    };

    Control(Kind kind, Container& parent, std::wstring_view name, const Rect& place, int index, State state);
    /// Tells the surface that the control has to be shown anew.
    void changed();

private:
    friend class Container;

    Container& parent_;
    std::wstring_view name_;
    std::size_t slot_ = 0;
    Rect place_;
    int index_;
    Kind kind_;
    bool visible_;
    bool enabled_;
};

/// What can hold controls: a form, a frame, a picture box. It knows its controls in the order of their
/// making, which is the order of painting and of the Tab key, and keeps the places of all beside them, so
/// that looking for those in an area stays cheap with thousands of cells.
class Container {
public:
    Container() = default;
    virtual ~Container() = default;
    Container(const Container&) = delete;
    Container& operator=(const Container&) = delete;

    virtual Host& host() = 0;
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
