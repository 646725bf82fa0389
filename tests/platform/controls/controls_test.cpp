#include "platform/controls/visit.h"
#include "tests/platform/diary.h"

#include <gtest/gtest.h>

namespace klopfmeise {
namespace {

TEST(Controls, LaterMadeLiesAboveAndIsFoundByTheMouse) {
    Playground ground;
    NotingForm sheet{ground.runtime, L"Sheet", {}, ground.diary};
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

TEST(Controls, AValueLiesWithinItsBoundsHoweverTheyMove) {
    Playground ground;
    NotingForm sheet{ground.runtime, L"Sheet", {}, ground.diary};
    Slider slider{
        sheet, L"slider", {}, {.min = 1, .max = 9, .value = 12, .change = ground.diary.noting("high")}};
    EXPECT_EQ(slider.value(), 9);
    slider.setMax(5);
    EXPECT_EQ(slider.value(), 5);
    EXPECT_EQ(ground.diary.take(), "") << "the program's own changes are not told";
}

} // namespace
} // namespace klopfmeise
