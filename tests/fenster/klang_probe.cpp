// klang_probe WORD...: plays sound files one after another as the program does, each waited for. Prints for
// each what the sound promised to last (ms), when the wait was over (s, monotonic clock) and the most memory
// until then (MiB). A number in place of a file lets so many milliseconds pass. The stream is stopped after 1
// s of rest and closed after 2.
//
// klang_probe --ende WORD: ends the player soon after it has begun a sound, a thousand times, each time a
// little later.

#include "platform/machine/posix_files.h"
#include "platform/qt/sound/pulse_sound.h"

#include <QCoreApplication>

#include <chrono>
#include <iostream>
#include <sys/resource.h>
#include <thread>

int main(int argc, char** argv) {
    using namespace std::chrono;
    std::cout << std::fixed;
    const QCoreApplication application(argc, argv);
    klopfmeise::PosixFiles files;
    if (application.arguments().value(1) == QStringLiteral("--ende")) {
        for (int i = 0; i < 1000; ++i) {
            klopfmeise::PulseSound brief(files, {});
            brief.play(application.arguments().value(2).toStdWString());
            std::this_thread::sleep_for(microseconds(i % 250));
        }
        return 0;
    }
    klopfmeise::PulseSound sound(files, {.stop = 1s, .close = 2s});
    for (const QString& word : application.arguments().mid(1)) {
        bool pause = false;
        int length = word.toInt(&pause);
        if (!pause)
            length = sound.play(word.toStdWString());
        std::this_thread::sleep_for(milliseconds(length));
        if (pause)
            continue;
        const double end = duration<double>(steady_clock::now().time_since_epoch()).count();
        rusage use{};
        getrusage(RUSAGE_SELF, &use);
        std::cout << length << ' ' << end << ' ' << use.ru_maxrss / 1024 << std::endl;
    }
}
