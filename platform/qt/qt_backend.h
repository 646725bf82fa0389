#pragma once

#include "platform/forms/backend.h"
#include "platform/input/dead_keys.h"
#include "platform/qt/desk.h"
#include "platform/qt/stage.h"

#include <QApplication>
#include <QTimer>

#include <memory>
#include <string>

class QKeyEvent;

namespace klopfmeise {

class Form;
class FormRuntime;
class QtFormView;
class ZoomStyle;

/// The forms on a real screen.
///
/// A request of the window manager to close the stage (Alt-F4) is passed over while a full-screen form stands
/// on it: a child must not lose its place by a slip, and each of these forms has a way out of its own. It
/// closes a backdrop that stands alone. The end of a session is not held up by that: it ends the process by
/// signal or by taking the display away, and what is on disk is whole at any moment.
class QtBackend final : public Backend {
public:
    QtBackend(int& argc, char** argv);
    ~QtBackend() override;
    QtBackend(const QtBackend&) = delete;
    QtBackend& operator=(const QtBackend&) = delete;

    /// To be called before the first form is shown.
    void setRuntime(FormRuntime& runtime);
    /// Serves the forms until the program ends; gives the process's exit code.
    int run();

    std::unique_ptr<FormView> makeView(Form& form) override;
    Answer showMessage(const Message& message) override;
    void wait(int milliseconds) override;
    void work(const std::function<void()>& job) override;
    void timersChanged() override;
    Rect screen() const override;
    void quit() override;

private:
    void deliver(QWindow& window, QEvent& event);
    void deliverKey(QtFormView& view, QWindow& window, QKeyEvent& event);
    /// What a press types, accents composed.
    std::wstring typed(const QKeyEvent& event);
    QtFormView* viewOf(const QWindow& window) const;
    /// The view of the form that has this window for its own; null for others.
    static QtFormView* viewOf(const QWidget& window);
    void focusWindowChanged();
    void focusChanged(QWidget* now);
    /// What follows when inputs or ticks have been served.
    void served();
    /// Brings all that is not on the stage to its zoom.
    void takeZoom();
    void armTimer();
    void tick();

    QApplication application_;
    ZoomStyle* style_;
    Desk desk_;
    Stage stage_;
    DeadKeys deadKeys_;
    QTimer timer_;
    bool armPosted_ = false;
    bool quitting_ = false;
    /// The window of the program that had the focus last.
    QPointer<QWindow> focused_;
    /// The character to type that was read out last.
    std::wstring toldTarget_;
};

} // namespace klopfmeise
