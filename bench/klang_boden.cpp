// klang_boden WAVE: the least that a sound takes. An open stream, no window, no keys: at each byte from
// standard input the wave is handed to the sound server. Writes one byte when it is ready.

#include "platform/machine/posix_files.h"
#include "platform/qt/sound/wave.h"
#include "platform/values/text.h"

#include <memory>
#include <pulse/pulseaudio.h>
#include <thread>
#include <unistd.h>

int main(int argc, char** argv) {
    using namespace klopfmeise;
    const auto file = argc == 2 ? PosixFiles().readAll(fromUtf8(argv[1]), 1 << 20) : std::nullopt;
    const Wave wave = file ? readWave(*file) : Wave{};
    if (wave.empty())
        return 2;
    // Held to the end of the process, as the server's thread uses them to there.
    pa_threaded_mainloop* loop = pa_threaded_mainloop_new();
    pa_context* context = pa_context_new(pa_threaded_mainloop_get_api(loop), "klang_boden");
    pa_threaded_mainloop_start(loop);
    const auto until = [&](auto ready) {
        for (bool done = false; !done; std::this_thread::sleep_for(std::chrono::milliseconds(1))) {
            pa_threaded_mainloop_lock(loop);
            done = ready();
            pa_threaded_mainloop_unlock(loop);
        }
    };
    pa_threaded_mainloop_lock(loop);
    if (pa_context_connect(context, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) < 0)
        return 1;
    pa_threaded_mainloop_unlock(loop);
    until([&] { return pa_context_get_state(context) == PA_CONTEXT_READY; });
    constexpr pa_sample_spec format{PA_SAMPLE_S16NE, waveRate, 1};
    constexpr auto theirs = static_cast<std::uint32_t>(-1);
    constexpr pa_buffer_attr buffering{theirs, 2 * waveRate / 50, 0, theirs, theirs};
    pa_threaded_mainloop_lock(loop);
    pa_stream* stream = pa_stream_new(context, "Boden", &format, nullptr);
    pa_stream_connect_playback(stream, nullptr, &buffering, PA_STREAM_ADJUST_LATENCY, nullptr, nullptr);
    pa_threaded_mainloop_unlock(loop);
    until([&] { return pa_stream_get_state(stream) == PA_STREAM_READY; });
    char byte = 0;
    if (write(STDOUT_FILENO, &byte, 1) != 1)
        return 1;
    while (read(STDIN_FILENO, &byte, 1) == 1) {
        pa_threaded_mainloop_lock(loop);
        pa_stream_write(stream, wave.data(), wave.size() * 2, nullptr, 0, PA_SEEK_RELATIVE_ON_READ);
        pa_threaded_mainloop_unlock(loop);
    }
    _exit(0);
}
