// How the window of a form comes to the screen, to the front, and to its size and place.

#include "platform/qt/qt_form_view.h"

#include "platform/forms/form_runtime.h"
#include "platform/qt/desk.h"
#include "platform/qt/frame_window.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/stage.h"

#include <QApplication>
#include <QMdiArea>
#include <QTimer>
#include <QWindow>

#include <algorithm>
#include <chrono>

namespace klopfmeise {

namespace {
using std::chrono_literals::operator""ms;
/// A start that takes longer shows its splash.
constexpr auto splashDelay = 300ms;
} // namespace

void QtFormView::show() {
    if (onStage()) {
        desk_.stage->raise(*this);
        return;
    }
    if (form_.kind() != FormKind::splash) {
        openWindow();
        return;
    }
    // Start-up is mostly through before the splash could be seen; it opens where something has to be waited
    // for.
    QTimer::singleShot(splashDelay, widget_, [this] {
        if (form_.visible())
            openWindow();
    });
}

void QtFormView::openWindow() {
    if (onStage() || widget_->isVisible())
        return;
    if (child_) {
        child_->setWindowTitle(toQt(form_.caption()));
        auto& frame = static_cast<FrameWindow&>(*child_->window());
        frame.area().addSubWindow(child_);
        layoutWindow();
        focusTarget()->setFocus(Qt::OtherFocusReason);
        child_->show();
        return;
    }
    QWidget* window = frame_ ? static_cast<QWidget*>(frame_) : widget_;
    window->setWindowTitle(toQt(form_.caption()));
    window->winId();
    desk_.queue.watch(*window->windowHandle());
    if (const QWidget* below = windowBelow())
        window->windowHandle()->setTransientParent(below->windowHandle());
    if (frame_) {
        frame_->takeState();
        return;
    }
    layoutWindow();
    focusTarget()->setFocus(Qt::OtherFocusReason);
    widget_->show();
}

const QWidget* QtFormView::windowBelow() const {
    for (const QWidget* window : QApplication::topLevelWidgets())
        if (window != frame_ && window->isVisible() && dynamic_cast<const FrameWindow*>(window))
            return window;
    return desk_.stage->shownWindow();
}

void QtFormView::hide() {
    if (onStage())
        desk_.stage->leave(*this);
    if (child_)
        child_->hide();
    if (frame_)
        frame_->hide();
    widget_->hide();
}

void QtFormView::activate() {
    syncStale();
    if (onStage())
        desk_.stage->raise(*this);
    else if (!widget_->isVisible())
        return;
    else if (child_)
        static_cast<FrameWindow&>(*child_->window()).area().setActiveSubWindow(child_);
    else
        widget_->window()->raise();
    // The keys of a frame go to its child window.
    if (!form_.activeChild())
        focusTarget()->setFocus(Qt::OtherFocusReason);
    // A child that takes the place of another leaves a window that lies over their frame where it is.
    const Form* active = desk_.runtime->active();
    if ((active == &form_ || active == form_.activeChild()) &&
        widget_->window()->windowHandle() != QGuiApplication::focusWindow())
        widget_->activateWindow();
}

Scale QtFormView::windowScale() const {
    const Rect form{0, 0, form_.width(), form_.height()};
    Scale scale;
    scale.ratio = desk_.stage->ratio();
    scale.zoom = desk_.stage->windowZoom(form);
    if (!child_)
        return scale;
    // What a child has beside it in the frame: its distance to the corner, its rim and its title.
    const QSize room = static_cast<const FrameWindow&>(*child_->window()).area().viewport()->size();
    const QMargins margins = child_->contentsMargins();
    const QSize rim(margins.left() + margins.right(), margins.top() + margins.bottom());
    const Rect whole{0, 0, form_.left() + form.width, form_.top() + form.height};
    if (room.width() > rim.width() && room.height() > rim.height())
        scale.zoom = std::min(scale.zoom, zoomToFit(whole, (room - rim) * scale.ratio));
    return scale;
}

void QtFormView::layoutWindow() {
    if (frame_) {
        frame_->layoutForms();
        return;
    }
    const Rect form{0, 0, form_.width(), form_.height()};
    const Scale scale = windowScale();
    const QRect size = scale.logical(scale.device(form), true);
    widget_->setFixedSize(size.size());
    const QRect placed =
        scale.logical(scale.device({form_.left(), form_.top(), form.width, form.height}), false);
    if (child_) {
        child_->setFixedSize(child_->sizeHint());
        // Where the user has moved it, it stays.
        if (!child_->isVisible() || child_->pos() == placed_)
            child_->move(placed.topLeft());
        placed_ = placed.topLeft();
        layout(scale);
        return;
    }
    const QRect screen = desk_.stage->screen();
    QPoint corner = screen.center() - QPoint(size.width() / 2, size.height() / 2);
    if (form_.left() != 0 || form_.top() != 0) {
        corner = screen.topLeft() + placed.topLeft();
        // A window never leaves the screen.
        corner.setX(
            std::clamp(corner.x(), screen.left(), std::max(screen.left(), screen.right() - size.width())));
        corner.setY(
            std::clamp(corner.y(), screen.top(), std::max(screen.top(), screen.bottom() - size.height())));
    }
    // Where the user has moved it, it stays.
    if (!widget_->isVisible() || placed_ != placed.topLeft())
        widget_->move(corner);
    placed_ = placed.topLeft();
    layout(scale);
}

} // namespace klopfmeise
