#include "platform/controls/drawn.h"
#include "platform/controls/lists.h"
#include "platform/controls/text_box.h"
#include "tests/buehne.h"
#include "tests/fenster/ein_backend.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QWheelEvent>

namespace klopfmeise {
namespace {

class KurskontenQt : public testing::Test, public Bühne {
protected:
    KurskontenQt()
        : Bühne(nullptr, &klopfmeise::backend()) {
        klopfmeise::backend().setRuntime(runtime);
        öffnen(L"Lern1");
        runtime.show(L"einst0");
        global.AktuelleKlasse = L"Hasen\\";
        runtime.show(L"einstTastatur");
        settle();
        control<FileList>(L"File1").select(0);
        settle();
    }
    ~KurskontenQt() override { unloadAll(runtime); }
    QWidget& widget(const QString& name) {
        auto found = viewOf(*runtime.loaded(L"einstTastatur")).widget().findChildren<QWidget*>(name);
        EXPECT_EQ(found.size(), 1);
        return *found.at(0);
    }
    void drehen(QWidget& ziel, int winkel) {
        const QPointF mitte = ziel.rect().center();
        QWheelEvent event(mitte, ziel.mapToGlobal(mitte), {}, {0, winkel}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&ziel, &event);
        settle();
    }
};

TEST_F(KurskontenQt, ANameThatIsThereIsSelectedSoThatTheNextOneTakesItsPlace) {
    user.click(L"cmdNeu");
    settle();
    QWidget& box = widget("Text1");
    box.setFocus();
    const auto tippen = [&](const char* text) {
        for (const char* c = text; *c; ++c)
            strike(box, *c == '\r' ? Qt::Key_Return : Qt::Key_X, QChar(*c));
    };
    tippen("Mia\r");
    EXPECT_EQ(static_cast<QLineEdit&>(box).selectedText(), QStringLiteral("Mia"));
    // It stays selected while nothing is typed, and can be gone on with after an arrow key.
    control<TextBox>(L"Text1").repaint();
    settle();
    tippen("Ole\r");
    EXPECT_EQ(control<FileList>(L"File1").selectedName(), L"Ole._");
    tippen("Mia\r");
    strike(box, Qt::Key_End);
    control<TextBox>(L"Text1").setFocus();
    settle();
    tippen("2\r");
    EXPECT_EQ(control<FileList>(L"File1").selectedName(), L"Mia2._");
}

TEST_F(KurskontenQt, TheWheelOverTheClassesScrollsThem) {
    for (int i = 0; i < 20; ++i)
        std::filesystem::create_directory(daten() / "Gruppen" / ("Klasse " + std::to_string(10 + i)));
    runtime.unload(L"einstTastatur");
    runtime.show(L"einstKlassen");
    settle();
    QWidget& liste = *viewOf(*runtime.active()).widget().findChild<QWidget*>(QStringLiteral("frmHaupt"));
    EXPECT_EQ(caption(L"LblGruppe", 0), L"Hasen");
    drehen(liste, -120);
    EXPECT_EQ(caption(L"LblGruppe", 0), L"Klasse 12");
    for (int i = 0; i < 20; ++i)
        drehen(liste, 120);
    EXPECT_EQ(caption(L"LblGruppe", 0), L"Hasen");
}

} // namespace
} // namespace klopfmeise
