#include "platform/qt/control_view.h"

#include "platform/controls/visit.h"
#include "platform/qt/container_widget.h"
#include "platform/qt/desk.h"
#include "platform/qt/qt_form_view.h"
#include "platform/qt/qt_text.h"

#include <utility>

namespace klopfmeise {

ControlView::ControlView(QtFormView& view, Control& control, QWidget* widget)
    : view_(view)
    , control_(control)
    , widget_(widget) {
    widget_->setObjectName(toQt(control.fullName()));
    widget_->setContextMenuPolicy(Qt::NoContextMenu);
    widget_->hide();
}

ControlView::~ControlView() { delete widget_.data(); }

void ControlView::sync(const Scale& scale) {
    if (!widget_)
        return;
    const bool panel = container() != nullptr;
    const QRect place = scale.logical(scale.device(control_.place()), panel);
    const auto& parent = static_cast<const ContainerWidget&>(*widget_->parentWidget());
    widget_->setGeometry(place.translated(-parent.corner()));
    widget_->setEnabled(control_.enabled());
    const QString name = toQt(control_.spokenName());
    if (widget_->accessibleName() != name)
        widget_->setAccessibleName(name);
    const QString tip = toQt(control_.toolTip());
    if (!panel && widget_->toolTip() != tip)
        widget_->setToolTip(tip);
    syncLook(scale);
    widget_->setVisible(control_.visible());
}

void ControlView::tell(std::function<void()> model) {
    if (std::exchange(told_, true))
        return;
    view_.desk().queue.line().react([this, life = view_.form().life(), model = std::move(model)] {
        if (life.expired())
            return;
        told_ = false;
        view_.router().tell(view_.form(), model);
    });
}

ContainerWidget* ControlView::container() const { return dynamic_cast<ContainerWidget*>(widget_.data()); }

std::unique_ptr<ControlView> makeControlView(QtFormView& view, Control& control, QWidget* parent) {
    using Made = std::unique_ptr<ControlView>;
    // Each kind by itself, so that a new one is not forgotten.
    return visit(control,
                 Overloaded{[](Label&) { return Made(); }, [](Picture&) { return Made(); },
                            [](Shape&) { return Made(); }, [](Line&) { return Made(); },
                            [&](Frame& frame) { return makeFrameView(view, frame, parent); },
                            [&](PictureBox& box) { return makeBoxView(view, box, parent); },
                            [&](Button& button) { return makeButtonView(view, button, parent); },
                            [&](TextBox& box) { return makeTextView(view, box, parent); },
                            [&](RichTextBox& box) { return makeRichTextView(view, box, parent); },
                            [&](FileList& list) { return makeListView(view, list, parent); },
                            [&](FolderList& list) { return makeListView(view, list, parent); },
                            [&](ScrollBar& bar) { return makeScrollBarView(view, bar, parent); },
                            [&](Slider& slider) { return makeSliderView(view, slider, parent); },
                            [&](OptionButton& option) { return makeOptionView(view, option, parent); },
                            [&](CheckBox& box) { return makeCheckBoxView(view, box, parent); }});
}

} // namespace klopfmeise
