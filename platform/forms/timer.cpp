#include "platform/forms/timer.h"

#include "platform/forms/form_runtime.h"

#include <utility>

namespace klopfmeise {

Timer::Timer(Form& form, std::wstring_view name, TimerLook look)
    : form_(form)
    , name_(name)
    , interval_(look.interval)
    , enabled_(look.enabled)
    , tick_(std::move(look.tick)) {
    form_.runtime().enter(*this);
    restart();
}

Timer::~Timer() { form_.runtime().leave(*this); }

void Timer::setInterval(int milliseconds) {
    if (milliseconds == interval_)
        return;
    interval_ = milliseconds;
    restart();
}

void Timer::setEnabled(bool enabled) {
    if (enabled == enabled_)
        return;
    enabled_ = enabled;
    restart();
}

void Timer::restart() {
    FormRuntime& runtime = form_.runtime();
    due_ = enabled_ && interval_ > 0 ? runtime.services().clock.seconds() + interval_ / 1000.0 : -1;
    runtime.backend().timersChanged();
}

void Timer::fire(double now) {
    due_ = now + interval_ / 1000.0;
    if (tick_)
        tick_();
}

} // namespace klopfmeise
