#pragma once

#include <QObject>
#include <QPointer>
#include <QWindow>

#include <deque>
#include <functional>
#include <memory>

namespace klopfmeise {

/// The one way into the program for whatever a user does. Input of the watched windows is put aside and
/// handed out one by one from the event loop; each is served to its end, with the reactions of the controls
/// it met, before the next is. While a handler runs, in a nested event loop too, everything stays in the
/// queue.
class InputQueue final : public QObject {
public:
    /// True while a handler runs.
    std::function<bool()> busy;
    /// Serves one input of a window.
    std::function<void(QWindow&, QEvent&)> deliver;

    /// Called when the queue has been served.
    std::function<void()> served;

    void watch(QWindow& window) { window.installEventFilter(this); }
    /// Has the toolkit handle an input at last. True if a widget took it.
    bool send(QWindow& window, QEvent& event);
    /// Runs `reaction` behind the input being served, before the next one; at the next idle moment if none
    /// is.
    void react(std::function<void()> reaction);
    void serveLater();
    /// Lets `milliseconds` pass in an event loop of its own, so that sounds play on, and serves nothing of
    /// what comes.
    void takeInFor(int milliseconds);
    bool takingIn() const { return takingIn_; }

    bool eventFilter(QObject* window, QEvent* event) override;

private:
    struct Input {
        QPointer<QWindow> window;
        std::unique_ptr<QEvent> event;
    };

    void enter(QWindow& window, const QEvent& event);
    bool repeatWaits(const QEvent& event) const;
    /// A repeat whose release and press arrived apart, so that the toolkit took them for two strokes: the
    /// press bears the very time of the release before it, which is still in line.
    bool splitRepeat(const QEvent& event) const;
    void serve();
    void runReactions();

    std::deque<Input> inputs_;
    std::deque<std::function<void()>> reactions_;
    const QEvent* sent_ = nullptr;
    bool posted_ = false;
    bool serving_ = false;
    bool takingIn_ = false;
};

} // namespace klopfmeise
