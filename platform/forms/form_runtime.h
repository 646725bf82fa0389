#pragma once

#include "platform/forms/backend.h"
#include "platform/forms/form.h"
#include "platform/machine/services.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace klopfmeise {

class Timer;

/// The life of the forms: it makes them by name from one table, shows, activates and unloads them, serves
/// their timers, and lets one handler run at a time. A backend brings what happens in through `dispatch`,
/// `windowActivated`, `windowClosed`, `windowResized` and `serveTimers`.
///
/// Forms stand on two levels. On the upper one are the full-screen forms, the small windows and the frames;
/// one of them is active. Inside a frame its child windows are, and one of those is active in turn: a sibling
/// deactivates it, a window that opens over the frame does not.
class FormRuntime {
public:
    using Maker = std::function<std::unique_ptr<Form>()>;

    FormRuntime(Backend& backend, Services services);
    ~FormRuntime();
    FormRuntime(const FormRuntime&) = delete;
    FormRuntime& operator=(const FormRuntime&) = delete;

    /// Enters a form into the table. `name` is a literal.
    void add(std::wstring_view name, Maker maker);
    std::vector<std::wstring_view> names() const;

    /// True if the table holds the form. Where it does not, one message box says so.
    bool available(std::wstring_view name);
    /// The loaded form of this name, loading it if need be, a child's frame before it; null if the table does
    /// not hold it.
    Form* load(std::wstring_view name);
    /// The form if it is loaded, else null.
    Form* loaded(std::wstring_view name) const;
    /// Loads, shows and activates a form. False if the table does not hold it.
    bool show(std::wstring_view name);
    /// Unloads a form, a frame's children before it; the object goes when the running handler has returned.
    /// The form that was active before it on its level becomes active. One that is not loaded is no fault.
    void unload(Form& form);
    void unload(std::wstring_view name);
    /// The active form of the program, which gets the keys: of a frame its active child. Null if there is
    /// none.
    Form* active() const;
    /// Ends the process once the running handler has returned. Handlers that end the process return at once.
    void end();
    bool ended() const { return ended_; }

    Answer message(const Message& message);
    /// Lets time pass with nothing served (ms).
    void wait(int milliseconds);
    /// Runs a job that may take long while the screen can be painted; it must not touch forms or controls.
    void work(const std::function<void()>& job);

    Services& services() { return services_; }
    Backend& backend() { return backend_; }

    /// Runs a handler of `form` unless the form has been unloaded meanwhile; forms that it unloads are
    /// destroyed behind it.
    void dispatch(Form& form, const std::function<void()>& handler);
    /// True while a handler runs: what happens has to wait.
    bool busy() const { return depth_ > 0; }
    /// The user made a window of the program the active one.
    void windowActivated(Form& form);
    /// The user closed a window by its close box.
    void windowClosed(Form& form);
    /// A frame's window has this size (unzoomed twips) and state.
    void windowResized(Form& form, int width, int height, WindowState state);

    /// Seconds of the clock when the next timer is due; negative if none runs.
    double nextTick() const;
    /// Fires the timers that are due, each once, the longest overdue first. Does nothing while a handler
    /// runs.
    void serveTimers();

private:
    friend class Timer;

    void enter(Timer& timer);
    void leave(Timer& timer);
    Form* frameOf(const Form& form) const;
    void reveal(Form& form);
    void activate(Form& form);
    void activateTop(Form* form);
    void activateChild(Form& frame, Form& child);
    /// The form that was active last inside `frame`, or on the upper level.
    Form* lastVisible(const Form* frame) const;
    std::vector<std::unique_ptr<Form>>::iterator position(const Form& form);
    void settle();

    Backend& backend_;
    Services services_;
    std::map<std::wstring_view, Maker> makers_;
    /// Loaded forms; the order is that of their last activation, the active one last.
    std::vector<std::unique_ptr<Form>> forms_;
    std::vector<std::unique_ptr<Form>> unloaded_;
    std::vector<Timer*> timers_;
    /// On the upper level.
    Form* active_ = nullptr;
    int depth_ = 0;
    bool ended_ = false;
};

} // namespace klopfmeise
