#include "platform/controls/rich_text_box.h"
#include "platform/forms/form_runtime.h"
#include "platform/qt/qt_form_view.h"
#include "platform/qt/qt_text.h"
#include "tests/buehne.h"
#include "tests/fenster/ein_backend.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QTextEdit>
#include <QWindow>

#include <memory>

namespace klopfmeise {
namespace {

class Bogen final : public Form {
public:
    explicit Bogen(FormRuntime& runtime)
        : Form(runtime, L"Bogen", {.kind = FormKind::window, .width = 9000, .height = 6000}) {}

    RichTextBox box{*this, L"box", {300, 300, 8000, 5000}, {.change = [this] { ++änderungen; }}};
    int änderungen = 0;
};

/// An editor in a window of its own, on files of the test.
class EditorQt : public testing::Test {
protected:
    EditorQt()
        : runtime(backend(),
                  {bühne.clock, bühne.random, bühne.sound, bühne.echteDateien, bühne.registry, bühne.shell}) {
        backend().setRuntime(runtime);
        runtime.add(L"Bogen", [this] { return std::make_unique<Bogen>(runtime); });
        runtime.show(L"Bogen");
        settle();
        bogen = static_cast<Bogen*>(runtime.loaded(L"Bogen"));
        fenster = &static_cast<QtFormView*>(bogen->view())->widget();
        edit = fenster->findChild<QTextEdit*>();
        edit->setFocus();
    }
    ~EditorQt() override {
        runtime.unload(L"Bogen");
        settle();
    }

    void laden(std::string_view bytes) {
        dateiSchreiben(bühne.ordner.pfad() / "text.txt", bytes);
        geladen = box().loadFile(logikpfad(bühne.ordner.pfad()) + L"\\text.txt");
        settle();
    }
    void taste(int key, const QString& text = {}, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        for (const auto art : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(art, key, modifiers, text);
            QCoreApplication::sendEvent(fenster->window()->windowHandle(), &event);
            settle();
        }
    }
    void einfügen(const QString& text) {
        QGuiApplication::clipboard()->setText(text);
        taste(Qt::Key_V, QStringLiteral("\x16"), Qt::ControlModifier);
    }
    RichTextBox& box() { return bogen->box; }
    std::vector<RtfRun> läufe(std::size_t absatz = 0) { return box().document().paragraphs.at(absatz).runs; }

