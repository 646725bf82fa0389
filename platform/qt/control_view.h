#pragma once

#include "platform/controls/control.h"
#include "platform/qt/scale.h"

#include <QPointer>
#include <QWidget>

#include <functional>
#include <memory>

namespace klopfmeise {

class Button;
class CheckBox;
class ContainerWidget;
class Frame;
class ListControl;
class OptionButton;
class PictureBox;
class QtFormView;
class RichTextBox;
class ScrollBar;
class Slider;
class TextBox;

/// The widget of one windowed control. The model is what counts: sync() brings the widget to it, and what the
/// user does to the widget goes into the model as a reaction of the form.
class ControlView {
public:
    ControlView(QtFormView& view, Control& control, QWidget* widget);
    virtual ~ControlView();
    ControlView(const ControlView&) = delete;
    ControlView& operator=(const ControlView&) = delete;

    Control& control() const { return control_; }
    QWidget* widget() const { return widget_; }
    /// `scale` is that of the control's container.
    void sync(const Scale& scale);
    /// The widget as a container of others; null for the rest.
    ContainerWidget* container() const;

protected:
    QtFormView& view() const { return view_; }
    /// Has the model told what the user did, behind the input that is being served; told of several times by
    /// the widget meanwhile, it is told once, by the widget's last state.
    void tell(std::function<void()> model);

private:
    virtual void syncLook(const Scale& scale) = 0;

    QtFormView& view_;
    Control& control_;
    QPointer<QWidget> widget_;
    bool told_ = false;
};

/// Null for a drawn control.
std::unique_ptr<ControlView> makeControlView(QtFormView& view, Control& control, QWidget* parent);

// The parts of makeControlView.
std::unique_ptr<ControlView> makeFrameView(QtFormView& view, Frame& frame, QWidget* parent);
std::unique_ptr<ControlView> makeBoxView(QtFormView& view, PictureBox& box, QWidget* parent);
std::unique_ptr<ControlView> makeButtonView(QtFormView& view, Button& button, QWidget* parent);
std::unique_ptr<ControlView> makeTextView(QtFormView& view, TextBox& box, QWidget* parent);
std::unique_ptr<ControlView> makeRichTextView(QtFormView& view, RichTextBox& box, QWidget* parent);
std::unique_ptr<ControlView> makeListView(QtFormView& view, ListControl& list, QWidget* parent);
std::unique_ptr<ControlView> makeScrollBarView(QtFormView& view, ScrollBar& bar, QWidget* parent);
std::unique_ptr<ControlView> makeSliderView(QtFormView& view, Slider& slider, QWidget* parent);
std::unique_ptr<ControlView> makeOptionView(QtFormView& view, OptionButton& option, QWidget* parent);
std::unique_ptr<ControlView> makeCheckBoxView(QtFormView& view, CheckBox& box, QWidget* parent);

} // namespace klopfmeise
