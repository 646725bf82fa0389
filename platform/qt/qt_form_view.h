#pragma once

#include "platform/forms/form.h"
#include "platform/input/input_router.h"
#include "platform/qt/control_view.h"
#include "platform/qt/form_widget.h"
#include "platform/qt/picture_cache.h"

#include <QPointer>

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace klopfmeise {

class ChildWindow;
class FrameWindow;

struct Desk;

/// What is on the screen of one form. Full-screen forms and the backdrop are children of the stage, child
/// windows lie in their frame; the others are windows.
class QtFormView final : public FormView {
public:
    QtFormView(Form& form, Desk& desk);
    ~QtFormView() override;

    void controlRemoved(Control& control) override;
    void controlChanged(Control& control) override;
    void areaDirty(Container& container, const Rect& area) override;
    void paintNow(Container& container, const Rect& area) override;
    void formChanged() override;
    void show() override;
    void hide() override;
    void activate() override;
    void takeFocus(Control& control) override;

    /// Shows the window of a form that has one of its own, unless it is shown already.
    void openWindow();

    Form& form() const { return form_; }
    Desk& desk() const { return desk_; }
    FormWidget& widget() const { return *widget_; }
    HeldPictures& pictures() { return pictures_; }
    Files& files() const;
    InputRouter& router() const;
    bool onStage() const;
    /// Gives every widget its place at this scale.
    void layout(const Scale& scale);
    /// Size and place of a form that is a window of its own or lies in a frame.
    void layoutWindow();
    /// Brings the windowed controls that changed up to date.
    void syncStale();
    /// The view of the control that `widget` is or lies in; null for the form itself.
    ControlView* controlView(const QWidget* widget) const;
    ContainerWidget* containerWidget(const Container& container) const;
    /// Brings the focus back into the form if it was lost to another one of the same window.
    void keepFocus();
    bool canMoveFocus(const QWidget& from) const;

private:
    /// Makes the widgets of the visible windowed controls; those of hidden ones are made when they first
    /// show.
    void build(Container& container, QWidget* parent);
    void make(Control& control, QWidget* parent);
    /// Puts the widgets into the order in which their controls were made, on the screen and for the Tab key.
    void arrange();
    QWidget* parentOfWidget();
    /// The window over which one of this form opens; null if there is none.
    const QWidget* windowBelow() const;
    Scale windowScale() const;
    QWidget* focusTarget() const;
    Scale scaleOf(const Container& container) const;
    void flushLater();
    void flush();

    Form& form_;
    Desk& desk_;
    HeldPictures pictures_;
    QPointer<FrameWindow> frame_;
    QPointer<ChildWindow> child_;
    QPointer<FormWidget> widget_;
    /// In the order of the controls, a container before what it holds.
    std::vector<std::unique_ptr<ControlView>> controls_;
    std::map<const Container*, ContainerWidget*> containers_;
    std::vector<Control*> stale_;
    /// Where a child was put last.
    QPoint placed_;
    bool flushPosted_ = false;
};

} // namespace klopfmeise
