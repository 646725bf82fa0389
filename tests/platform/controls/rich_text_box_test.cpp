#include "platform/controls/rich_text_box.h"
#include "platform/forms/form.h"
#include "tests/buehne.h"

#include <gtest/gtest.h>

namespace klopfmeise {
namespace {

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
    Form sheet_{stage_.runtime, L"Sheet", {}};
    int changes_ = 0;
    RichTextBox box_{sheet_, L"box", {0, 0, 6000, 3000}, {.change = [this] { ++changes_; }}};
};

TEST_F(RichTextBoxTest, ASavedDocumentComesBackWithTheEmptyLinesAtItsEnd) {
    EXPECT_EQ(box_.font().points, 9.75);
    for (const std::wstring text : {L"", L"a\r\n", L"a\r\n\r\n", L"\r\n\r\na\tb €"}) {
        box_.setText(text);
        const RtfDocument before = box_.document();
        EXPECT_TRUE(box_.saveFile(path(L"saved.txt")));
        box_.setText(L"something else");
        EXPECT_EQ(box_.loadFile(path(L"saved.txt")), RtfOutcome::whole);
        EXPECT_EQ(box_.document(), before);
        EXPECT_EQ(box_.text(), text);
    }
    EXPECT_EQ(box_.document().paragraphs.back().runs[0].format.halfPoints, 20) << "9.75 points, rounded";
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
    EXPECT_TRUE(box_.readOnly());
    box_.edited(documentFromPlainText(L"typed").document, 0, 0);
    box_.select(0, static_cast<int>(rtfMaxCharacters));
    box_.formatSelection(box_.ownFormat(), RtfAlignment::left);
    EXPECT_FALSE(box_.saveFile(path(L"long.txt")));
    EXPECT_FALSE(box_.saveFile(path(L"other.txt")));
    EXPECT_EQ(dateiinhalt(folder_.pfad() / "long.txt"), longText);
    EXPECT_EQ(box_.text().size(), rtfMaxCharacters);
    EXPECT_EQ(changes_, 0);
    box_.setText(std::wstring(rtfMaxCharacters + 1, L'a'));
    EXPECT_FALSE(box_.saveFile(path(L"other.txt")));
}

} // namespace
} // namespace klopfmeise
