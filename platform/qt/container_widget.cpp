#include "platform/qt/container_widget.h"

#include "platform/forms/form_runtime.h"
#include "platform/qt/desk.h"
#include "platform/qt/qt_form_view.h"
#include "platform/qt/qt_text.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>
#include <QWheelEvent>

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
    const QPoint corner = cornerOnForm(*this);
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

void ContainerWidget::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const Canvas canvas{painter, scale_, view_.desk().texts, view_.pictures(), view_.files()};
    for (const QRect& dirty : event->region()) {
        painter.save();
        painter.setClipRect(dirty);
        countDevicePixels(painter, *this, corner_);
        const QRect inWindow = dirty.translated(corner_);
        const Rect area = scale_.twips(inWindow);
        paintGround(canvas, scale_.device(area).adjusted(-1, -1, 1, 1));
        paintDrawn(canvas, container_, area);
        painter.restore();
    }
}

Control* ContainerWidget::controlAt(const QPointF& position) const {
    const QPoint at = twipsAt(position);
    return container_.drawnControlAt(at.x(), at.y());
}

MouseButton buttonOf(const QMouseEvent& event) {
    switch (event.button()) {
    case Qt::RightButton:
        return MouseButton::right;
    case Qt::MiddleButton:
        return MouseButton::middle;
    default:
        return MouseButton::left;
    }
}

void ContainerWidget::mousePressEvent(QMouseEvent* event) {
    const QPoint at = twipsAt(event->position());
    view_.router().mouseDown(container_, at.x(), at.y(), buttonOf(*event));
}

void ContainerWidget::mouseReleaseEvent(QMouseEvent* event) {
    const QPoint at = twipsAt(event->position());
    view_.router().mouseUp(container_, at.x(), at.y(), buttonOf(*event));
}

void ContainerWidget::mouseMoveEvent(QMouseEvent* event) {
    const QPoint at = twipsAt(event->position());
    view_.router().mouseMove(container_, at.x(), at.y());
    const Control* control = container_.drawnControlAt(at.x(), at.y());
    const bool hand =
        control && control->enabled() &&
        (control->pointer() == Pointer::hand || (control->kind() == Kind::picture && control->click()));
    const Qt::CursorShape shape = hand ? Qt::PointingHandCursor : Qt::ArrowCursor;
    if (cursor().shape() != shape)
        setCursor(shape);
}

void ContainerWidget::wheelEvent(QWheelEvent* event) {
    // Over a list of labels it moves the scroll bar beside them. Called and not sent: what the bar has no use
    // for would come back here.
    QObject* bar = findChild<QScrollBar*>({}, Qt::FindDirectChildrenOnly);
    if (bar)
        bar->event(event);
    else
        event->ignore();
}

QPoint cornerOnForm(const QWidget& widget) {
    const auto* container = dynamic_cast<const ContainerWidget*>(widget.parentWidget());
    return container ? container->corner() + widget.pos() : QPoint();
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
