#include "platform/controls/visit.h"
#include "tests/buehne.h"
#include "tests/platform/diary.h"

#include <gtest/gtest.h>

namespace klopfmeise {
namespace {

using Values = std::vector<int>;

/// Controls that have a value; their handlers note the value that they find.
class Sheet final : public NotingForm {
public:
    using NotingForm::NotingForm;

    Handler value(const std::string& name, const auto& control) {
        return [this, name, &control] { diary.note(name + std::to_string(control.value())); };
    }
    void row(const std::string& event) { diary.note(event + std::to_string(files.selected())); }
    ListLook rows() {
        return {.pattern = L"*.txt",
                .mouseDown = [this](MouseButton with) { row(with == MouseButton::right ? "right" : "left"); },
                .click = [this] { row("click"); }};
    }

    TextBox text{*this, L"text", {}, {.text = L"first", .change = diary.noting("text")}};
    FileList files{*this, L"files", {}, rows()};
    FolderList folders{*this, L"folders", {}};
    ScrollBar bar{*this, L"bar", {}, {.max = 10, .value = 3, .change = value("bar", bar)}};
    Slider slider{*this, L"slider", {}, {.min = 1, .max = 9}};
    Slider high{*this, L"high", {}, {.min = 1, .max = 9, .value = 12, .change = value("high", high)}};
    OptionButton first{*this, L"first", {}, {.value = 1}};
    OptionButton second{*this, L"second", {}, {.value = 1, .click = value("second", second)}};
    Frame frame{*this, L"frame", {}};
    OptionButton other{frame, L"other", {}, {.value = 1}};
    CheckBox box{*this, L"box", {}, {.value = -1, .click = value("box", box)}};
};

class ControlsTest : public testing::Test, public Playground {
protected:
    Values checks() const {
        return {sheet.first.value(), sheet.second.value(), sheet.other.value(), sheet.box.value()};
    }
    Values sliders() const { return {sheet.slider.value(), sheet.high.value()}; }
    Sheet sheet{runtime, L"Sheet", {}, diary};
};

TEST_F(ControlsTest, OnlyWhatTheUserDoesCallsHandlersAndAValueLiesWithinItsBounds) {
    EXPECT_EQ(sliders(), (Values{1, 9}));
    sheet.high.setMax(5);
    sheet.slider.setMin(3);
    EXPECT_EQ(sliders(), (Values{3, 5}));
    sheet.slider.setMax(2);
    EXPECT_EQ(sliders(), (Values{3, 5})) << "crossed bounds";
    sheet.bar.setValue(7);
    sheet.bar.setMax(5);
    sheet.text.setText(L"four");
    sheet.text.setCaret(9);
    EXPECT_EQ(sheet.text.caret(), 4);
    sheet.text.setText(L"2");
    EXPECT_EQ(sheet.text.caret(), 1);
    EXPECT_EQ(diary.take(), "");

    sheet.text.edited(L"", 99);
    sheet.text.edited(L"", 0);
    EXPECT_EQ(sheet.text.caret(), 0);
    for (const int to : {5, 2, 2, -7})
        sheet.bar.movedTo(to);
    sheet.high.movedTo(-99);
    EXPECT_EQ(diary.take(), "text bar2 bar0 high1");
}

TEST_F(ControlsTest, TheOptionsOfAContainerAreAGroup) {
    EXPECT_EQ(checks(), (Values{0, 1, 1, 0})) << "of two that are made on, the later one stays";
    sheet.first.setValue(1);
    sheet.box.setValue(1);
    EXPECT_EQ(checks(), (Values{1, 0, 1, 1}));
    sheet.other.setValue(2);
    EXPECT_EQ(checks(), (Values{1, 0, 0, 1})) << "what is not 1 is off";
    EXPECT_EQ(diary.take(), "");
    for (int i = 0; i < 2; ++i) {
        sheet.second.pressed();
        sheet.box.pressed();
    }
    EXPECT_EQ(diary.take(), "second1 box0 second1 box1");
    EXPECT_EQ(checks(), (Values{0, 1, 0, 1}));
}

TEST_F(ControlsTest, ASelectionInAListCountsAsAClick) {
    const Wegwerfordner folder;
    for (const char* name : {"b.txt", "d.txt", "x.rtf", "inner/b.txt"})
        dateiSchreiben(folder.pfad() / name, "");
    sheet.files.setPath(logikpfad(folder.pfad()));
    sheet.folders.setPath(logikpfad(folder.pfad()));
    ASSERT_EQ(*sheet.files.items(), (ListControl::Items{L"b.txt", L"d.txt"}));
    ASSERT_EQ(*sheet.folders.items(), ListControl::Items{L"inner"});
    for (const int row : {1, 1, 7, -1})
        sheet.files.select(row);
    EXPECT_EQ(diary.take(), "click1 click1") << "no such row takes the selection away, silently";
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
    sheet.files.select(0);
    sheet.files.setPath(sheet.files.path() + L"\\inner");
    EXPECT_EQ(sheet.files.item(0), L"b.txt");
    EXPECT_EQ(sheet.files.selected(), -1) << "the same name in another folder is another file";
    EXPECT_EQ(diary.take(), "click0");
}

TEST_F(ControlsTest, TheCaptionIsReadOutElseTheTipElseWhatTheControlIsSaidToBe) {
    const OptionButton all(sheet, L"o", {}, {.caption = L"caption", .toolTip = L"tip", .spoken = L"spoken"});
    const OptionButton two(sheet, L"o", {}, {.toolTip = L"tip", .spoken = L"spoken"});
    const Picture picture(sheet, L"p", {}, {.spoken = L"spoken"});
    EXPECT_EQ(all.spokenName() + two.spokenName() + picture.spokenName(), L"captiontipspoken");
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
    low.setPlace({2900, 2900, 100, 100});
    EXPECT_EQ(painted({600, 0, 10, 10}), L"high button shape ");
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
}

} // namespace
} // namespace klopfmeise
