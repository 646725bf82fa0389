#include "platform/qt/form_widget.h"

#include "platform/qt/qt_text.h"

#include <QKeyEvent>
#include <QPainter>

#include <utility>

namespace klopfmeise {

FormWidget::FormWidget(QtFormView& view, Form& form, QWidget* parent)
    : ContainerWidget(view, form, parent)
    , form_(form) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setObjectName(toQt(form.name()));
    setAccessibleName(toQt(form.caption()));
}

bool FormWidget::takeUnusedKey() { return std::exchange(unusedKey_, false); }

void FormWidget::paintGround(const Canvas& canvas, const QRect& dirty) {
    const FormLook& look = form_.look();
    const QRect place = canvas.scale.device({0, 0, look.width, look.height});
    if (look.kind == FormKind::backdrop) {
        canvas.painter.fillRect(dirty, toQt(look.back));
        return;
    }
    if (!place.contains(dirty))
        canvas.painter.fillRect(dirty, toQt(surroundings_));
    canvas.painter.fillRect(dirty & place, toQt(look.back));
    if (!look.picture.empty())
        paintPicture(canvas, place, &form_, {look.picture, false});
}

bool FormWidget::focusNextPrevChild(bool next) {
    for (const QWidget* child : findChildren<QWidget*>())
        if (child->isVisible() && child->isEnabled() && (child->focusPolicy() & Qt::TabFocus) != 0)
            return ContainerWidget::focusNextPrevChild(next);
    return false;
}

void FormWidget::keyPressEvent(QKeyEvent* event) {
    unusedKey_ = true;
    event->accept();
}

void FormWidget::keyReleaseEvent(QKeyEvent* event) {
    unusedKey_ = true;
    event->accept();
}

} // namespace klopfmeise
