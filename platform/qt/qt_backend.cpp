#include "platform/qt/qt_backend.h"

#include "platform/forms/form_runtime.h"
#include "platform/qt/accessible.h"
#include "platform/qt/font_folders.h"
#include "platform/qt/message_dialog.h"
#include "platform/qt/qt_form_view.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/zoom_style.h"
#include "platform/values/windows1252.h"

#include <QKeyEvent>
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

void QtBackend::setRuntime(FormRuntime& runtime) { desk_.runtime = &runtime; }

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
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (auto* form = dynamic_cast<FormWidget*>(widget); form && form->isVisible())
            form->view().layoutWindow();
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

QtFormView* QtBackend::viewOf(const QWindow& window) const {
    if (stage_.isWindow(window))
        return stage_.top();
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (widget->windowHandle() == &window)
            if (const auto* form = dynamic_cast<FormWidget*>(widget))
                return &form->view();
    return nullptr;
}

void QtBackend::focusWindowChanged() {
    deadKeys_.reset();
    desk_.queue.react([this, window = QPointer<QWindow>(QGuiApplication::focusWindow())] {
        if (!window || window != QGuiApplication::focusWindow())
            return;
        QtFormView* view = viewOf(*window);
        if (!view)
            return;
        const QPointer<QWindow> before = std::exchange(focused_, window);
        Form* active = desk_.runtime->active();
        if (!active || active == &view->form())
            return;
        // Only where the active form's window had the focus did the user take it away. Else it is on its way
        // there: the window manager gives it to another for a moment when a window closes.
        const auto* activeView = static_cast<QtFormView*>(active->view());
        if (before && activeView && activeView->widget().window()->windowHandle() == before)
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
    const auto life = view->life();
    if (event.type() == QEvent::Close) {
        if (view->form().kind() != FormKind::fullScreen)
            runtime.windowClosed(view->form());
        return;
    }
    const bool press = event.type() == QEvent::MouseButtonPress || event.type() == QEvent::KeyPress;
    if (press && &view->form() != runtime.active()) {
        runtime.windowActivated(view->form());
        if (life.expired())
            return;
    }
    if (!view->form().enabled())
        return;
    view->syncStale();
    if (event.type() == QEvent::KeyPress || event.type() == QEvent::KeyRelease)
        deliverKey(*view, window, static_cast<QKeyEvent&>(event));
    else
        desk_.queue.send(window, event);
}

void QtBackend::deliverKey(QtFormView& view, QWindow& window, QKeyEvent& event) {
    const auto life = view.life();
    const bool press = event.type() == QEvent::KeyPress;
    const bool command = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    QString text = event.text();
    if (press && !command)
        text = deadKeys_.typed(event.key(), event.key() == Qt::Key_Backtab ? QStringLiteral("\t") : text);

    view.keepFocus();
    const ControlView* focused = view.controlView(view.widget().window()->focusWidget());
    const KeyHandlers* handlers = focused ? focused->keys() : nullptr;
    if (handlers) {
        const QString left = offerToControl(view, *handlers, event, command ? QString() : text);
        if (life.expired() || (press && !command && !text.isEmpty() && left.isEmpty()))
            return;
        if (!command)
            text = left;
    }
    QKeyEvent native(event.type(), event.key(), event.modifiers(), event.nativeScanCode(),
                     event.nativeVirtualKey(), event.nativeModifiers(), text, event.isAutoRepeat(),
                     static_cast<quint16>(event.count()));
    view.widget().takeUnusedKey();
    desk_.queue.send(window, native);
    if (view.widget().takeUnusedKey() && !handlers)
        tellForm(view, event, command ? QString() : text);
}

QString QtBackend::offerToControl(QtFormView& view, const KeyHandlers& handlers, const QKeyEvent& key,
                                  const QString& text) {
    const auto life = view.life();
    FormRuntime& runtime = *desk_.runtime;
    const auto codes = virtualKeys(key);
    if (key.type() == QEvent::KeyRelease) {
        for (std::size_t i = 0; handlers.up && i < codes.size() && !life.expired(); ++i)
            runtime.dispatch(view.form(), handlers.up);
        return {};
    }
    for (const int code : codes)
        if (handlers.down && !life.expired())
            runtime.dispatch(view.form(), [&] { handlers.down(code); });
    QString left;
    for (const QChar sign : text) {
        KeyPress press{toWindows1252(static_cast<wchar_t>(sign.unicode()))};
        if (life.expired())
            return {};
        if (handlers.press && press.code >= 0 && press.code != 127)
            runtime.dispatch(view.form(), [&] { handlers.press(press); });
        if (!press.swallowed)
            left += sign;
    }
    return left;
}

void QtBackend::tellForm(QtFormView& view, const QKeyEvent& key, const QString& text) {
    const auto life = view.life();
    Form& form = view.form();
    const auto tell = [&](const std::function<void()>& handler) {
        if (!life.expired())
            desk_.runtime->dispatch(form, handler);
    };
    const bool press = key.type() == QEvent::KeyPress;
    for (const int code : virtualKeys(key))
        tell([&] { press ? form.Form_KeyDown(code) : form.Form_KeyUp(); });
    if (!press)
        return;
    for (const QChar sign : text) {
        // The delete key types nothing.
        const int code = toWindows1252(static_cast<wchar_t>(sign.unicode()));
        if (code >= 0 && code != 127)
            tell([&] { form.Form_KeyPress(code); });
    }
}

} // namespace klopfmeise
