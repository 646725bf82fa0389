#pragma once

#include "platform/input/input_line.h"

#include <QObject>
#include <QWindow>

#include <functional>

namespace klopfmeise {

/// Puts the input of the watched windows into the line and has it served from the event loop, one input a
/// turn. While a handler runs, in a nested event loop too, everything stays in the line.
class InputQueue final : public QObject {
public:
    InputQueue();

    /// True while a handler runs.
    std::function<bool()> busy;
    /// Serves one input of a window.
    std::function<void(QWindow&, QEvent&)> deliver;
    /// Called when an input has been served.
    std::function<void()> served;

    InputLine& line() { return line_; }
    void watch(QWindow& window) { window.installEventFilter(this); }
    /// Has the toolkit handle an input at last. True if a widget took it.
    bool send(QWindow& window, QEvent& event);
    void serveLater();
    /// Lets `milliseconds` pass in an event loop of its own and serves nothing of what comes.
    void takeInFor(int milliseconds);
    /// The same for as long as a job takes that runs on a thread of its own.
    void takeInDuring(const std::function<void()>& job);
    bool takingIn() const { return takingIn_; }

    bool eventFilter(QObject* window, QEvent* event) override;

private:
    void serve();

    InputLine line_;
    const QEvent* sent_ = nullptr;
    bool posted_ = false;
    bool takingIn_ = false;
};

} // namespace klopfmeise
