#include "platform/qt/qt_form_view.h"

#include "platform/forms/form_runtime.h"
#include "platform/qt/desk.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/stage.h"

#include <QGuiApplication>
#include <QWindow>

#include <algorithm>
#include <utility>

namespace klopfmeise {

QtFormView::QtFormView(Form& form, Desk& desk)
    : form_(form)
    , desk_(desk)
    , pictures_(desk.pictures)
    , widget_(new FormWidget(*this, form, onStage() ? desk.stage->window() : nullptr)) {
    if (form.kind() == FormKind::fullScreen && !form.look().picture.empty()) {
        Scale scale;
        scale.zoom = desk.stage->zoom();
        scale.ratio = desk.stage->ratio();
        desk.pictures.prepare(form.look().picture, scale.device({0, 0, form.width(), form.height()}).size());
    }
    containers_[&form_] = widget_;
    build(form_, widget_);
    if (onStage())
        return;
    Qt::WindowFlags flags = Qt::Dialog | Qt::CustomizeWindowHint | Qt::MSWindowsFixedSizeDialogHint;
    if (form.kind() == FormKind::splash)
        flags |= Qt::FramelessWindowHint;
    else
        flags |= Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
    if (form.topMost())
        flags |= Qt::WindowStaysOnTopHint;
    widget_->setWindowFlags(flags);
}

QtFormView::~QtFormView() {
    if (onStage())
        desk_.stage->leave(*this);
    controls_.clear();
    delete widget_.data();
    pictures_.clear();
}

bool QtFormView::onStage() const {
    return form_.kind() == FormKind::fullScreen || form_.kind() == FormKind::backdrop;
}

Files& QtFormView::files() const { return desk_.runtime->services().files; }

void QtFormView::build(Container& container, QWidget* parent) {
    for (std::size_t slot = 0; slot < container.controlCount(); ++slot)
        if (Control& control = container.control(slot); control.windowed() && control.visible())
            make(control, parent);
}

void QtFormView::make(Control& control, QWidget* parent) {
    auto view = makeControlView(*this, control, parent);
    if (!view)
        return;
    QWidget* widget = view->widget();
    ContainerWidget* inner = view->container();
    controls_.push_back(std::move(view));
    if (inner) {
        containers_[&inner->container()] = inner;
        build(inner->container(), widget);
    }
}

void QtFormView::react(std::function<void()> handler) {
    desk_.queue.react([life = life(), this, handler = std::move(handler)] {
        if (!life.expired() && form_.enabled())
            desk_.runtime->dispatch(form_, handler);
    });
}

void QtFormView::controlAdded(Control& control) {
    if (control.windowed())
        controlChanged(control);
}

void QtFormView::controlRemoved(Control& control) {
    std::erase(stale_, &control);
    std::erase_if(controls_, [&](const auto& view) { return &view->control() == &control; });
    if (ContainerWidget* parent = containerWidget(control.parent())) {
        parent->forget(control);
        parent->addDirty(control.place().grown(2 * twipsPerPixel));
        flushLater();
    }
    pictures_.forget(&control);
}

void QtFormView::controlChanged(Control& control) {
    if (std::ranges::find(stale_, &control) == stale_.end())
        stale_.push_back(&control);
    flushLater();
}

void QtFormView::areaDirty(Container& container, const Rect& area) {
    if (ContainerWidget* widget = containerWidget(container)) {
        widget->addDirty(area);
        flushLater();
    }
}

void QtFormView::paintNow(Container& container, const Rect& area) {
    syncStale();
    for (const auto& [inner, widget] : containers_)
        if (inner != &container)
            widget->paintNow({});
    if (ContainerWidget* widget = containerWidget(container))
        widget->paintNow(area);
}

void QtFormView::formChanged() {
    const QString title = toQt(form_.caption());
    if (widget_->accessibleName() != title)
        widget_->setAccessibleName(title);
    if (onStage()) {
        desk_.stage->refresh();
        return;
    }
    if (widget_->windowTitle() != title)
        widget_->setWindowTitle(title);
    if (QWindow* window = widget_->windowHandle())
        window->setFlag(Qt::WindowStaysOnTopHint, form_.topMost());
    if (widget_->isVisible())
        layoutWindow();
}

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
    QMetaObject::invokeMethod(
        widget_,
        [this] {
            if (form_.visible())
                openWindow();
        },
        Qt::QueuedConnection);
}

void QtFormView::openWindow() {
    if (onStage() || widget_->isVisible())
        return;
    widget_->setWindowTitle(toQt(form_.caption()));
    widget_->winId();
    QWindow* window = widget_->windowHandle();
    desk_.queue.watch(*window);
    if (QWidget* stage = desk_.stage->shownWindow())
        window->setTransientParent(stage->windowHandle());
    layoutWindow();
    focusTarget()->setFocus(Qt::OtherFocusReason);
    widget_->show();
}

