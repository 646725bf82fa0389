#include "tests/fenster/ein_backend.h"

#include <QElapsedTimer>
#include <QKeyEvent>
#include <QWheelEvent>
#include <QWindow>

namespace klopfmeise {

namespace {
QtBackend* backendOfMain = nullptr;
}

QtBackend& toolkit() { return *backendOfMain; }

void settle() {
    QElapsedTimer time;
    time.start();
    while (time.elapsed() < 60)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
}

void strike(QWidget& in, int key, const QString& text, Qt::KeyboardModifiers modifiers) {
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, modifiers, text);
        QCoreApplication::sendEvent(in.window()->windowHandle(), &event);
    }
    settle();
}

void turn(QWidget& over, int angle) {
    const QPointF middle = over.rect().center();
    QWheelEvent event(middle, over.mapToGlobal(middle), {}, {0, angle}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&over, &event);
    settle();
}

} // namespace klopfmeise

int main(int argc, char* argv[]) {
    testing::InitGoogleTest(&argc, argv);
    klopfmeise::QtBackend backend(argc, argv);
    klopfmeise::backendOfMain = &backend;
    return RUN_ALL_TESTS();
}
