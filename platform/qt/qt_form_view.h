#pragma once

#include "platform/forms/form.h"
#include "platform/qt/control_view.h"
#include "platform/qt/form_widget.h"
#include "platform/qt/picture_cache.h"

#include <QPointer>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

class QKeyEvent;
class QWindow;

namespace klopfmeise {

struct Desk;
class Files;

/// What is on the screen of one form. Full-screen forms and the backdrop are children of the stage; the
/// others are windows.
class QtFormView final : public FormView {
public:
    QtFormView(Form& form, Desk& desk);
    ~QtFormView() override;

    void controlAdded(Control& control) override;
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
    bool onStage() const;
    /// Has a handler of the form called once the input being served is through.
    void react(std::function<void()> handler);
    /// Ends with the view; whoever calls a handler asks it before touching the view again.
    std::weak_ptr<const int> life() const { return life_; }
    /// Gives every widget its place at this scale.
    void layout(const Scale& scale);
    /// Size and place of a form that is a window of its own.
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
    QWidget* focusTarget() const;
    Scale scaleOf(const Container& container) const;
    void flushLater();
    void flush();

    Form& form_;
    Desk& desk_;
    HeldPictures pictures_;
    std::shared_ptr<const int> life_ = std::make_shared<const int>(0);
    QPointer<FormWidget> widget_;
    /// In the order of the controls, a container before what it holds.
    std::vector<std::unique_ptr<ControlView>> controls_;
    std::map<const Container*, ContainerWidget*> containers_;
    std::vector<Control*> stale_;
    bool flushPosted_ = false;
};

} // namespace klopfmeise
