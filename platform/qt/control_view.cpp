#include "platform/qt/control_view.h"

#include "platform/controls/rich_text_box.h"
#include "platform/qt/container_widget.h"
#include "platform/qt/qt_form_view.h"
#include "platform/qt/qt_text.h"

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
    const QWidget* parent = widget_->parentWidget();
    const QPoint corner = parent->isWindow() ? QPoint() : parent->mapTo(parent->window(), QPoint());
    widget_->setGeometry(place.translated(-corner));
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

const KeyHandlers* ControlView::keys() const {
    const KeyHandlers* keys = nullptr;
    if (const auto* box = dynamic_cast<const TextBox*>(&control_))
        keys = &box->keys;
    else if (const auto* panel = dynamic_cast<const PictureBox*>(&control_))
        keys = &panel->keys;
    return keys && (keys->down || keys->press || keys->up) ? keys : nullptr;
}

ContainerWidget* ControlView::container() const { return dynamic_cast<ContainerWidget*>(widget_.data()); }

std::unique_ptr<ControlView> makeControlView(QtFormView& view, Control& control, QWidget* parent) {
    if (auto* button = dynamic_cast<Button*>(&control))
        return makeButtonView(view, *button, parent);
    if (auto* box = dynamic_cast<TextBox*>(&control))
        return makeTextView(view, *box, parent);
    if (auto* box = dynamic_cast<RichTextBox*>(&control))
        return makeRichTextView(view, *box, parent);
    if (auto* list = dynamic_cast<ListControl*>(&control))
        return makeListView(view, *list, parent);
    if (auto* range = dynamic_cast<RangeControl*>(&control))
        return makeRangeView(view, *range, parent);
    if (auto* check = dynamic_cast<CheckControl*>(&control))
        return makeCheckView(view, *check, parent);
    return makePanelView(view, control, parent);
}

} // namespace klopfmeise