    Bühne bühne;
    FormRuntime runtime;
    Bogen* bogen = nullptr;
    QWidget* fenster = nullptr;
    QTextEdit* edit = nullptr;
    RtfOutcome geladen = RtfOutcome::failed;
};

TEST_F(EditorQt, ThereIsNoUndo) {
    laden("{\\rtf1 Igel}");
    EXPECT_EQ(edit->toPlainText(), QStringLiteral("Igel"));
    taste(Qt::Key_End);
    taste(Qt::Key_N, QStringLiteral("n"));
    taste(Qt::Key_Z, QStringLiteral("\x1a"), Qt::ControlModifier);
    taste(Qt::Key_Z, QStringLiteral("\x1a"), Qt::ControlModifier);
    EXPECT_EQ(box().text(), L"Igeln");
    EXPECT_EQ(edit->toPlainText(), QStringLiteral("Igeln"));
    EXPECT_EQ(bogen->änderungen, 1);
}

TEST_F(EditorQt, WhatIsTypedIntoTheEmptiedBoxLooksLikeTheBox) {
    const std::string bunt =
        "{\\rtf1{\\fonttbl{\\f0 Arial;}}{\\colortbl;\\red255;}\\f0\\fs60\\b\\i\\ul\\cf1 eins\\par zwei\\par}";
    laden(bunt);
    for (int i = 0; i < 9; ++i)
        taste(Qt::Key_Delete);
    ASSERT_EQ(box().text(), L"");
    taste(Qt::Key_X, QStringLiteral("x"));
    EXPECT_EQ(läufe(), (std::vector<RtfRun>{{L"x", box().ownFormat()}}));

    laden(bunt);
    taste(Qt::Key_A, QStringLiteral("\x01"), Qt::ControlModifier);
    taste(Qt::Key_Delete);
    ASSERT_EQ(box().text(), L"");
    taste(Qt::Key_X, QStringLiteral("x"));
    EXPECT_EQ(läufe(), (std::vector<RtfRun>{{L"x", box().ownFormat()}}));
    taste(Qt::Key_Backspace);
    taste(Qt::Key_Left);
    taste(Qt::Key_Return, QStringLiteral("\r"));
    taste(Qt::Key_Y, QStringLiteral("y"));
    ASSERT_EQ(box().text(), L"\r\ny");
    EXPECT_EQ(läufe(1), (std::vector<RtfRun>{{L"y", box().ownFormat()}}));
    EXPECT_EQ(box().ownFormat().halfPoints, 20);

    // An empty line of a text goes on in the format above it.
    laden("{\\rtf1\\fs60 eins\\par\\par}");
    taste(Qt::Key_End, {}, Qt::ControlModifier);
    taste(Qt::Key_Z, QStringLiteral("z"));
    ASSERT_EQ(läufe(1).size(), 1U);
    EXPECT_EQ(läufe(1)[0].format.halfPoints, 60);
}

TEST_F(EditorQt, PlacesAreThoseOfTheModelBehindLineEndsAndEmoji) {
    laden("{\\rtf1 a\\u-10179?\\u-8704?b\\par c\\line d\\u8232?e}");
    EXPECT_EQ(box().text(), L"a\U0001F600b\r\nc\r\nd\r\ne");
    taste(Qt::Key_Right);
    taste(Qt::Key_Right);
    EXPECT_EQ(box().selectionStart(), 2);
    taste(Qt::Key_Right, {}, Qt::ShiftModifier);
    EXPECT_EQ(box().selectionStart(), 2);
    EXPECT_EQ(box().selectionLength(), 1);
    taste(Qt::Key_End, {}, Qt::ControlModifier);
    EXPECT_EQ(box().selectionStart(), static_cast<int>(box().text().size()));
    EXPECT_EQ(bogen->änderungen, 0);

    for (const auto& [place, letter] :
         {std::pair{1, L'x'}, {3, L'y'}, {4, L'z'}, {8, L'u'}, {12, L'v'}, {16, L'w'}}) {
        box().select(place, 0);
        settle();
        taste(0, QString(QChar(letter)));
        EXPECT_EQ(box().text()[static_cast<std::size_t>(place)], letter) << place;
        EXPECT_EQ(box().selectionStart(), place + 1);
    }
    EXPECT_EQ(box().text(), L"ax\U0001F600yzb\r\nuc\r\nvd\r\nwe");
    box().select(2, 1);
    settle();
    taste(Qt::Key_Delete);
    EXPECT_EQ(box().text(), L"axyzb\r\nuc\r\nvd\r\nwe");
}

TEST_F(EditorQt, WhatNoKeyTypesAndWhatIsTooMuchDoesNotGetIn) {
    laden("{\\rtf1 a}");
    taste(Qt::Key_End);
    taste(Qt::Key_Space, QString(QChar(0xA0)));
    einfügen(QString::fromUtf8("b\xC2\xA0\xE2\x80\x8B\xF0\x9F\x98\x80\r\nc\x01\xE2\x80\xA9"));
    EXPECT_EQ(box().text(), L"a b \U0001F600\r\nc\r\n");
    EXPECT_EQ(box().selectionStart(), static_cast<int>(box().text().size()));

    laden("{\\rtf1 " + std::string(rtfMaxCharacters - 3, 'a') + "}");
    taste(Qt::Key_End, {}, Qt::ControlModifier);
    taste(Qt::Key_Return, QStringLiteral("\r"));
    EXPECT_EQ(box().text().size(), rtfMaxCharacters - 1);
    taste(Qt::Key_Return, QStringLiteral("\r"));
    einfügen(QStringLiteral("bc"));
    taste(Qt::Key_D, QStringLiteral("d"));
    EXPECT_EQ(box().text().size(), rtfMaxCharacters);
    EXPECT_TRUE(box().text().ends_with(L"a\r\nb"));
    EXPECT_EQ(edit->toPlainText().size(), static_cast<int>(rtfMaxCharacters) - 1);
    taste(Qt::Key_Left, {}, Qt::ShiftModifier);
    taste(Qt::Key_E, QStringLiteral("e"));
    EXPECT_TRUE(box().text().ends_with(L"a\r\ne"));
}

TEST_F(EditorQt, ACutTextCannotBeTypedInto) {
    laden("{\\rtf1 " + std::string(rtfMaxCharacters + 1, 'a') + "}");
    EXPECT_EQ(geladen, RtfOutcome::cut);
    taste(Qt::Key_Delete);
    taste(Qt::Key_X, QStringLiteral("x"));
    EXPECT_EQ(edit->toPlainText().size(), static_cast<int>(rtfMaxCharacters));
    EXPECT_EQ(bogen->änderungen, 0);
    box().setText(L"");
    settle();
    taste(Qt::Key_X, QStringLiteral("x"));
    EXPECT_EQ(box().text(), L"x");
    EXPECT_EQ(bogen->änderungen, 1);
}

} // namespace
} // namespace klopfmeise
