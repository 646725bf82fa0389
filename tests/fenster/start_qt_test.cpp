#include "formen.h"
#include "platform/forms/form_runtime.h"
#include "platform/qt/qt_backend.h"
#include "tests/ausfallende_dateien.h"
#include "tests/buehne.h"
#include "tests/fenster/ein_backend.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QThread>
#include <QTimer>
#include <QWidget>

namespace klopfmeise {

namespace {

/// A folder on a slow server: each question takes its time.
class LangsameDateien final : public AusfallendeDateien {
public:
    explicit LangsameDateien(unsigned long ms)
        : AusfallendeDateien(0, Störung::verweigert)
        , ms_(ms) {}
    std::wstring search(const std::wstring& path) override {
        QThread::msleep(ms_);
        return AusfallendeDateien::search(path);
    }

private:
    unsigned long ms_;
};

/// True if the splash was on the screen, and painted, before the title page was.
bool splashGesehen(unsigned long ms) {
    // A test before this one may have ended its program, after which the toolkit runs no loop any more.
    QTimer::singleShot(0, qApp, &QCoreApplication::quit);
    QCoreApplication::exec();
    Bühne bühne;
    LangsameDateien dateien(ms);
    FormRuntime runtime(backend(),
                        {bühne.clock, bühne.random, bühne.sound, dateien, bühne.registry, bühne.shell});
    backend().setRuntime(runtime);
    Globale global;
    formenEintragen({runtime, global});
    bool gesehen = false;
    QTimer blick;
    QObject::connect(&blick, &QTimer::timeout, [&] {
        for (const QWidget* fenster : QApplication::topLevelWidgets())
            gesehen =
                gesehen || (fenster->objectName() == QStringLiteral("frmStart") && fenster->isVisible());
    });
    blick.start(20);
    runtime.show(L"frmStart");
    QElapsedTimer zeit;
    zeit.start();
    while (zeit.elapsed() < 60)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    EXPECT_TRUE(runtime.loaded(L"Lern1"));
    for (const auto name : runtime.names())
        runtime.unload(name);
    QCoreApplication::processEvents();
    return gesehen;
}

TEST(Splash, IsSeenWhileASlowFolderIsTestedAndOnlyThen) {
    EXPECT_TRUE(splashGesehen(250));
    EXPECT_FALSE(splashGesehen(0));
}

} // namespace

} // namespace klopfmeise
