#include "tests/course/laufbuehne.h"

namespace klopfmeise {
namespace {

class Textlauf : public Laufbühne {};

TEST_F(Textlauf, LinesBreakBehindTheLastBlankAndHold63Cells) {
    // 60 letters, a blank, a word that would reach the margin.
    fliesstextÖffnen(std::string(60, 'a') + " bcde f");
    EXPECT_EQ(zelle(1).left(), 165);
    EXPECT_EQ(zelle(1).top(), 105);
    EXPECT_EQ(zelle(61).caption(), L" ");
    EXPECT_EQ(zelle(61).top(), 105);
    EXPECT_EQ(zelle(62).place(), (Rect{165, 445, 165, 330}));
    EXPECT_EQ(zelle(67).left(), 165 + 5 * 165);
    // The closing cell.
    EXPECT_EQ(zelle(68).caption(), L" ");

    const auto platz = [](const std::string& text, int i) {
        Bühne anders;
        anders.lektion(1, "Fließtext", {text});
        anders.öffnen(L"Tastatur2");
        return anders.control<Label>(L"lbl", i).place();
    };
    // A word wider than a line breaks at the margin.
    const std::string breit = "ab " + std::string(130, 'x');
    EXPECT_EQ(platz(breit, 4), (Rect{165, 445, 165, 330}));
    EXPECT_EQ(platz(breit, 4 + 62).right(), 10560);
    EXPECT_EQ(platz(breit, 4 + 63), (Rect{165, 785, 165, 330}));
    // The only blank is the first cell.
    EXPECT_EQ(platz(" " + std::string(63, 'x'), 2), (Rect{165, 445, 165, 330}));
}

TEST_F(Textlauf, TheCellOfALineEndNeedsItsPlaceInTheLineToo) {
    // 58 letters, a blank and a word that ends in cell 63: its line end would be the 64th.
    textÖffnen("{\\rtf1\\ansi " + std::string(58, 'a') + " bcde\\par f}");
    EXPECT_EQ(zelle(59).place(), (Rect{165 + 58 * 165, 105, 165, 330}));
    EXPECT_EQ(zelle(60).place(), (Rect{165, 445, 165, 330}));
    EXPECT_EQ(zelle(64).font().name, wingdings);
    EXPECT_EQ(zelle(64).place(), (Rect{165 + 4 * 165, 445, 165, 330}));
    EXPECT_EQ(zelle(66).top(), 785);
}

TEST_F(Textlauf, TheTextScrollsByLinesBothWaysAndTheCursorStandsStillWithoutTime) {
    std::string text;
    for (int i = 0; i < 6; ++i)
        text += std::string(62, static_cast<char>('a' + i)) + " ";
    fliesstextÖffnen(text + "z");
    for (int i = 0; i < 4 * 63; ++i)
        b.user.type(static_cast<wchar_t>(text[static_cast<std::size_t>(i)]));
    b.user.pass(50);
    EXPECT_EQ(zelle(4 * 63 + 1).top(), 105 + 3 * 340);
    EXPECT_EQ(zelle(1).top(), 105 - 340);
    for (int i = 0; i < 3 * 63 + 1; ++i)
        b.user.type(L'\b');
    b.user.pass(50);
    EXPECT_EQ(zelle(1).top(), 105);
    EXPECT_EQ(zelle(pos()).back(), colors::midGrey);
    b.user.pass(1000);
    EXPECT_EQ(zelle(pos()).back(), colors::midGrey);
}

} // namespace
} // namespace klopfmeise
