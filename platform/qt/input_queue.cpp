#include "platform/qt/input_queue.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QKeyEvent>
#include <QTimer>

#include <algorithm>
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

} // namespace

bool InputQueue::eventFilter(QObject* window, QEvent* event) {
    if (event == sent_ || !queued(event->type()))
        return false;
    enter(static_cast<QWindow&>(*window), *event);
    // A close request that is not ignored would take the window away at once.
    event->setAccepted(event->type() != QEvent::Close);
    return true;
}

void InputQueue::enter(QWindow& window, const QEvent& event) {
    if (repeatWaits(event))
        return;
    if (splitRepeat(event)) {
        inputs_.pop_back();
        return;
    }
    if (event.type() == QEvent::MouseMove && !inputs_.empty() && inputs_.back().window == &window &&
        inputs_.back().event->type() == QEvent::MouseMove)
        inputs_.pop_back();
    inputs_.push_back({&window, std::unique_ptr<QEvent>(event.clone())});
    serveLater();
}

bool InputQueue::repeatWaits(const QEvent& event) const {
    if (event.type() != QEvent::KeyPress && event.type() != QEvent::KeyRelease)
        return false;
    const auto& key = static_cast<const QKeyEvent&>(event);
    if (!key.isAutoRepeat())
        return false;
    if (event.type() == QEvent::KeyRelease)
        return true;
    for (auto input = inputs_.rbegin(); input != inputs_.rend(); ++input) {
        if (input->event->type() != QEvent::KeyPress && input->event->type() != QEvent::KeyRelease)
            continue;
        const auto& earlier = static_cast<const QKeyEvent&>(*input->event);
        if (earlier.key() == key.key() && earlier.nativeScanCode() == key.nativeScanCode())
            return earlier.type() == QEvent::KeyPress && earlier.isAutoRepeat();
    }
    return false;
}

bool InputQueue::splitRepeat(const QEvent& event) const {
    if (event.type() != QEvent::KeyPress || inputs_.empty() ||
        inputs_.back().event->type() != QEvent::KeyRelease)
        return false;
    const auto& press = static_cast<const QKeyEvent&>(event);
    const auto& release = static_cast<const QKeyEvent&>(*inputs_.back().event);
    return press.timestamp() != 0 && press.timestamp() == release.timestamp() &&
           press.nativeScanCode() == release.nativeScanCode();
}

bool InputQueue::send(QWindow& window, QEvent& event) {
    const QEvent* before = std::exchange(sent_, &event);
    QCoreApplication::sendEvent(&window, &event);
    sent_ = before;
    return event.isAccepted();
}

void InputQueue::react(std::function<void()> reaction) {
    reactions_.push_back(std::move(reaction));
    serveLater();
}

void InputQueue::serveLater() {
    if (serving_ || std::exchange(posted_, true))
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

void InputQueue::serve() {
    if (serving_ || takingIn_ || busy())
        return;
    serving_ = true;
    runReactions();
    if (!inputs_.empty()) {
        const Input input = std::move(inputs_.front());
        inputs_.pop_front();
        if (input.window)
            deliver(*input.window, *input.event);
        runReactions();
    }
    serving_ = false;
    served();
    // The next one in another turn of the event loop, so that timers tick and the screen is painted between
    // keys that wait in line.
    if (!inputs_.empty())
        serveLater();
}

void InputQueue::runReactions() {
    while (!reactions_.empty()) {
        const auto reaction = std::move(reactions_.front());
        reactions_.pop_front();
        reaction();
    }
}

} // namespace klopfmeise
