#pragma once

#include "platform/controls/control.h"
#include "platform/forms/form_view.h"
#include "platform/values/color.h"

#include <memory>

namespace klopfmeise {

class FormRuntime;
class Timer;

enum class FormKind {
    /// 12000 by 9000 twips, inside the backdrop, at the largest zoom the screen allows.
    fullScreen,
    /// Covers the screen and holds the full-screen forms.
    backdrop,
    /// A window of its own over whatever is open.
    window,
    /// As `window`, without a title bar.
    splash,
};

struct FormLook {
    FormKind kind = FormKind::fullScreen;
    std::wstring caption = L"Klopfmeise";
    int width = 12000;
    int height = 9000;
    Color back = colors::panel;
    /// Name of the drawing behind all controls.
    std::wstring picture = {};
};

/// A screen of the program. Its life is its load-unload life: it is constructed when it is loaded and
/// destroyed when it is unloaded, so that no state of it survives by accident.
class Form : public Container {
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

    /// Place of the window on the screen, in unzoomed twips; told to the view only where windows can be
    /// placed.
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
    void setFocus(Control& control);
    /// The view tells that the user moved the focus.
    void focusMoved(Control* control) { focus_ = control; }

    /// A control by name (and index), for screens that prepare another before they show it; null if there is
    /// none.
    Control* find(std::wstring_view name, int index = Control::noIndex);
    template <class T>
    T* find(std::wstring_view name, int index = Control::noIndex) {
        return dynamic_cast<T*>(find(name, index));
    }

    /// What assistive technology is told of a typing screen: the character to type next. Empty elsewhere.
    virtual std::wstring spokenTarget() const { return {}; }

    virtual void Form_Load() {}
    virtual void Form_Activate() {}
    virtual void Form_Deactivate() {}
    virtual void Form_Unload() {}
    virtual void Form_KeyDown(int /*keyCode*/) {}
    virtual void Form_KeyPress(int /*characterCode*/) {}
    virtual void Form_KeyUp() {}
    virtual void Form_MouseMove() {}

    Form& ownerForm() override { return *this; }
    FormView* view() const { return view_.get(); }

private:
    friend class FormRuntime;
    friend class Timer;

    FormRuntime& runtime_;
    std::wstring_view name_;
    FormLook look_;
    int left_ = 0;
    int top_ = 0;
    bool visible_ = false;
    bool enabled_ = true;
    bool topMost_ = false;
    bool unloaded_ = false;
    Control* focus_ = nullptr;
    std::unique_ptr<FormView> view_;
};

} // namespace klopfmeise
