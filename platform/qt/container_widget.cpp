#include "platform/qt/container_widget.h"

#include "platform/forms/form_runtime.h"
#include "platform/qt/desk.h"
#include "platform/qt/qt_form_view.h"
#include "platform/qt/qt_text.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QToolTip>

#include <utility>

namespace klopfmeise {

ContainerWidget::ContainerWidget(QtFormView& view, Container& container, QWidget* parent)
    : QWidget(parent)
    , view_(view)
    , container_(container) {
    setMouseTracking(true);
    setFocusPolicy(Qt::NoFocus);
    // Accents are composed by the program itself.
    setAttribute(Qt::WA_InputMethodEnabled, false);
}

void ContainerWidget::setScale(const Scale& scale) {
    const QPoint corner = isWindow() ? QPoint() : mapTo(window(), QPoint());
    if (scale == scale_ && corner == corner_)
        return;
    scale_ = scale;
    corner_ = corner;
    update();
}

QRect ContainerWidget::logical(const Rect& area) const {
    return scale_.logical(scale_.device(area), true).translated(-corner_) & rect();
}

void ContainerWidget::addDirty(const Rect& area) {
    if (!isVisible())
        return;
    dirty_.add(logical(area));
}

void ContainerWidget::flushDirty() {
    if (!dirty_.empty())
        update(dirty_.take());
}

void ContainerWidget::paintNow(const Rect& area) {
    if (!isVisible())
        return;
    dirty_.add(logical(area));
    if (!dirty_.empty())
        repaint(dirty_.take());
}

void ContainerWidget::forget(const Control& control) {
    if (pressed_ == &control)
        pressed_ = nullptr;
}

void ContainerWidget::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const Canvas canvas{painter, scale_, view_.desk().texts, view_.pictures(), view_.files()};
    for (const QRect& dirty : event->region()) {
        painter.save();
        painter.setClipRect(dirty);
        countDevicePixels(painter, *this);
        const QRect inWindow = dirty.translated(corner_);
        const Rect area = scale_.twips(inWindow);
        paintGround(canvas, scale_.device(area).adjusted(-1, -1, 1, 1));
        paintDrawn(canvas, container_, area);
        painter.restore();
    }
}

Control* ContainerWidget::controlAt(const QPointF& position) const {
    const QPoint at = scale_.twipsAt(position + corner_);
    return container_.drawnControlAt(at.x(), at.y());
}

void ContainerWidget::react(const Control& control, Handler Control::*handler) {
    if (control.enabled() && control.*handler)
        view_.react(control.*handler);
}

void ContainerWidget::press(Control& control) {
    react(control, &Control::mouseDown);
    react(control, &Control::click);
}

void ContainerWidget::mousePressEvent(QMouseEvent* event) {
    Control* control = controlAt(event->position());
    pressed_ = event->button() == Qt::LeftButton ? control : nullptr;
    if (control)
        react(*control, &Control::mouseDown);
}

void ContainerWidget::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    Control* pressed = std::exchange(pressed_, nullptr);
    if (pressed && controlAt(event->position()) == pressed)
        react(*pressed, &Control::click);
}

void ContainerWidget::mouseMoveEvent(QMouseEvent* event) {
    const Control* control = controlAt(event->position());
    bool hand = false;
    if (control && control->enabled()) {
        const bool picture = dynamic_cast<const Picture*>(control) && control->click;
        hand = picture || control->pointer() == Pointer::hand;
        react(*control, &Control::mouseMove);
    } else if (!control) {
        if (auto handler = groundMouseMove())
            view_.react(std::move(handler));
    }
    const Qt::CursorShape shape = hand ? Qt::PointingHandCursor : Qt::ArrowCursor;
    if (cursor().shape() != shape)
        setCursor(shape);
}

bool ContainerWidget::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto& help = static_cast<const QHelpEvent&>(*event);
    const Control* control = controlAt(help.pos());
    QString text;
    if (control)
        text = toQt(control->toolTip());
    else if (const Control* self = container_.asControl())
        text = toQt(self->toolTip());
    if (text.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(help.globalPos(), text.toHtmlEscaped(), this,
                           control ? logical(control->place()) : rect());
    return true;
}

} // namespace klopfmeise
