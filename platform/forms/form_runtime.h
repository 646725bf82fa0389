#pragma once

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
/// `windowActivated`, `windowClosed` and `serveTimers`.
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
    /// The loaded form of this name, loading it if need be; null if the table does not hold it.
    Form* load(std::wstring_view name);
    /// The form if it is loaded, else null.
    Form* loaded(std::wstring_view name) const;
    /// Loads, shows and activates a form. False if the table does not hold it.
    bool show(std::wstring_view name);
    /// Unloads a form; the object goes when the running handler has returned. The form that was active before
    /// it becomes active.
    void unload(Form& form);
    void unload(std::wstring_view name);
    /// The active form of the program; null if there is none.
    Form* active() const;
    /// Ends the process once the running handler has returned. Handlers that end the process return at once.
    void end();
    bool ended() const { return ended_; }

    Answer message(const Message& message);
    void wait(int milliseconds);

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

    /// Seconds of the clock when the next timer is due; negative if none runs.
    double nextTick() const;
    /// Fires the timers that are due, each once, the longest overdue first. Does nothing while a handler
    /// runs.
    void serveTimers();

private:
    friend class Timer;
    friend class Form;

    void enter(Timer& timer);
    void leave(Timer& timer);
    void activate(Form* form);
    void settle();

    Backend& backend_;
    Services services_;
    std::map<std::wstring_view, Maker> makers_;
    /// Loaded forms; the order is that of their last activation, the active one last.
    std::vector<std::unique_ptr<Form>> forms_;
    std::vector<std::unique_ptr<Form>> unloaded_;
    std::vector<Timer*> timers_;
    Form* active_ = nullptr;
    int depth_ = 0;
    bool ended_ = false;
};

} // namespace klopfmeise
