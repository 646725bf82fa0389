#include "platform/controls/control_array.h"
#include "platform/controls/visit.h"
#include "tests/buehne.h"
#include "tests/platform/diary.h"

#include <gtest/gtest.h>

namespace klopfmeise {
namespace {

/// One control of each kind that has a value; each handler notes the value that it finds.
class Sheet final : public NotingForm {
public:
    using NotingForm::NotingForm;

    Handler value(const std::string& name, const auto& control) {
        return [this, name, &control] { diary.note(name + std::to_string(control.value())); };
    }
    ListLook list(const ListControl& made) {
        return {.pattern = L"*.txt",
                .mouseDown =
                    [this, &made](MouseButton button) {
                        diary.note((button == MouseButton::right ? "right" : "left") +
                                   std::to_string(made.selected()));
                    },
                .click = [this, &made] { diary.note("click" + std::to_string(made.selected())); }};
    }

    TextBox text{*this, L"text", {}, {.text = L"first", .change = diary.noting("text")}};
    RichTextBox rich{*this, L"rich", {}, {.change = diary.noting("rich")}};
    FileList files{*this, L"files", {}, list(files)};
    FolderList folders{*this, L"folders", {}, list(folders)};
    ScrollBar bar{*this, L"bar", {}, {.max = 10, .value = 3, .change = value("bar", bar)}};
    ControlArray<Slider> sliders{*this,
                                 L"sliders",
                                 0,
                                 3,
                                 [](int) { return Rect{}; },
                                 [this](int i) {
                                     return RangeLook{
                                         .min = 1, .max = 9, .value = 4 * i, .change = [this, i] {
                                             diary.note("slider" + std::to_string(sliders(i).value()));
                                         }};
                                 }};
    CheckLook check(const std::string& name, int value) {
        return {.value = value, .click = diary.noting(name)};
    }
    ControlArray<OptionButton> options{*this,
                                       L"options",
                                       0,
                                       5,
                                       [](int) { return Rect{}; },
                                       [this](int i) { return check("option" + std::to_string(i), i < 2); }};
    Frame frame{*this, L"frame", {}};
    OptionButton other{frame, L"other", {}, check("other", 1)};
    CheckBox box{*this, L"box", {}, {.value = -1, .click = value("box", box)}};
};

class ControlsTest : public testing::Test, public Playground {
protected:
    std::string options() const {
        std::string values;
        for (int i = 0; i < 6; ++i)
            values += std::to_string(sheet.options(i).value());
        return values + std::to_string(sheet.other.value());
    }
    Sheet sheet{runtime, L"Sheet", {}, diary};
};

TEST_F(ControlsTest, OnlyWhatTheUserDoesCallsHandlers) {
    EXPECT_EQ(diary.take(), "") << "making the controls";
    sheet.text.setText(L"second");
    sheet.text.setCaret(2);
    sheet.rich.setText(L"second");
    sheet.rich.select(0, 3);
    sheet.rich.formatSelection({.typeface = L"Arial", .bold = true}, RtfAlignment::right);
    sheet.bar.setValue(7);
    sheet.bar.setMax(5);
    sheet.sliders(2).setMin(6);
    sheet.options(3).setValue(1);
    sheet.box.setValue(1);
    EXPECT_EQ(diary.take(), "");

    sheet.text.edited(L"third", 99);
    sheet.text.edited(L"third", 0);
    EXPECT_EQ(diary.take(), "text");
    RtfDocument document = sheet.rich.document();
    sheet.rich.edited(document, 1, 2);
    document.paragraphs.front().alignment = RtfAlignment::center;
    sheet.rich.edited(document, 1, 2);
    EXPECT_EQ(diary.take(), "rich");
    for (const int to : {5, 2, 2, -7})
        sheet.bar.movedTo(to);
    sheet.sliders(2).movedTo(99);
    EXPECT_EQ(diary.take(), "bar2 bar0 slider9");
    sheet.options(3).pressed();
    sheet.box.pressed();
    sheet.box.pressed();
    EXPECT_EQ(diary.take(), "option3 box0 box1");
}

TEST_F(ControlsTest, AValueLiesWithinItsBoundsFromTheBeginningOn) {
    EXPECT_EQ(sheet.sliders(0).value(), 1);
    EXPECT_EQ(sheet.sliders(3).value(), 9);
    sheet.sliders(3).setMax(5);
    EXPECT_EQ(sheet.sliders(3).value(), 5);
    sheet.sliders(0).setMin(3);
    EXPECT_EQ(sheet.sliders(0).value(), 3);
    sheet.sliders(0).setMax(2);
    EXPECT_EQ(sheet.sliders(0).value(), 3) << "crossed bounds";
    sheet.text.setText(L"four");
    sheet.text.setCaret(9);
    EXPECT_EQ(sheet.text.caret(), 4);
    sheet.text.setText(L"2");
    EXPECT_EQ(sheet.text.caret(), 1);
    sheet.text.edited(L"", 1);
    EXPECT_EQ(sheet.text.caret(), 0);
}

TEST_F(ControlsTest, TheOptionsOfAContainerAreAGroup) {
    EXPECT_EQ(options(), "0100001") << "of two that are made on, the later one stays";
    EXPECT_EQ(sheet.box.value(), 0) << "what is not 1 is off";
    sheet.options(4).pressed();
    EXPECT_EQ(options(), "0000101");
    sheet.other.setValue(2);
    EXPECT_EQ(options(), "0000100");
    sheet.other.pressed();
    sheet.box.setValue(1);
    sheet.options(0).setValue(1);
    EXPECT_EQ(options(), "1000001");
    EXPECT_EQ(sheet.box.value(), 1);
}

TEST_F(ControlsTest, ASelectionInAListCountsAsAClick) {
    const Wegwerfordner folder;
    for (const char* name : {"b.txt", "d.txt", "x.rtf", "inner/deep/b.txt"})
        dateiSchreiben(folder.pfad() / name, "");
    sheet.files.setPath(logikpfad(folder.pfad()));
    sheet.folders.setPath(logikpfad(folder.pfad()));
    ASSERT_EQ(*sheet.files.items(), (ListControl::Items{L"b.txt", L"d.txt"}));
    ASSERT_EQ(*sheet.folders.items(), ListControl::Items{L"inner"});
    for (const int row : {1, 1, 7, -1})
        sheet.files.select(row);
    EXPECT_EQ(diary.take(), "click1 click1")
        << "a row that does not exist takes the selection away, silently";
    EXPECT_EQ(sheet.files.selected(), -1);
    sheet.files.pressed(0, MouseButton::right);
    sheet.files.clicked();
    sheet.files.pressed(-1, MouseButton::left);
    sheet.files.movedTo(0);
    sheet.files.movedTo(1);
    EXPECT_EQ(diary.take(), "right0 click0 left0 click1");

    dateiSchreiben(folder.pfad() / "c.txt", "");
    sheet.files.refresh();
    EXPECT_EQ(sheet.files.selectedName(), L"d.txt");
    std::filesystem::remove(folder.pfad() / "d.txt");
    sheet.files.refresh();
    EXPECT_EQ(sheet.files.selected(), -1);
    sheet.folders.select(0);
    sheet.folders.setPath(sheet.folders.path() + L"\\inner");
    EXPECT_EQ(sheet.folders.selected(), -1);
    EXPECT_EQ(sheet.folders.item(0), L"deep");
    EXPECT_EQ(diary.take(), "click0");
}

TEST_F(ControlsTest, TheCaptionIsReadOutElseTheTipElseWhatTheControlIsSaidToBe) {
    const OptionButton all(sheet, L"o", {}, {.caption = L"caption", .toolTip = L"tip", .spoken = L"spoken"});
    const OptionButton two(sheet, L"o", {}, {.toolTip = L"tip", .spoken = L"spoken"});
    const Picture picture(sheet, L"p", {}, {.spoken = L"spoken"});
    const Button button(sheet, L"b", {}, {.toolTip = L"tip"});
    const Line line(sheet, L"l", {});
    EXPECT_EQ(all.spokenName(), L"caption");
    EXPECT_EQ(two.spokenName(), L"tip");
    EXPECT_EQ(picture.spokenName(), L"spoken");
    EXPECT_EQ(button.spokenName(), L"tip");
    EXPECT_EQ(line.spokenName(), L"");
}

TEST_F(ControlsTest, LaterMadeLiesAboveAndIsFoundByTheMouse) {
    Frame page(sheet, L"page", {0, 0, 3000, 3000});
    Label low(page, L"low", {0, 0, 1000, 1000});
    auto middle = std::make_unique<Label>(page, L"middle", Rect{500, 0, 1000, 1000});
    Label high(page, L"high", {900, 0, 1000, 1000});
    const Button button(page, L"button", {0, 0, 2000, 1000});
    const Shape shape(page, L"shape", {0, 0, 2000, 1000});
    const auto at = [&](int x) { return page.drawnControlAt(x, 10); };
    const auto painted = [&](const Rect& area) {
        std::wstring names;
        page.forEachIn(area, [&](const Control& control) { names.append(control.name()).append(L" "); });
        return names;
    };
    EXPECT_EQ(at(499), &low);
    EXPECT_EQ(at(899), middle.get());
    EXPECT_EQ(at(900), &high);
    EXPECT_EQ(at(1900), nullptr);
    EXPECT_EQ(painted({600, 0, 10, 10}), L"low middle button shape ");
    high.hide();
    EXPECT_EQ(at(900), middle.get());
    high.show();
    high.setLeft(400);
    EXPECT_EQ(at(600), &high);
    middle.reset();
    EXPECT_EQ(painted({600, 0, 10, 10}), L"low high button shape ");
    EXPECT_EQ(painted({2950, 2950, 10, 10}), L"");
    low.setPlace({2900, 2900, 100, 100});
    EXPECT_EQ(painted({2950, 2950, 10, 10}), L"low ");
    EXPECT_EQ(at(100), nullptr);
}

TEST_F(ControlsTest, TheFocusGoesWithItsControl) {
    auto box = std::make_unique<TextBox>(sheet.frame, L"box", Rect{});
    box->setFocus();
    ASSERT_EQ(sheet.focus(), box.get());
    sheet.frame.setEnabled(false);
    EXPECT_FALSE(box->reachable());
    box.reset();
    EXPECT_EQ(sheet.focus(), nullptr);
    EXPECT_EQ(sheet.frame.controlCount(), 1U);
}

} // namespace
} // namespace klopfmeise
