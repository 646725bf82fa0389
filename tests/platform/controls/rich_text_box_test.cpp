#include "platform/controls/rich_text_box.h"
#include "platform/forms/form.h"
#include "tests/buehne.h"

#include <gtest/gtest.h>

namespace klopfmeise {
namespace {

class Sheet final : public Form {
public:
    explicit Sheet(FormRuntime& runtime)
        : Form(runtime, L"Sheet", {}) {}

    RichTextBox box{*this, L"box", {0, 0, 6000, 3000}};
};

class RichTextBoxTest : public testing::Test {
protected:
    RichTextBoxTest() {
        dateiSchreiben(folder_.pfad() / "text.rtf", "{\\rtf1 \\b Gro\\'df\\b0 artig\\par\\qc x}");
        EXPECT_TRUE(box_.loadFile(path(L"text.rtf")));
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

TEST_F(RichTextBoxTest, ASavedDocumentComesBackAndAMissingFileLeavesTheBoxAsItWas) {
    const RtfDocument before = box_.document();
    EXPECT_TRUE(box_.saveFile(path(L"saved.txt")));
    box_.setText(L"something else");
    EXPECT_NE(box_.document(), before);
    EXPECT_TRUE(box_.loadFile(path(L"saved.txt")));
    EXPECT_EQ(box_.document(), before);
    EXPECT_FALSE(box_.loadFile(path(L"missing.txt")));
    EXPECT_EQ(box_.document(), before);
}

} // namespace
} // namespace klopfmeise
