#include "platform/values/place_list.h"
#include "platform/values/text.h"
#include "platform/values/windows1252.h"

#include <gtest/gtest.h>

#include <random>

namespace klopfmeise {
namespace {

TEST(Utf8, EveryLengthGoesThereAndBackAndForeignBytesSurvive) {
    const std::wstring text = L"a\u007F\u0080\u07FF\u0800\uFFFD\uFFFF\U00010000\U0010FFFF";
    const std::string bytes =
        "a\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBD\xEF\xBF\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF";
    EXPECT_EQ(toUtf8(text), bytes);
    EXPECT_EQ(fromUtf8(bytes), text);
    // A lone byte, one too few, too long a spelling, a half of a pair, beyond the last character.
    for (const char* foreign :
         {"K\xE4the", "\xE2\x82", "a\xC3", "\xC0\x80", "\xC1\xBF", "\xE0\x9F\xBF", "\xED\xA0\x80",
          "\xED\xBF\xBF", "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80", "\xC3(", "\x80", "\xFF"}) {
        const std::wstring read = fromUtf8(foreign);
        EXPECT_EQ(toUtf8(read), foreign);
        EXPECT_TRUE(std::ranges::any_of(read, [](wchar_t c) { return c >= 0xDC80 && c <= 0xDCFF; }))
            << foreign;
    }
}

TEST(Windows1252, EveryByteSurvivesTheWayThereAndBackAndWhatIsMissingBecomesAQuestionMark) {
    for (int byte = 0; byte < 256; ++byte)
        EXPECT_EQ(toWindows1252(fromWindows1252(static_cast<unsigned char>(byte))), byte);
    EXPECT_EQ(fromWindows1252("\x80\x84\x8A\x8E\x93\x96\x99\x9E\x9F\xA0\xDF\xE4\x81\x9D"),
              L"€„ŠŽ“–™žŸ\u00A0ßä\u0081\u009D");
    EXPECT_EQ(toWindows1252(L"a\u0100b\U0001F600\u0080\u2028\uFFFD"), "a?b????");
    EXPECT_EQ(toWindows1252(static_cast<wchar_t>(-1)), -1);
}

TEST(Numbers, AreRoundedAndSpelledAsAPersonWritesThem) {
    EXPECT_EQ(Int(-0.5), -1);
    EXPECT_EQ(Int(2.9), 2);
    // Half goes away from zero, also where its binary form lies a hair below; no zero has a sign.
    EXPECT_EQ(formatted(98.745, 2, L','), L"98,75");
    EXPECT_EQ(formatted(-2.5, 0, L'.'), L"-3");
    EXPECT_EQ(formatted(0.44, 0, L'.'), L"0");
    EXPECT_EQ(formatted(-0.004, 2, L','), L"0,00");
    EXPECT_EQ(formatted(1e300, 0, L',').size(), 301U);
    EXPECT_EQ(numberText(16.8, L','), L"16,8");
    EXPECT_EQ(numberText(0.1 + 0.2, L'.'), L"0.3");
    EXPECT_EQ(numberText(12.5, L',', 2), L"12");
    EXPECT_EQ(numberText(1e15, L','), L"1E+15");

    EXPECT_EQ(spelledNumber(L" \t-1,5 "), -1.5);
    EXPECT_EQ(spelledNumber(L"1e3"), 1000);
    for (const wchar_t* none :
         {L"", L"  ", L"zwei", L"1 2", L"1,2,3", L"inf", L"nan", L"1e999", L"\u0661", L"5ü"})
        EXPECT_FALSE(spelledNumber(none)) << toUtf8(none);
}

// Cells come, move and go in any order, until none is left; what is found is what looking at each of them
// would find.
TEST(PlaceList, FindsWhatLookingAtEachFinds) {
    std::mt19937 random(7);
    const auto number = [&](std::size_t below) { return static_cast<int>(random() % below); };
    const auto place = [&] {
        return Rect{number(12000) - 500, number(60000), 1 + number(300), 1 + number(300)};
    };
    PlaceList list;
    std::vector<Rect> places;
    for (int step = 0; step < 3000 || !places.empty(); ++step) {
        const int what = step < 3000 ? number(8) : 6;
        const auto slot = places.empty() ? 0 : random() % places.size();
        if (places.empty() || what < 4) {
            places.push_back(place());
            list.add(places.back());
        } else if (what < 6) {
            places[slot] = place();
            list.set(slot, places[slot]);
        } else if (what == 6) {
            places.erase(places.begin() + static_cast<std::ptrdiff_t>(slot));
            list.erase(slot);
        }
        const Rect area = number(10) == 0 ? Rect{0, 0, 12000, 60000} : place().grown(number(1500));
        std::vector<std::size_t> found;
        list.forEachIn(area, [&](std::size_t at) { found.push_back(at); });
        std::vector<std::size_t> looked;
        for (std::size_t i = 0; i < places.size(); ++i)
            if (places[i].intersects(area))
                looked.push_back(i);
        ASSERT_EQ(found, looked) << "step " << step << ", " << places.size();
    }
}

} // namespace
} // namespace klopfmeise
