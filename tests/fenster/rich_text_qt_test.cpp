#include "tests/fenster/ein_backend.h"

#include <QClipboard>
#include <QTextEdit>

namespace klopfmeise {
namespace {

class Bogen final : public NotingForm {
public:
    using NotingForm::NotingForm;
    RichTextBox box{*this,
                    L"box",
                    {300, 300, 8000, 5000},
                    {.change = diary.noting("change"), .overflow = diary.noting("overflow")}};
};

/// An editor in a window of its own, on files of the test.
class EditorQt : public OnToolkit<Playground> {
protected:
    EditorQt() {
        add<Bogen>(L"Bogen", {.kind = FormKind::window, .width = 9000, .height = 6000});
        runtime.show(L"Bogen");
        settle();
        edit = widget(L"Bogen").findChild<QTextEdit*>();
        edit->setFocus();
    }

    void laden(std::string_view bytes) {
        dateiSchreiben(ordner.pfad() / "text.txt", bytes);
        box().loadFile(logikpfad(ordner.pfad() / "text.txt"));
        settle();
        diary.take();
    }
    void taste(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        strike(*edit, key, {}, modifiers);
    }
    void tippen(const QString& text, int key = Qt::Key_X) { strike(*edit, key, text); }
    void mitStrg(int key) { strike(*edit, key, QChar(key - '@'), Qt::ControlModifier); }
    void einfügen(const QString& text) {
        QGuiApplication::clipboard()->setText(text);
        mitStrg(Qt::Key_V);
    }
    RichTextBox& box() { return form<Bogen>(L"Bogen").box; }
    std::vector<RtfRun> läufe(std::size_t absatz = 0) { return box().document().paragraphs.at(absatz).runs; }

    const Wegwerfordner ordner;
    QTextEdit* edit = nullptr;
};

TEST_F(EditorQt, ThereIsNoUndo) {
    laden("{\\rtf1 Igel}");
    EXPECT_EQ(edit->toPlainText(), QStringLiteral("Igel"));
    taste(Qt::Key_End);
    tippen("n");
    mitStrg(Qt::Key_Z);
    mitStrg(Qt::Key_Z);
    EXPECT_EQ(box().text(), L"Igeln");
    EXPECT_EQ(edit->toPlainText(), QStringLiteral("Igeln"));
    EXPECT_EQ(diary.take(), "change");
}

TEST_F(EditorQt, WhatIsTypedIntoTheEmptiedBoxLooksLikeTheBox) {
    for (const bool allesAufEinmal : {false, true}) {
        laden("{\\rtf1{\\fonttbl{\\f0 Arial;}}{\\colortbl;\\red255;}\\f0\\fs60\\b\\i\\ul\\cf1 eins\\par "
              "zwei\\par}");
        if (allesAufEinmal)
            mitStrg(Qt::Key_A);
        for (int i = 0; i < (allesAufEinmal ? 1 : 9); ++i)
            taste(Qt::Key_Delete);
        ASSERT_EQ(box().text(), L"");
        tippen("x");
        EXPECT_EQ(läufe(), (std::vector<RtfRun>{{L"x", box().ownFormat()}}));
    }
    // An empty line of a text goes on in the format above it.
    laden("{\\rtf1\\fs60 eins\\par\\par}");
    taste(Qt::Key_End, Qt::ControlModifier);
    tippen("z");
    ASSERT_EQ(läufe(1).size(), 1U);
    EXPECT_EQ(läufe(1)[0].format.halfPoints, 60);
}

TEST_F(EditorQt, PlacesAreThoseOfTheModelBehindLineEndsAndEmoji) {
    laden("{\\rtf1 a\\u-10179?\\u-8704?b\\par c\\line d\\u8232?e}");
    EXPECT_EQ(box().text(), L"a\U0001F600b\r\nc\r\nd\r\ne");
    taste(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(box().selectionStart(), static_cast<int>(box().text().size()));
    EXPECT_EQ(diary.take(), "");

    for (const auto& [place, letter] :
         {std::pair{1, L'x'}, {3, L'y'}, {4, L'z'}, {8, L'u'}, {12, L'v'}, {16, L'w'}}) {
        box().select(place, 0);
        settle();
        tippen(QChar(letter));
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
    tippen(QChar(0xA0), Qt::Key_Space);
    einfügen(QString::fromUtf8("b\xC2\xA0\xE2\x80\x8B\xF0\x9F\x98\x80\r\nc\x01\xE2\x80\xA9"));
    EXPECT_EQ(box().text(), L"a b \U0001F600\r\nc\r\n");
    EXPECT_EQ(box().selectionStart(), static_cast<int>(box().text().size()));

    laden("{\\rtf1 " + std::string(rtfMaxCharacters - 3, 'a') + "}");
    taste(Qt::Key_End, Qt::ControlModifier);
    tippen("\r", Qt::Key_Return);
    EXPECT_EQ(box().text().size(), rtfMaxCharacters - 1);
    tippen("\r", Qt::Key_Return);
    EXPECT_EQ(diary.take(), "change overflow");
    einfügen(QStringLiteral("bc"));
    EXPECT_EQ(diary.take(), "change overflow") << "told behind the change";
    tippen("d");
    EXPECT_EQ(diary.take(), "overflow") << "nothing changed, but the key did not fit";
    EXPECT_EQ(box().text().size(), rtfMaxCharacters);
    EXPECT_TRUE(box().text().ends_with(L"a\r\nb"));
    EXPECT_EQ(edit->toPlainText().size(), static_cast<int>(rtfMaxCharacters) - 1);
    taste(Qt::Key_Left, Qt::ShiftModifier);
    tippen("e");
    EXPECT_TRUE(box().text().ends_with(L"a\r\ne"));
}

} // namespace
} // namespace klopfmeise
