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
#include <utility>

namespace klopfmeise {

namespace {
using std::chrono_literals::operator""ms;
/// A start that takes longer shows its splash.
constexpr auto splashDelay = 300ms;
} // namespace

QtFormView::QtFormView(Form& form, Desk& desk)
    : form_(form)
    , desk_(desk)
    , pictures_(desk.pictures)
    , widget_(new FormWidget(*this, form, parentOfWidget())) {
    if (form.kind() == FormKind::fullScreen && !form.look().picture.empty()) {
        Scale scale;
        scale.zoom = desk.stage->zoom();
        scale.ratio = desk.stage->ratio();
        desk.pictures.prepare(form.look().picture, scale.device({0, 0, form.width(), form.height()}).size());
    }
    if (frame_)
        frame_->dock(*widget_);
    if (child_)
        child_->setWidget(widget_);
    containers_[&form_] = widget_;
    build(form_, widget_);
    arrange();
    if (form.kind() != FormKind::window && form.kind() != FormKind::splash)
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

QWidget* QtFormView::parentOfWidget() {
    switch (form_.kind()) {
    case FormKind::fullScreen:
    case FormKind::backdrop:
        return desk_.stage->window();
    case FormKind::frame:
        frame_ = new FrameWindow(*this);
        return frame_;
    case FormKind::child: {
        const Form* frame = desk_.runtime->loaded(form_.look().frame);
        const auto* view = frame ? static_cast<const QtFormView*>(frame->view()) : nullptr;
        // A child is only shown in a frame that is.
        if (view && view->frame_)
            child_ = new ChildWindow(*this, view->frame_);
        return child_;
    }
    case FormKind::window:
    case FormKind::splash:
        break;
    }
    return nullptr;
}

QtFormView::~QtFormView() {
    if (onStage())
        desk_.stage->leave(*this);
    controls_.clear();
    delete widget_.data();
    delete child_.data();
    delete frame_.data();
    pictures_.clear();
}

bool QtFormView::onStage() const {
    return form_.kind() == FormKind::fullScreen || form_.kind() == FormKind::backdrop;
}

Files& QtFormView::files() const { return desk_.runtime->services().files; }

InputRouter& QtFormView::router() const { return *desk_.router; }

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

void QtFormView::controlRemoved(Control& control) {
    desk_.router->forget(control);
    std::erase_if(containers_, [&](const auto& held) {
        return held.second->objectName() == toQt(control.fullName()) && held.second != widget_;
    });
    std::erase(stale_, &control);
    std::erase_if(controls_, [&](const auto& view) { return &view->control() == &control; });
    if (ContainerWidget* parent = containerWidget(control.parent())) {
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
    QWidget* window = frame_   ? static_cast<QWidget*>(frame_)
                      : child_ ? static_cast<QWidget*>(child_)
                               : widget_;
    if (window->windowTitle() != title)
        window->setWindowTitle(title);
    if (child_) {
        layoutWindow();
        return;
    }
    if (QWindow* handle = window->windowHandle())
        handle->setFlag(Qt::WindowStaysOnTopHint, form_.topMost());
    if (frame_ && frame_->isVisible())
        frame_->takeState();
    else if (!frame_ && widget_->isVisible())
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
    // Those that still wait for their widget come too.
    syncStale();
    widget_->update();
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

void QtFormView::syncStale() {
    bool made = false;
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
        made = true;
    }
    if (made)
        arrange();
}

namespace {

/// The windowed controls of a container in the order of their making, each followed by what it holds.
void inOrder(const Container& container, std::vector<const Control*>& order) {
    for (std::size_t slot = 0; slot < container.controlCount(); ++slot) {
        Control& control = container.control(slot);
        if (!control.windowed())
            continue;
        order.push_back(&control);
        if (const Container* inner = control.asContainer())
            inOrder(*inner, order);
    }
}

} // namespace

void QtFormView::arrange() {
    std::vector<const Control*> order;
    inOrder(form_, order);
    std::map<const Control*, std::size_t> places;
    for (std::size_t place = 0; place < order.size(); ++place)
        places[order[place]] = place;
    std::ranges::sort(controls_, {}, [&](const auto& view) { return places.at(&view->control()); });
    // From the last one down, so that a widget already in its place is not moved.
    std::map<const QWidget*, QWidget*> above;
    for (auto view = controls_.rbegin(); view != controls_.rend(); ++view) {
        QWidget* widget = (*view)->widget();
        QWidget*& next = above[widget->parentWidget()];
        if (next)
            widget->stackUnder(next);
        next = widget;
    }
    QWidget* before = nullptr;
    for (const auto& view : controls_) {
        // One that takes no focus would break the chain.
        if (view->widget()->focusPolicy() == Qt::NoFocus)
            continue;
        if (before)
            QWidget::setTabOrder(before, view->widget());
        before = view->widget();
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
        desk_.queue.line().react([life = form_.life(), this] {
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
