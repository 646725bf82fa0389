#include "platform/qt/sound/feeder.h"

#include <algorithm>
#include <csignal>
#include <pulse/pulseaudio.h>
#include <utility>

namespace klopfmeise {

using namespace std::chrono_literals;
using std::chrono::ceil;
using std::chrono::microseconds;
using std::chrono::milliseconds;
using std::chrono::steady_clock;

namespace {

/// Milliseconds that the server holds beyond the device's own delay: little, so that a wave is soon heard.
constexpr int buffer = 20;
/// Milliseconds for threads and server to get their turn.
constexpr int slack = 20;
/// A server that has not answered for so long is given up.
constexpr auto openingLimit = 2s;
constexpr auto answerLimit = 1s;
/// Between a failure and the next try.
constexpr auto pause = 1s;
/// Milliseconds that the first opening is taken to last, and the least for later ones.
constexpr int firstOpening = 250;
constexpr int laterOpening = 100;
/// How long the last click may hold up the end of the program: the server may be busy.
constexpr auto lastSound = 500ms;
/// What is believed of a device's delay (µs).
constexpr pa_usec_t longestDelay = 2'000'000;
/// A device that is so much further than it was told to be had been idle (µs).
constexpr pa_usec_t aheadFrom = 100'000;
constexpr std::size_t longestQueue = 10 * waveRate;
/// No delay, as nothing will be heard.
constexpr int silent = -1;

constexpr std::size_t samplesIn(int milliseconds) {
    return static_cast<std::size_t>(milliseconds) * waveRate / 1000;
}

int millisecondsOf(const Wave& wave) {
    return static_cast<int>((wave.size() * 1000 + waveRate - 1) / waveRate);
}

/// `place`: from where the `samplesOn` are counted.
bool write(pa_stream* stream, const Wave& wave, pa_seek_mode_t place, std::size_t samplesOn = 0) {
    constexpr std::size_t size = sizeof(Wave::value_type);
    return pa_stream_write(stream, wave.data(), wave.size() * size, nullptr,
                           static_cast<std::int64_t>(samplesOn * size), place) >= 0;
}

} // namespace

void Feeder::FreeLoop::operator()(pa_mainloop* loop) const { pa_mainloop_free(loop); }

void Feeder::FreeContext::operator()(pa_context* context) const {
    pa_context_disconnect(context);
    pa_context_unref(context);
}

void Feeder::FreeStream::operator()(pa_stream* stream) const {
    pa_stream_disconnect(stream);
    pa_stream_unref(stream);
}

Feeder::Feeder(SoundRest rest)
    : rest_(rest)
    , delay_(firstOpening)
    , loop_(pa_mainloop_new())
    , openingDelay_(firstOpening) {
    if (!loop_)
        return;
    // Signals are the program's: a thread begins with the mask of the one that starts it.
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    thread_ = std::thread([this] { run(); });
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

Feeder::~Feeder() {
    if (!thread_.joinable())
        return;
    {
        const std::lock_guard lock(mutex_);
        end_ = true;
    }
    pa_mainloop_wakeup(loop_.get());
    thread_.join();
}

int Feeder::play(const Wave& wave) {
    if (!thread_.joinable())
        return 0;
    {
        const std::lock_guard lock(mutex_);
        ordered_ = &wave;
    }
    const int delay = delay_;
    pa_mainloop_wakeup(loop_.get());
    return delay == silent ? 0 : delay + millisecondsOf(wave);
}

void Feeder::run() {
    while (takeOrders()) {
        step();
        if (endBy_ && !somethingToHear(steady_clock::now()))
            break;
        // In microseconds; never just short of it, which would turn round idly.
        int wait = -1;
        if (const Time next = due(); next != Time::max())
            wait = static_cast<int>(std::max(0us, ceil<microseconds>(next - steady_clock::now())).count());
        if (pa_mainloop_prepare(loop_.get(), wait) < 0)
            break;
        wakeForOrders();
        if (pa_mainloop_poll(loop_.get()) < 0 || pa_mainloop_dispatch(loop_.get()) < 0)
            break;
    }
    part(Time::max(), silent);
}

/// To prepare a turn of the loop forgets the calls that came since the orders were taken.
void Feeder::wakeForOrders() {
    const std::lock_guard lock(mutex_);
    if (ordered_ || (end_ && !endBy_))
        pa_mainloop_wakeup(loop_.get());
}

bool Feeder::takeOrders() {
    const std::lock_guard lock(mutex_);
    if (ordered_)
        waiting_ = std::exchange(ordered_, nullptr);
    if (!end_)
        return true;
    const Time now = steady_clock::now();
    if (!endBy_)
        endBy_ = now + lastSound;
    return now < *endBy_ && somethingToHear(now);
}

bool Feeder::somethingToHear(Time now) const {
    return waiting_ || (phase_ == Phase::running && !drained_ && (draining_ || now < soundEnd_));
}

void Feeder::step() {
    const Time now = steady_clock::now();
    const bool reaching = phase_ == Phase::connecting || phase_ == Phase::opening;
    if (broken())
        // One that was there may have been started anew already.
        part(reaching ? now + pause : now, reaching ? silent : firstOpening);
    else if ((reaching && now >= since_ + openingLimit) || (asked_ && now >= *asked_ + answerLimit))
        part(now + pause, silent);

    if (phase_ == Phase::apart && waiting_ && now >= retry_)
        connect();
    if (phase_ == Phase::apart && now < retry_)
        waiting_ = nullptr;
    if (phase_ == Phase::connecting && pa_context_get_state(context_.get()) == PA_CONTEXT_READY)
        phase_ = Phase::resting;
    if (phase_ == Phase::resting && waiting_)
        openStream();
    if (phase_ == Phase::opening && pa_stream_get_state(stream_.get()) == PA_STREAM_READY)
        opened();
    if ((phase_ == Phase::stopped || phase_ == Phase::running) && waiting_)
        hand(*std::exchange(waiting_, nullptr));
    if (phase_ == Phase::running && endBy_ && !draining_)
        drain();
    if (phase_ == Phase::running && now >= soundEnd_ + rest_.stop && !setStopped(true))
        part(now, firstOpening);
    if (phase_ == Phase::stopped && now >= soundEnd_ + rest_.close)
        close();
}

Feeder::Time Feeder::due() const {
    Time next = endBy_.value_or(Time::max());
    if (phase_ == Phase::connecting || phase_ == Phase::opening)
        next = std::min(next, since_ + openingLimit);
    if (phase_ == Phase::running)
        next = std::min(next, soundEnd_ + rest_.stop);
    if (phase_ == Phase::stopped)
        next = std::min(next, soundEnd_ + rest_.close);
    if (asked_)
        next = std::min(next, *asked_ + answerLimit);
    return next;
}

bool Feeder::broken() const {
    return (context_ && !PA_CONTEXT_IS_GOOD(pa_context_get_state(context_.get()))) ||
           (stream_ && !PA_STREAM_IS_GOOD(pa_stream_get_state(stream_.get())));
}

void Feeder::connect() {
    since_ = steady_clock::now();
    phase_ = Phase::connecting;
    context_.reset(pa_context_new(pa_mainloop_get_api(loop_.get()), "Klopfmeise"));
    // A server that is not there is not started: the library would wait for it in here. One that the desktop
    // starts on demand comes all the same.
    if (!context_ || pa_context_connect(context_.get(), nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) < 0 ||
        broken())
        part(since_ + pause, silent);
}

void Feeder::openStream() {
    since_ = steady_clock::now();
    phase_ = Phase::opening;
    constexpr pa_sample_spec format{PA_SAMPLE_S16NE, waveRate, 1};
    constexpr auto theirs = static_cast<std::uint32_t>(-1);
    // Without pre-buffering: the stream runs from the beginning, and on through silence.
    constexpr pa_buffer_attr buffering{.maxlength = theirs,
                                       .tlength = samplesIn(buffer) * sizeof(Wave::value_type),
                                       .prebuf = 0,
                                       .minreq = theirs,
                                       .fragsize = theirs};
    constexpr auto openingFlags =
        static_cast<pa_stream_flags_t>(PA_STREAM_ADJUST_LATENCY | PA_STREAM_START_CORKED);
    stream_.reset(pa_stream_new(context_.get(), "Klang", &format, nullptr));
    if (!stream_ ||
        pa_stream_connect_playback(stream_.get(), nullptr, &buffering, openingFlags, nullptr, nullptr) < 0)
        part(since_ + pause, silent);
}

void Feeder::opened() {
    const Time now = steady_clock::now();
    openingDelay_ = std::max(laterOpening, 2 * static_cast<int>(ceil<milliseconds>(now - since_).count()));
    soundEnd_ = now;
    phase_ = Phase::stopped;
}

void Feeder::hand(const Wave& wave) {
    const Time now = steady_clock::now();
    if (!writeWave(wave, now) || (phase_ == Phase::stopped && !setStopped(false))) {
        part(now + pause, silent);
        return;
    }
    ask(now);
}

bool Feeder::writeWave(const Wave& wave, Time now) {
    pa_stream* stream = stream_.get();
    if (phase_ == Phase::stopped) {
        // Devices and servers swallow some milliseconds of a stream's beginning.
        handed_ = samplesIn(buffer) + wave.size();
        justStarted_ = true;
        soundEnd_ = now + milliseconds(openDelay() + buffer + millisecondsOf(wave));
        return write(stream, Wave(samplesIn(buffer)), PA_SEEK_RELATIVE_ON_READ) &&
               write(stream, wave, PA_SEEK_RELATIVE);
    }
    if (now < queueEnd_ && handed_ + wave.size() < longestQueue) {
        const auto left = ceil<milliseconds>(queueEnd_ - now).count() + slack;
        const std::size_t queued = std::min(handed_, samplesIn(static_cast<int>(left)));
        const milliseconds length(millisecondsOf(wave));
        handed_ += wave.size();
        queueEnd_ += length;
        soundEnd_ += length;
        return write(stream, wave, PA_SEEK_RELATIVE_ON_READ, queued);
    }
    // At the place where the server reads, over what it still holds of the wave before; the rest of that one
    // is overwritten with silence. Emptying the stream first would cost the new wave its first milliseconds:
    // the server reads on in between.
    const std::size_t before = std::exchange(handed_, wave.size());
    soundEnd_ = now + milliseconds(openDelay() + millisecondsOf(wave));
    return write(stream, wave, PA_SEEK_RELATIVE_ON_READ) &&
           (before <= wave.size() || write(stream, Wave(before - wave.size()), PA_SEEK_RELATIVE));
}

void Feeder::ask(Time now) {
    // The answer tells the device's delay, and that there is someone who answers.
    pa_operation* question = pa_stream_update_timing_info(stream_.get(), &Feeder::delayTold, this);
    if (!question)
        return;
    pa_operation_unref(question);
    if (!asked_)
        asked_ = now;
}

void Feeder::drain() {
    // A stream that runs on through silence never runs dry.
    pa_buffer_attr buffering = *pa_stream_get_buffer_attr(stream_.get());
    buffering.prebuf = static_cast<std::uint32_t>(-1);
    if (pa_operation* change = pa_stream_set_buffer_attr(stream_.get(), &buffering, nullptr, nullptr))
        pa_operation_unref(change);
    pa_operation* order = pa_stream_drain(stream_.get(), &Feeder::allPlayed, this);
    if (!order) {
        part(Time::max(), silent);
        return;
    }
    pa_operation_unref(order);
    draining_ = true;
}

bool Feeder::setStopped(bool stopped) {
    pa_operation* order = pa_stream_cork(stream_.get(), stopped, nullptr, nullptr);
    if (!order)
        return false;
    pa_operation_unref(order);
    phase_ = stopped ? Phase::stopped : Phase::running;
    delay_ = openDelay() + (stopped ? laterOpening : 0);
    return true;
}

void Feeder::close() {
    stream_.reset();
    asked_.reset();
    phase_ = Phase::resting;
    delay_ = openDelay() + openingDelay_;
}

void Feeder::part(Time retry, int delay) {
    stream_.reset();
    context_.reset();
    asked_.reset();
    phase_ = Phase::apart;
    retry_ = retry;
    delay_ = delay;
}

int Feeder::openDelay() const { return deviceDelay_ + buffer + slack; }

void Feeder::delayTold(pa_stream* stream, int success, void* feeder) {
    auto& self = *static_cast<Feeder*>(feeder);
    self.asked_.reset();
    const pa_timing_info* told = success ? pa_stream_get_timing_info(stream) : nullptr;
    if (!told || self.phase_ != Phase::running)
        return;
    const int delay = static_cast<int>(std::min(longestDelay, told->sink_usec + told->transport_usec) / 1000);
    self.soundEnd_ += milliseconds(delay - self.deviceDelay_);
    self.deviceDelay_ = delay;
    self.delay_ = self.openDelay();
    if (std::exchange(self.justStarted_, false) && told->sink_usec > told->configured_sink_usec + aheadFrom)
        self.queueEnd_ = steady_clock::now() + microseconds(told->sink_usec - told->configured_sink_usec) +
                         milliseconds(self.handed_ * 1000 / waveRate);
}

void Feeder::allPlayed(pa_stream*, int, void* feeder) { static_cast<Feeder*>(feeder)->drained_ = true; }

} // namespace klopfmeise
