#include "tests/course/laufbuehne.h"

namespace klopfmeise {
namespace {

class Textlauf : public Laufbühne {
protected:
    /// Place of the cell that is the `spalte`-th of the `zeile`-th line.
    static Rect platz(int zeile, int spalte) { return {165 * spalte, 105 + 340 * (zeile - 1), 165, 330}; }
};

TEST_F(Textlauf, LinesBreakBehindTheLastBlankAndHold63Cells) {
    struct Fall {
        std::string text;
        std::map<int, Rect> zellen;
    };
    const std::string wort(130, 'x');
    const Fall fälle[]{
        // A word that would reach the margin, and the closing cell.
        {std::string(60, 'a') + " bcde f", {{61, platz(1, 61)}, {62, platz(2, 1)}, {68, platz(2, 7)}}},
        // A word wider than a line breaks at the margin.
        {"ab " + wort, {{4, platz(2, 1)}, {66, platz(2, 63)}, {67, platz(3, 1)}}},
        // The only blank is the first cell.
        {" " + wort.substr(0, 63), {{2, platz(2, 1)}}},
    };
    for (const auto& [text, zellen] : fälle) {
        fliesstextÖffnen(text);
        for (const auto& [i, wo] : zellen)
            EXPECT_EQ(zelle(i).place(), wo) << text << i;
        b.runtime.unload(*b.runtime.active());
    }
}

TEST_F(Textlauf, TheCellOfALineEndNeedsItsPlaceInTheLineToo) {
    // 58 letters, a blank and a word that ends in cell 63: its line end would be the 64th.
    textÖffnen("{\\rtf1\\ansi " + std::string(58, 'a') + " bcde\\par f}");
    EXPECT_EQ(zelle(59).place(), platz(1, 59));
    EXPECT_EQ(zelle(60).place(), platz(2, 1));
    EXPECT_EQ(zelle(66).place(), platz(3, 1));
}

TEST_F(Textlauf, TheTextScrollsByLinesBothWays) {
    std::wstring text;
    for (int i = 0; i < 6; ++i)
        text += std::wstring(62, static_cast<wchar_t>(L'a' + i)) + L" ";
    fliesstextÖffnen(std::string(text.begin(), text.end()) + "z");
    b.user.type(text.substr(0, 4 * 63));
    b.user.pass(50);
    EXPECT_EQ(zelle(4 * 63 + 1).place(), platz(4, 1));
    EXPECT_EQ(zelle(1).place(), platz(0, 1));
    b.user.type(std::wstring(3 * 63 + 1, L'\b'));
    b.user.pass(50);
    EXPECT_EQ(zelle(1).place(), platz(1, 1));
}

} // namespace
} // namespace klopfmeise
