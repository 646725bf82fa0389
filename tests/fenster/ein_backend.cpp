#include "tests/fenster/ein_backend.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>

namespace klopfmeise {

namespace {
QtBackend* backendOfMain = nullptr;
}

QtBackend& backend() { return *backendOfMain; }

void settle() {
    QElapsedTimer time;
    time.start();
    while (time.elapsed() < 60)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
}

} // namespace klopfmeise

int main(int argc, char* argv[]) {
    testing::InitGoogleTest(&argc, argv);
    klopfmeise::QtBackend backend(argc, argv);
    klopfmeise::backendOfMain = &backend;
    return RUN_ALL_TESTS();
}
