#include "platform/controls/rich_text_box.h"
#include "platform/forms/form.h"
#include "tests/buehne.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace klopfmeise {
namespace {

class Sheet final : public Form {
public:
    explicit Sheet(FormRuntime& runtime)
        : Form(runtime, L"Sheet", {}) {}

    RichTextBox box{*this, L"box", {0, 0, 6000, 3000}, {.change = [this] { ++changes; }}};
    int changes = 0;
};

class RichTextBoxTest : public testing::Test {
protected:
    RichTextBoxTest() {
        dateiSchreiben(folder_.pfad() / "text.rtf", "{\\rtf1 \\b Gro\\'df\\b0 artig\\par\\qc x}");
        EXPECT_EQ(box_.loadFile(path(L"text.rtf")), RtfOutcome::whole);
    }
    std::wstring path(std::wstring_view name) const {
        return logikpfad(folder_.pfad()) + L"\\" + std::wstring(name);
    }

    Wegwerfordner folder_;
    Bühne stage_;
    Sheet sheet_{stage_.runtime};
    RichTextBox& box_ = sheet_.box;
};

TEST_F(RichTextBoxTest, TheSelectionTakesAFormatAndItsParagraphsAnAlignment) {
    EXPECT_EQ(box_.text(), L"Großartig\r\nx");
    box_.select(0, static_cast<int>(box_.text().size()));
    box_.formatSelection({.typeface = L"Courier New", .halfPoints = 20}, RtfAlignment::left);
    ASSERT_EQ(box_.document().paragraphs.size(), 2U);
    EXPECT_EQ(box_.document().paragraphs[0].runs.size(), 1U);
    EXPECT_EQ(box_.document().paragraphs[1].alignment, RtfAlignment::left);
    box_.select(3, 2);
    box_.formatSelection({.typeface = L"Courier New", .bold = true}, RtfAlignment::right);
    ASSERT_EQ(box_.document().paragraphs[0].runs.size(), 3U);
    EXPECT_EQ(box_.document().paragraphs[0].runs[1].text, L"ßa");
    EXPECT_EQ(box_.document().paragraphs[0].alignment, RtfAlignment::right);
    EXPECT_EQ(box_.document().paragraphs[1].alignment, RtfAlignment::left);
    EXPECT_EQ(box_.text(), L"Großartig\r\nx");
}

TEST_F(RichTextBoxTest, ASavedDocumentComesBackWithTheEmptyLinesAtItsEnd) {
    for (const std::wstring text : {L"", L"a", L"a\r\n", L"a\r\n\r\n"}) {
        box_.setText(text);
        const RtfDocument before = box_.document();
        EXPECT_TRUE(box_.saveFile(path(L"saved.txt")));
        box_.setText(L"something else");
        EXPECT_EQ(box_.loadFile(path(L"saved.txt")), RtfOutcome::whole);
        EXPECT_EQ(box_.document(), before);
        EXPECT_EQ(box_.text(), text);
    }
}

TEST_F(RichTextBoxTest, AFileThatCouldNotBeReadLeavesAnEmptyBoxAndIsNotSavedOver) {
    EXPECT_EQ(box_.loadFile(path(L"missing.txt")), RtfOutcome::failed);
    EXPECT_EQ(box_.text(), L"");
    EXPECT_FALSE(std::filesystem::exists(folder_.pfad() / "missing.txt"));
    EXPECT_FALSE(box_.saveFile(path(L"text.rtf")));
    EXPECT_EQ(box_.loadFile(logikpfad(folder_.pfad())), RtfOutcome::failed);
    EXPECT_EQ(box_.loadFile(path(L"TEXT.rtf")), RtfOutcome::whole);
    EXPECT_EQ(box_.text(), L"Großartig\r\nx");
}

TEST_F(RichTextBoxTest, WhatWasCutOnReadingIsNeitherEditedNorSaved) {
    const std::string longText = "{\\rtf1 " + std::string(rtfMaxCharacters, 'a') + "\\par b}";
    dateiSchreiben(folder_.pfad() / "long.txt", longText);
    EXPECT_EQ(box_.loadFile(path(L"long.txt")), RtfOutcome::cut);
    EXPECT_EQ(box_.text().size(), rtfMaxCharacters);
    EXPECT_TRUE(box_.readOnly());
    box_.edited(documentFromPlainText(L"typed").document, 0, 0);
    box_.select(0, static_cast<int>(rtfMaxCharacters));
    box_.formatSelection(box_.ownFormat(), RtfAlignment::left);
    EXPECT_FALSE(box_.saveFile(path(L"long.txt")));
    EXPECT_FALSE(box_.saveFile(path(L"other.txt")));
    EXPECT_EQ(dateiinhalt(folder_.pfad() / "long.txt"), longText);
    EXPECT_EQ(sheet_.changes, 0);

    box_.setText(L"fresh");
    EXPECT_FALSE(box_.readOnly());
    EXPECT_TRUE(box_.saveFile(path(L"other.txt")));
    box_.setText(std::wstring(rtfMaxCharacters + 1, L'a'));
    EXPECT_FALSE(box_.saveFile(path(L"other.txt")));
}

TEST_F(RichTextBoxTest, APhotoOfManyMegabytesDoesNotCutTheText) {
    dateiSchreiben(folder_.pfad() / "photo.txt", "{\\rtf1 before{\\pict\\jpegblip " +
                                                     std::string(std::size_t{17} << 20U, 'f') + "}behind}");
    EXPECT_EQ(box_.loadFile(path(L"photo.txt")), RtfOutcome::whole);
    EXPECT_EQ(box_.text(), L"beforebehind");
}

TEST_F(RichTextBoxTest, TheUserChangesTheDocumentWithinTheBoundAndMovesTheSelection) {
    box_.edited(documentFromPlainText(L"ab\r\nc").document, 5, 0);
    EXPECT_EQ(box_.text(), L"ab\r\nc");
    EXPECT_EQ(box_.selectionStart(), 5);
    EXPECT_EQ(sheet_.changes, 1);
    box_.movedTo(1, 99);
    EXPECT_EQ(box_.selectionStart(), 1);
    EXPECT_EQ(box_.selectionLength(), 4);
    RtfDocument tooLong;
    tooLong.paragraphs.push_back({{{std::wstring(rtfMaxCharacters + 1, L'a'), {}}}});
    box_.edited(tooLong, 0, 0);
    EXPECT_EQ(box_.text(), L"ab\r\nc");
    EXPECT_EQ(sheet_.changes, 1);
}

TEST_F(RichTextBoxTest, ItsOwnFormatRoundsToHalfPoints) {
    EXPECT_EQ(box_.font().points, 9.75);
    EXPECT_EQ(box_.ownFormat().halfPoints, 20);
    box_.setText(L"a");
    EXPECT_EQ(box_.document().paragraphs[0].runs[0].format, box_.ownFormat());
}

} // namespace
} // namespace klopfmeise
