#include "platform/qt/qt_backend.h"

#include "platform/forms/form_runtime.h"
#include "platform/qt/accessible.h"
#include "platform/qt/font_folders.h"
#include "platform/qt/frame_window.h"
#include "platform/qt/message_dialog.h"
#include "platform/qt/qt_form_view.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/virtual_keys.h"
#include "platform/qt/zoom_style.h"

#include <QKeyEvent>
#include <QMenuBar>
#include <QToolTip>
#include <QWindow>

#include <malloc.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace klopfmeise {

namespace {

/// While a nested event loop runs inside a handler, a timer that came due looks again after this many
/// milliseconds.
constexpr int busyRetry = 50;
/// Size of tool tips, unzoomed pixels.
constexpr int tipPixels = 13;

int& prepared(int& argc) {
    // Nothing here draws with OpenGL; without this the display plug-in loads its libraries.
    if (!qEnvironmentVariableIsSet("QT_XCB_GL_INTEGRATION"))
        qputenv("QT_XCB_GL_INTEGRATION", "none");
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeMenuBar);
    QApplication::setDesktopSettingsAware(false);
    chooseFontFolders();
    // Pictures of pages go back to the system when they are dropped. By itself the C library takes the size
    // of the first one freed for small from then on and keeps the next. Smaller memory is kept: it comes and
    // goes with every list.
    mallopt(M_MMAP_THRESHOLD, 1024 * 1024);
    mallopt(M_TRIM_THRESHOLD, 2 * 1024 * 1024);
    return argc;
}

} // namespace

QtBackend::QtBackend(int& argc, char** argv)
    : application_(prepared(argc), argv)
    , style_(new ZoomStyle)
    , stage_(desk_) {
    QApplication::setApplicationName(QStringLiteral("Klopfmeise"));
    QApplication::setStyle(style_);
    QApplication::setPalette(ZoomStyle::palette());
    QApplication::setQuitOnLastWindowClosed(false);
    desk_.stage = &stage_;
    desk_.queue.busy = [this] { return !desk_.runtime || desk_.runtime->busy(); };
    desk_.queue.deliver = [this](QWindow& window, QEvent& event) { deliver(window, event); };
    stage_.resized = [this] { takeZoom(); };
    desk_.queue.served = [this] { served(); };
    installAccessibility();
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { tick(); });
    QObject::connect(&application_, &QGuiApplication::focusWindowChanged, &timer_,
                     [this] { focusWindowChanged(); });
    QObject::connect(&application_, &QApplication::focusChanged, &timer_,
                     [this](QWidget*, QWidget* now) { focusChanged(now); });
}

QtBackend::~QtBackend() = default;

void QtBackend::setRuntime(FormRuntime& runtime) {
    desk_.runtime = &runtime;
    desk_.router.emplace(runtime, desk_.queue.line());
}

int QtBackend::run() {
    armTimer();
    desk_.queue.serveLater();
    return quitting_ ? 0 : QApplication::exec();
}

std::unique_ptr<FormView> QtBackend::makeView(Form& form) {
    takeZoom();
    return std::make_unique<QtFormView>(form, desk_);
}

void QtBackend::takeZoom() {
    const double zoom = stage_.zoom() / stage_.ratio();
    if (zoom == style_->zoom())
        return;
    style_->setZoom(zoom);
    QFont tips(QStringLiteral("Liberation Sans"));
    tips.setPixelSize(static_cast<int>(std::lround(tipPixels * zoom)));
    QToolTip::setFont(tips);
    // What the toolkit writes itself around the child windows of a frame.
    for (const char* part : {"QMenuBar", "QMenu", "QMdiSubWindowTitleBar"})
        QApplication::setFont(tips, part);
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (QtFormView* view = viewOf(*widget); view && widget->isVisible())
            view->layoutWindow();
}

Answer QtBackend::showMessage(const Message& message) {
    QtFormView* view = desk_.runtime && desk_.runtime->active()
                           ? static_cast<QtFormView*>(desk_.runtime->active()->view())
                           : nullptr;
    if (view)
        view->openWindow();
    QWidget* parent =
        view && view->widget().window()->isVisible() ? view->widget().window() : stage_.shownWindow();
    return askUser(message, parent, stage_.zoom() / stage_.ratio());
}

void QtBackend::wait(int milliseconds) { desk_.queue.takeInFor(milliseconds); }

void QtBackend::work(const std::function<void()>& job) { desk_.queue.takeInDuring(job); }

Rect QtBackend::screen() const {
    const QSize size = stage_.screen().size();
    const double twips = stage_.ratio() / stage_.zoom() * twipsPerPixel;
    return {0, 0, static_cast<int>(std::lround(size.width() * twips)),
            static_cast<int>(std::lround(size.height() * twips))};
}

void QtBackend::quit() {
    quitting_ = true;
    QApplication::exit(0);
}

void QtBackend::timersChanged() {
    if (std::exchange(armPosted_, true))
        return;
    QMetaObject::invokeMethod(
        &timer_,
        [this] {
            armPosted_ = false;
            armTimer();
        },
        Qt::QueuedConnection);
}

void QtBackend::armTimer() {
    const double next = desk_.runtime ? desk_.runtime->nextTick() : -1;
    if (next < 0) {
        timer_.stop();
        return;
    }
    const double left = next - desk_.runtime->services().clock.seconds();
    timer_.start(static_cast<int>(std::ceil(std::clamp(left * 1000, 0.0, 1e9))));
}

