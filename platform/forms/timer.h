#pragma once

#include <functional>
#include <string_view>

namespace klopfmeise {

class Form;

struct TimerLook {
    /// Milliseconds; 0 never ticks.
    int interval = 0;
    bool enabled = true;
    std::function<void()> tick = {};
};

/// A timer of a form. It has at most one tick outstanding, and a tick never falls into a handler.
class Timer {
public:
    Timer(Form& form, std::wstring_view name, TimerLook look);
    ~Timer();
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;

    std::wstring_view name() const { return name_; }
    Form& form() const { return form_; }
    int interval() const { return interval_; }
    void setInterval(int milliseconds);
    bool enabled() const { return enabled_; }
    void setEnabled(bool enabled);

    /// When the next tick is due on the runtime's clock, in seconds; negative while the timer stands.
    double due() const { return due_; }
    /// One tick; the next is due one interval after `now`.
    void fire(double now);

private:
    void restart();

    Form& form_;
    std::wstring_view name_;
    int interval_;
    bool enabled_;
    double due_ = -1;
    std::function<void()> tick_;
};

} // namespace klopfmeise
