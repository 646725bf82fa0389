#include "platform/qt/input_queue.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QKeyEvent>
#include <QPointer>
#include <QThread>
#include <QTimer>

#include <algorithm>
#include <memory>
#include <utility>

namespace klopfmeise {

namespace {

bool queued(QEvent::Type type) {
    switch (type) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::Close:
        return true;
    default:
        return false;
    }
}

InputMark markOf(const QObject& window, const QEvent& event) {
    InputMark mark;
    mark.window = &window;
    if (event.type() == QEvent::MouseMove)
        mark.kind = InputMark::Kind::mouseMove;
    if (event.type() != QEvent::KeyPress && event.type() != QEvent::KeyRelease)
        return mark;
    const auto& key = static_cast<const QKeyEvent&>(event);
    mark.kind = event.type() == QEvent::KeyPress ? InputMark::Kind::keyDown : InputMark::Kind::keyUp;
    mark.key = key.nativeScanCode() ? key.nativeScanCode() : static_cast<std::uint32_t>(key.key());
    mark.repeat = key.isAutoRepeat();
    mark.time = key.timestamp();
    return mark;
}

} // namespace

InputQueue::InputQueue() {
    line_.busy = [this] { return takingIn_ || busy(); };
    line_.wake = [this] { serveLater(); };
    line_.shortly = [this](std::function<void()> then) {
        constexpr int splitRepeats = 10;
        QTimer::singleShot(splitRepeats, Qt::PreciseTimer, this, std::move(then));
    };
}

bool InputQueue::eventFilter(QObject* window, QEvent* event) {
    if (event == sent_ || !queued(event->type()))
        return false;
    line_.enter(markOf(*window, *event), [this, target = QPointer(static_cast<QWindow*>(window)),
                                          copy = std::shared_ptr<QEvent>(event->clone())] {
        if (target)
            deliver(*target, *copy);
    });
    // A close request that is not ignored would take the window away at once.
    event->setAccepted(event->type() != QEvent::Close);
    return true;
}

bool InputQueue::send(QWindow& window, QEvent& event) {
    const QEvent* before = std::exchange(sent_, &event);
    QCoreApplication::sendEvent(&window, &event);
    sent_ = before;
    return event.isAccepted();
}

void InputQueue::serveLater() {
    if (std::exchange(posted_, true))
        return;
    QMetaObject::invokeMethod(
        this,
        [this] {
            posted_ = false;
            serve();
        },
        Qt::QueuedConnection);
}

void InputQueue::takeInFor(int milliseconds) {
    takingIn_ = true;
    QEventLoop loop;
    QTimer::singleShot(std::max(0, milliseconds), Qt::PreciseTimer, &loop, [&loop] { loop.quit(); });
    loop.exec();
    takingIn_ = false;
    serveLater();
}

void InputQueue::takeInDuring(const std::function<void()>& job) {
    takingIn_ = true;
    QEventLoop loop;
    const std::unique_ptr<QThread> thread(QThread::create(job));
    QObject::connect(thread.get(), &QThread::finished, &loop, [&loop] { loop.quit(); });
    thread->start();
    loop.exec();
    thread->wait();
    takingIn_ = false;
    serveLater();
}

void InputQueue::serve() {
    if (line_.busy())
        return;
    line_.serve();
    served();
    // The next one in another turn of the event loop, so that timers tick and the screen is painted between
    // keys that wait in line.
    if (line_.ready())
        serveLater();
}

} // namespace klopfmeise
