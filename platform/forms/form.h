#pragma once

#include "platform/controls/control.h"
#include "platform/forms/form_view.h"
#include "platform/forms/menu.h"
#include "platform/values/color.h"

#include <memory>

namespace klopfmeise {

class FormRuntime;

enum class FormKind {
    /// 12000 by 9000 twips, inside the backdrop, at the largest zoom the screen allows.
    fullScreen,
    /// Covers the screen and holds the full-screen forms.
    backdrop,
    /// A window of its own over whatever is open.
    window,
    /// As `window`, without a title bar.
    splash,
    /// A window with a menu bar, its own controls docked at the top, and child windows below them.
    frame,
    /// A window inside a frame.
    child,
};

enum class WindowState { normal, maximised };

struct FormLook {
    FormKind kind = FormKind::fullScreen;
    std::wstring caption = L"Klopfmeise";
    int width = 12000;
    int height = 9000;
    /// The ground; of a frame, that behind its child windows.
    Color back = colors::panel;
    /// Name of the drawing behind all controls.
    std::wstring picture = {};
    /// Of a child: the name of its frame.
    std::wstring_view frame = {};
    /// Of a frame: the entries of its menu bar.
    std::vector<MenuItem> menu = {};
    WindowState state = WindowState::normal;
};

/// A screen of the program. Its life is its load-unload life: it is constructed when it is loaded and
/// destroyed when it is unloaded, so that no state of it survives by accident.
class Form : public Container, public Host {
public:
    Form(FormRuntime& runtime, std::wstring_view name, FormLook look);
    ~Form() override;

    /// The name under which other screens know it.
    std::wstring_view name() const { return name_; }
    FormKind kind() const { return look_.kind; }
    FormRuntime& runtime() const { return runtime_; }
    const FormLook& look() const { return look_; }
    int width() const { return look_.width; }
    int height() const { return look_.height; }
    const std::wstring& caption() const { return look_.caption; }
    void setCaption(std::wstring caption);
    WindowState windowState() const { return look_.state; }
    void setWindowState(WindowState state);

    /// Place of the window on the screen, or of a child in its frame, in unzoomed twips; told to the view
    /// only where windows can be placed.
    int left() const { return left_; }
    int top() const { return top_; }
    void moveTo(int left, int top);
    /// Moves the form to the middle of the screen.
    void centre();

    bool visible() const { return visible_; }
    bool enabled() const { return enabled_; }
    void setEnabled(bool enabled);
    bool topMost() const { return topMost_; }
    void setTopMost(bool on);
    /// Shows all pending changes at once, inside a handler too.
    void repaint();

    /// The control that gets the keys; null: the form itself.
    Control* focus() const { return focus_; }
    void setFocus(Control& control) override;
    /// The view tells that the user moved the focus.
    void focusMoved(Control* control) { focus_ = control; }
    /// Of a frame: the child window that gets the keys; null if there is none.
    Form* activeChild() const { return activeChild_; }

    /// A control by name (and index), for screens that prepare another before they show it; null if there is
    /// none.
    Control* find(std::wstring_view name, int index = Control::noIndex);
    template <class T>
    T* find(std::wstring_view name, int index = Control::noIndex) {
        Control* found = find(name, index);
        return found && T::is(found->kind()) ? static_cast<T*>(found) : nullptr;
    }

    /// What assistive technology is told of a typing screen: the character to type next. Empty elsewhere.
    virtual std::wstring spokenTarget() const { return {}; }

    virtual void Form_Load() {}
    virtual void Form_Activate() {}
    virtual void Form_Deactivate() {}
    virtual void Form_Unload() {}
    /// The window has another size or state, which `width`, `height` and `windowState` tell.
    virtual void Form_Resize() {}
    virtual void Form_KeyDown(const KeyDown& /*key*/) {}
    virtual void Form_KeyPress(KeyPress& /*key*/) {}
    virtual void Form_KeyUp() {}
    virtual void Form_MouseMove() {}

    Host& host() override { return *this; }
    Surface* surface() const override { return view_.get(); }
    Files& files() override;
    void controlGone(const Control& control) override;
    FormView* view() const { return view_.get(); }
    /// Ends with the form; whoever calls a handler later asks it first.
    std::weak_ptr<const int> life() const { return life_; }

private:
    friend class FormRuntime;

    FormRuntime& runtime_;
    std::wstring_view name_;
    FormLook look_;
    int left_ = 0;
    int top_ = 0;
    bool visible_ = false;
    bool enabled_ = true;
    bool topMost_ = false;
    bool unloading_ = false;
    bool unloaded_ = false;
    Control* focus_ = nullptr;
    Form* activeChild_ = nullptr;
    std::unique_ptr<FormView> view_;
    std::shared_ptr<const int> life_ = std::make_shared<const int>(0);
};

/// The form on which a control stands.
inline Form& formOf(const Control& control) { return static_cast<Form&>(control.host()); }

} // namespace klopfmeise