void QtFormView::hide() {
    if (onStage())
        desk_.stage->leave(*this);
    widget_->hide();
}

void QtFormView::activate() {
    syncStale();
    if (onStage())
        desk_.stage->raise(*this);
    else if (widget_->isVisible())
        widget_->raise();
    else
        return;
    focusTarget()->setFocus(Qt::OtherFocusReason);
    if (widget_->window()->windowHandle() != QGuiApplication::focusWindow())
        widget_->activateWindow();
}

QWidget* QtFormView::focusTarget() const {
    const auto view =
        std::ranges::find_if(controls_, [&](const auto& v) { return &v->control() == form_.focus(); });
    return view == controls_.end() ? widget_.data() : (*view)->widget();
}

void QtFormView::keepFocus() {
    const QWidget* focused = widget_->window()->focusWidget();
    if (!focused || (focused != widget_ && !widget_->isAncestorOf(focused)))
        focusTarget()->setFocus(Qt::OtherFocusReason);
}

void QtFormView::takeFocus(Control& control) {
    syncStale();
    for (const auto& view : controls_)
        if (&view->control() == &control)
            view->widget()->setFocus(Qt::OtherFocusReason);
}

Scale QtFormView::scaleOf(const Container& container) const {
    ContainerWidget* widget = containerWidget(container);
    return widget ? widget->scale() : widget_->scale();
}

void QtFormView::layout(const Scale& scale) {
    widget_->setScale(scale);
    for (const auto& view : controls_)
        view->sync(scaleOf(view->control().parent()));
    stale_.clear();
    widget_->update();
}

void QtFormView::layoutWindow() {
    const Rect form{0, 0, form_.width(), form_.height()};
    const Stage& stage = *desk_.stage;
    Scale scale;
    scale.ratio = stage.ratio();
    scale.zoom = stage.windowZoom(form);
    const QRect size = scale.logical(scale.device(form), true);
    widget_->setFixedSize(size.size());
    const QRect screen = stage.screen();
    QPoint corner = screen.center() - QPoint(size.width() / 2, size.height() / 2);
    if (form_.left() != 0 || form_.top() != 0) {
        const QRect wanted =
            scale.logical(scale.device({form_.left(), form_.top(), form.width, form.height}), false);
        corner = screen.topLeft() + wanted.topLeft();
        // A window never leaves the screen.
        corner.setX(
            std::clamp(corner.x(), screen.left(), std::max(screen.left(), screen.right() - size.width())));
        corner.setY(
            std::clamp(corner.y(), screen.top(), std::max(screen.top(), screen.bottom() - size.height())));
    }
    widget_->move(corner);
    layout(scale);
}

void QtFormView::syncStale() {
    for (Control* control : std::exchange(stale_, {})) {
        const auto known =
            std::ranges::find_if(controls_, [&](const auto& v) { return &v->control() == control; });
        if (known != controls_.end()) {
            (*known)->sync(scaleOf(control->parent()));
            continue;
        }
        // A widget is made when its control first shows; in a hidden container it comes with that.
        ContainerWidget* parent = containerWidget(control->parent());
        if (!control->visible() || !parent)
            continue;
        const std::size_t before = controls_.size();
        make(*control, parent);
        for (std::size_t i = before; i < controls_.size(); ++i)
            controls_[i]->sync(scaleOf(controls_[i]->control().parent()));
    }
}

ControlView* QtFormView::controlView(const QWidget* widget) const {
    for (const QWidget* at = widget; at && at != widget_; at = at->parentWidget())
        for (const auto& view : controls_)
            if (view->widget() == at)
                return view.get();
    return nullptr;
}

ContainerWidget* QtFormView::containerWidget(const Container& container) const {
    if (&container == &form_)
        return widget_;
    const auto found = containers_.find(&container);
    return found == containers_.end() ? nullptr : found->second;
}

bool QtFormView::canMoveFocus(const QWidget& from) const {
    return std::ranges::any_of(controls_, [&](const auto& view) {
        const QWidget* widget = view->widget();
        return widget != &from && widget->isVisible() && widget->isEnabled() &&
               (widget->focusPolicy() & Qt::TabFocus) != 0;
    });
}

void QtFormView::flushLater() {
    if (std::exchange(flushPosted_, true))
        return;
    QMetaObject::invokeMethod(
        widget_, [this] { flush(); }, Qt::QueuedConnection);
}

void QtFormView::flush() {
    if (desk_.queue.takingIn()) {
        // The handler that waits has not come to its end yet.
        desk_.queue.react([life = life(), this] {
            if (!life.expired())
                flush();
        });
        return;
    }
    flushPosted_ = false;
    syncStale();
    for (const auto& [container, widget] : containers_)
        widget->flushDirty();
}

} // namespace klopfmeise