void QtBackend::tick() {
    if (desk_.runtime->busy() || desk_.queue.takingIn()) {
        timer_.start(busyRetry);
        return;
    }
    served();
    desk_.queue.serveLater();
    armTimer();
}

void QtBackend::served() {
    // Here and not by the toolkit's timer alone: keys that wait in line would keep it from its turn for as
    // long as they come.
    desk_.runtime->serveTimers();
    if (const Form* active = desk_.runtime->active(); active && active->view())
        announceTarget(static_cast<QtFormView*>(active->view())->widget(), toldTarget_);
}

QtFormView* QtBackend::viewOf(const QWidget& window) {
    if (const auto* form = dynamic_cast<const FormWidget*>(&window))
        return &form->view();
    const auto* frame = dynamic_cast<const FrameWindow*>(&window);
    return frame ? &frame->view() : nullptr;
}

QtFormView* QtBackend::viewOf(const QWindow& window) const {
    if (stage_.isWindow(window))
        return stage_.top();
    for (const QWidget* widget : QApplication::topLevelWidgets())
        if (widget->windowHandle() == &window)
            return viewOf(*widget);
    return nullptr;
}

void QtBackend::focusWindowChanged() {
    deadKeys_.reset();
    desk_.queue.line().react([this, window = QPointer<QWindow>(QGuiApplication::focusWindow())] {
        if (!window || window != QGuiApplication::focusWindow())
            return;
        QtFormView* view = viewOf(*window);
        if (!view)
            return;
        const QPointer<QWindow> before = std::exchange(focused_, window);
        Form* active = desk_.runtime->active();
        if (!active)
            return;
        // Only where the active form's window had the focus did the user take it away. Else it is on its way
        // there: the window manager gives it to another for a moment when a window closes.
        const auto* activeView = static_cast<QtFormView*>(active->view());
        const QWindow* activeWindow = activeView ? activeView->widget().window()->windowHandle() : nullptr;
        if (before && activeWindow == before && activeWindow != window)
            desk_.runtime->windowActivated(view->form());
    });
}

void QtBackend::focusChanged(QWidget* now) {
    for (QWidget* at = now; at; at = at->parentWidget())
        if (auto* form = dynamic_cast<FormWidget*>(at)) {
            ControlView* view = form->view().controlView(now);
            form->form().focusMoved(view ? &view->control() : nullptr);
            return;
        }
}

void QtBackend::deliver(QWindow& window, QEvent& event) {
    QtFormView* view = viewOf(window);
    if (!view)
        return;
    FormRuntime& runtime = *desk_.runtime;
    const auto life = view->form().life();
    if (!view->form().enabled())
        return;
    if (event.type() == QEvent::Close) {
        if (view->form().kind() != FormKind::fullScreen)
            runtime.windowClosed(view->form());
        return;
    }
    if (event.type() == QEvent::MouseButtonPress || event.type() == QEvent::KeyPress) {
        runtime.windowActivated(view->form());
        if (life.expired())
            return;
    }
    const bool key = event.type() == QEvent::KeyPress || event.type() == QEvent::KeyRelease;
    // An open menu has the keys, and a menu bar that the keyboard went to.
    if (key && (QApplication::activePopupWidget() || qobject_cast<QMenuBar*>(QApplication::focusWidget()))) {
        desk_.queue.send(window, event);
        return;
    }
    view->syncStale();
    if (const Form* child = view->form().activeChild(); child && child->view()) {
        auto& inner = static_cast<QtFormView&>(*child->view());
        inner.syncStale();
        if (key)
            view = &inner;
    }
    if (key)
        deliverKey(*view, window, static_cast<QKeyEvent&>(event));
    else
        desk_.queue.send(window, event);
}

namespace {

/// Commands of the toolkit and the desktop, which type nothing.
bool isCommand(const QKeyEvent& event) {
    return event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
}

} // namespace

std::wstring QtBackend::typed(const QKeyEvent& event) {
    if (event.type() != QEvent::KeyPress || isCommand(event))
        return {};
    if (const wchar_t accent = accentOf(event))
        return deadKeys_.accent(accent);
    return deadKeys_.typed(event.key() == Qt::Key_Backtab ? L"\t" : fromQt(event.text()));
}

void QtBackend::deliverKey(QtFormView& view, QWindow& window, QKeyEvent& event) {
    view.keepFocus();
    const ControlView* focused = view.controlView(view.widget().window()->focusWidget());
    view.form().focusMoved(focused ? &focused->control() : nullptr);
    const auto life = view.form().life();
    const auto widget = [&](const std::wstring& text) {
        QKeyEvent left(event.type(), event.key(), event.modifiers(), event.nativeScanCode(),
                       event.nativeVirtualKey(), event.nativeModifiers(),
                       isCommand(event) ? event.text() : toQt(text), event.isAutoRepeat(),
                       static_cast<quint16>(event.count()));
        view.widget().takeUnusedKey();
        desk_.queue.send(window, left);
        return life.expired() || !view.widget().takeUnusedKey();
    };
    const Key key{virtualKeys(event), typed(event)};
    if (event.type() == QEvent::KeyPress)
        desk_.router->keyPress(view.form(), key, widget);
    else
        desk_.router->keyRelease(view.form(), widget);
}

} // namespace klopfmeise
