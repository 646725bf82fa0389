#include "platform/controls/checks.h"
#include "platform/controls/drawn.h"
#include "platform/controls/lists.h"
#include "platform/controls/ranges.h"
#include "platform/controls/text_box.h"
#include "tests/buehne.h"
#include "tests/fenster/ein_backend.h"

#include <gtest/gtest.h>

#include <QAccessible>
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
    int lektion() { return static_cast<int>(zahlAus(satz(Kontosatz::Lektionsnummer)).value_or(0)); }
    void drehen(QWidget& ziel, int winkel) {
        const QPointF mitte = ziel.rect().center();
        QWheelEvent event(mitte, ziel.mapToGlobal(mitte), {}, {0, winkel}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&ziel, &event);
        settle();
    }
};

TEST_F(KurskontenQt, ASliderMovesByItsStepsAndANotchOfTheWheelIsTheSmallOne) {
    QWidget& slider = widget("sldLektion");
    EXPECT_EQ(lektion(), 0) << "showing a child has written it";
    slider.setFocus();
    for (const auto& [key, after] : {std::pair(Qt::Key_Right, 2), std::pair(Qt::Key_PageUp, 7),
                                     std::pair(Qt::Key_PageDown, 2), std::pair(Qt::Key_End, 30)}) {
        strike(slider, key, "");
        settle();
        EXPECT_EQ(lektion(), after);
    }
    drehen(slider, -120);
    EXPECT_EQ(lektion(), 29);
    drehen(slider, -60);
    EXPECT_EQ(lektion(), 29);
    drehen(slider, -60);
    EXPECT_EQ(lektion(), 28);
}

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

TEST_F(KurskontenQt, AnOptionInTwoLinesIsTextForWhoHearsItAndCanBePressed) {
    QWidget& option = widget("optDurchgang(0)");
    QAccessibleInterface* heard = QAccessible::queryAccessibleInterface(&option);
    EXPECT_EQ(heard->text(QAccessible::Name),
              QStringLiteral("Durchgang bei Fehler in einzeiligen Stufen zu Ende tippen (empfohlen)"));
    EXPECT_EQ(heard->role(), QAccessible::RadioButton);
    EXPECT_TRUE(heard->state().checked);
    QAccessibleInterface* other = QAccessible::queryAccessibleInterface(&widget("optDurchgang(1)"));
    other->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    settle();
    EXPECT_TRUE(other->state().checked);
    EXPECT_FALSE(heard->state().checked);
    EXPECT_EQ(satz(Kontosatz::Fehlerstopp), Wert(std::int16_t{1}));
    // Its caption is drawn, in each of the two lines.
    const QImage image = option.grab().toImage();
    for (const int half : {0, 1}) {
        const QRect line(image.width() / 8, half * image.height() / 2, image.width() / 2, image.height() / 2);
        QImage plain = image.copy(line);
        plain.fill(plain.pixelColor(0, 0));
        EXPECT_NE(image.copy(line), plain) << half;
    }
}

} // namespace
} // namespace klopfmeise
