#pragma once

#include "platform/controls/button.h"
#include "platform/controls/checks.h"
#include "platform/controls/events.h"
#include "platform/controls/lists.h"
#include "platform/controls/ranges.h"
#include "platform/controls/text_box.h"
#include "platform/qt/scale.h"

#include <QPointer>
#include <QWidget>

#include <memory>

namespace klopfmeise {

class ContainerWidget;
class QtFormView;
class RichTextBox;

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
    /// Handlers of the keys; null where the control has none.
    const KeyHandlers* keys() const;
    /// The widget as a container of others; null for the rest.
    ContainerWidget* container() const;

protected:
    QtFormView& view() const { return view_; }

private:
    virtual void syncLook(const Scale& scale) = 0;

    QtFormView& view_;
    Control& control_;
    QPointer<QWidget> widget_;
};

std::unique_ptr<ControlView> makeControlView(QtFormView& view, Control& control, QWidget* parent);

// The parts of makeControlView.
std::unique_ptr<ControlView> makePanelView(QtFormView& view, Control& control, QWidget* parent);
std::unique_ptr<ControlView> makeButtonView(QtFormView& view, Button& button, QWidget* parent);
std::unique_ptr<ControlView> makeTextView(QtFormView& view, TextBox& box, QWidget* parent);
std::unique_ptr<ControlView> makeRichTextView(QtFormView& view, RichTextBox& box, QWidget* parent);
std::unique_ptr<ControlView> makeListView(QtFormView& view, ListControl& list, QWidget* parent);
std::unique_ptr<ControlView> makeRangeView(QtFormView& view, RangeControl& range, QWidget* parent);
std::unique_ptr<ControlView> makeCheckView(QtFormView& view, CheckControl& check, QWidget* parent);

} // namespace klopfmeise
