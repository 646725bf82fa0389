#include "tests/platform/diary.h"

namespace klopfmeise {
namespace {

class Controls : public testing::Test, public Playground {
protected:
    NotingForm sheet{runtime, L"Sheet", {}, diary};
};

TEST_F(Controls, LaterMadeLiesAboveAndIsFoundByTheMouse) {
    Frame page(sheet, L"page", {0, 0, 3000, 3000});
    const Label low(page, L"low", {0, 0, 1000, 1000});
    auto middle = std::make_unique<Label>(page, L"middle", Rect{500, 0, 1000, 1000});
    Label high(page, L"high", {900, 0, 1000, 1000});
    const Button button(page, L"button", {0, 0, 2000, 1000});
    const Shape shape(page, L"shape", {0, 0, 2000, 1000});
    const auto at = [&](int x) { return page.drawnControlAt(x, 10); };
    EXPECT_EQ(at(499), &low);
    EXPECT_EQ(at(899), middle.get());
    EXPECT_EQ(at(1900), nullptr);
    high.hide();
    EXPECT_EQ(at(900), middle.get());
    high.show();
    high.setLeft(400);
    EXPECT_EQ(at(600), &high);
    middle.reset();
    std::wstring painted;
    page.forEachIn({600, 0, 10, 10},
                   [&](const Control& control) { painted.append(control.name()).append(L" "); });
    EXPECT_EQ(painted, L"low high button shape ");
}

TEST_F(Controls, AValueLiesWithinItsBoundsHoweverTheyMove) {
    Slider slider{sheet, L"slider", {}, {.min = 1, .max = 9, .value = 12, .change = diary.noting("high")}};
    EXPECT_EQ(slider.value(), 9);
    slider.setMax(5);
    EXPECT_EQ(slider.value(), 5);
    EXPECT_EQ(diary.take(), "") << "the program's own changes are not told";
}

class RichTextBoxTest : public Controls {
protected:
    RichTextBoxTest() {
        EXPECT_EQ(loaded("text.rtf", "{\\rtf1 \\b Gro\\'df\\b0 artig\\par\\qc x}"), RtfOutcome::whole);
    }
    std::wstring path(std::string_view name) const { return logikpfad(folder_.pfad() / name); }
    RtfOutcome loaded(std::string_view name, std::string_view bytes) {
        dateiSchreiben(folder_.pfad() / name, bytes);
        return box_.loadFile(path(name));
    }

    Wegwerfordner folder_;
    RichTextBox box_{sheet, L"box", {0, 0, 6000, 3000}, {.change = diary.noting("change")}};
};

TEST_F(RichTextBoxTest, ASavedDocumentComesBackWithTheEmptyLinesAtItsEnd) {
    EXPECT_EQ(box_.font().points, 9.75);
    for (const std::wstring text : {L"", L"a\r\n", L"a\r\n\r\n", L"\r\n\r\na\tb €"}) {
        box_.setText(text);
        const RtfDocument before = box_.document();
        EXPECT_TRUE(box_.saveFile(path("saved.txt")));
        box_.setText(L"something else");
        EXPECT_EQ(box_.loadFile(path("saved.txt")), RtfOutcome::whole);
        EXPECT_EQ(box_.document(), before);
        EXPECT_EQ(box_.text(), text);
    }
    EXPECT_EQ(box_.document().paragraphs.back().runs[0].format.halfPoints, 20) << "9.75 points, rounded";
}

TEST_F(RichTextBoxTest, AFileThatCouldNotBeReadLeavesAnEmptyBoxAndIsNotSavedOver) {
    EXPECT_EQ(box_.loadFile(path("missing.txt")), RtfOutcome::failed);
    EXPECT_EQ(box_.text(), L"");
    EXPECT_FALSE(fs::exists(folder_.pfad() / "missing.txt"));
    EXPECT_FALSE(box_.saveFile(path("text.rtf")));
    EXPECT_EQ(box_.loadFile(path("")), RtfOutcome::failed);
    EXPECT_EQ(box_.loadFile(path("TEXT.rtf")), RtfOutcome::whole);
    EXPECT_EQ(box_.text(), L"Großartig\r\nx");
}

TEST_F(RichTextBoxTest, WhatWasCutOnReadingIsNeitherEditedNorSaved) {
    const std::string longText = "{\\rtf1 " + std::string(rtfMaxCharacters, 'a') + "\\par b}";
    EXPECT_EQ(loaded("long.txt", longText), RtfOutcome::cut);
    EXPECT_TRUE(box_.readOnly());
    box_.edited(documentFromPlainText(L"typed").document, 0, 0);
    box_.select(0, static_cast<int>(rtfMaxCharacters));
    box_.formatSelection(box_.ownFormat(), RtfAlignment::left);
    EXPECT_FALSE(box_.saveFile(path("long.txt")) || box_.saveFile(path("other.txt")));
    EXPECT_EQ(dateiinhalt(folder_.pfad() / "long.txt"), longText);
    EXPECT_EQ(box_.text().size(), rtfMaxCharacters);
    EXPECT_EQ(diary.take(), "");
    box_.setText(std::wstring(rtfMaxCharacters + 1, L'a'));
    EXPECT_FALSE(box_.saveFile(path("other.txt")));
}

} // namespace
} // namespace klopfmeise
