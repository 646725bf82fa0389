#pragma once

#include "platform/qt/sound/wave.h"

#include <atomic>
#include <chrono>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

struct pa_context;
struct pa_mainloop;
struct pa_stream;

namespace klopfmeise {

/// After how much silence the stream is stopped, so that the device can sleep, and closed. The connection
/// stays, which costs nothing.
struct SoundRest {
    std::chrono::milliseconds stop{5'000};
    std::chrono::milliseconds close{60'000};
};

/// One stream to the sound server, fed by a thread of its own: whatever the server does, nobody here waits
/// for it. The stream is opened for a wave, stopped when it rests and closed when the rest goes on. Each wave
/// is handed over whole: nothing has to be fed while it sounds.
class Feeder {
public:
    explicit Feeder(SoundRest rest = {});
    /// Lets a short sound that was just ordered come to its end.
    ~Feeder();
    Feeder(const Feeder&) = delete;
    Feeder& operator=(const Feeder&) = delete;

    /// Plays `wave`, which must outlive the feeder, in place of what plays. Returns the milliseconds until
    /// its end is heard; 0 if no server was there for the one before.
    int play(const Wave& wave);

private:
    using Time = std::chrono::steady_clock::time_point;
    /// Without a server; connecting; connected, but no stream; opening the stream; stream open, but stopped;
    /// stream running.
    enum class Phase { apart, connecting, resting, opening, stopped, running };
    struct FreeLoop {
        void operator()(pa_mainloop* loop) const;
    };
    struct FreeContext {
        void operator()(pa_context* context) const;
    };
    struct FreeStream {
        void operator()(pa_stream* stream) const;
    };

    void run();
    /// Takes what was ordered since the last time. False once the feeder shall end.
    bool takeOrders();
    void wakeForOrders();
    bool somethingToHear(Time now) const;
    void step();
    /// When something has to be done by the clock alone.
    Time due() const;
    bool broken() const;
    void connect();
    void openStream();
    void opened();
    void hand(const Wave& wave);
    bool writeWave(const Wave& wave, Time now);
    void ask(Time now);
    void drain();
    bool setStopped(bool stopped);
    void close();
    /// The server went, or does not answer; no sound is tried again before `retry`.
    void part(Time retry, int delay);
    int openDelay() const;
    static void delayTold(pa_stream* stream, int success, void* feeder);
    static void allPlayed(pa_stream* stream, int success, void* feeder);

    const SoundRest rest_;

    // Between the threads.
    std::mutex mutex_;
    const Wave* ordered_ = nullptr;
    bool end_ = false;
    /// From an order to the first sample heard, in milliseconds, as far as one can tell; negative if there is
    /// no server.
    std::atomic<int> delay_;

    // The feeder's own.
    std::unique_ptr<pa_mainloop, FreeLoop> loop_;
    std::unique_ptr<pa_context, FreeContext> context_;
    std::unique_ptr<pa_stream, FreeStream> stream_;
    Phase phase_ = Phase::apart;
    const Wave* waiting_ = nullptr;
    /// Samples that the stream may still hold.
    std::size_t handed_ = 0;
    /// A device that was idle may have fetched long silence already, which is heard before anything else.
    /// What is ordered until then queues up, as none of it can be cut where it is heard; until when it
    /// sounds.
    Time queueEnd_;
    /// The answer to be had next tells whether it is so.
    bool justStarted_ = false;
    int openingDelay_;
    int deviceDelay_ = 0;
    /// Since when it connects or opens.
    Time since_;
    Time retry_;
    Time soundEnd_;
    /// When the server was asked what it has not answered yet.
    std::optional<Time> asked_;
    std::optional<Time> endBy_;
    /// At the end: whether the server was told that nothing more comes, and has said that all is heard.
    bool draining_ = false;
    bool drained_ = false;

    std::thread thread_;
};

} // namespace klopfmeise
