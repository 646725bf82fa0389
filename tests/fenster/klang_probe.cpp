// klang_probe FILE...: plays sounds one after another as the program does, each waited for. Prints for each
// what the sound promised to last (ms), how long its order took (µs) and when the wait was over (s, monotonic
// clock). A number in place of a file lets so many milliseconds pass.

#include "platform/machine/posix_files.h"
#include "platform/qt/late_sound.h"

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
    klopfmeise::LateSound sound(files);
    for (const QString& word : application.arguments().mid(1)) {
        bool pause = false;
        if (const int length = word.toInt(&pause); pause) {
            std::this_thread::sleep_for(milliseconds(length));
            continue;
        }
        const int length = sound.play(word.toStdWString());
        std::this_thread::sleep_for(milliseconds(length));
        const double end = duration<double>(steady_clock::now().time_since_epoch()).count();
        rusage use{};
        getrusage(RUSAGE_SELF, &use);
        std::cout << length << ' ' << end << ' ' << use.ru_maxrss / 1024 << std::endl;
    }
}
