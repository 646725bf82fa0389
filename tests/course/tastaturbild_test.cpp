#include "tests/course/laufbuehne.h"

namespace klopfmeise {
namespace {

class Tastenblitze : public Tippbühne {
protected:
    Tastenblitze() {
        b.lektion(1, "Einzeiler", {"5\x80 f"});
        b.öffnen(L"Tastatur1");
    }
};

TEST_F(Tastenblitze, APressedKeyShowsItsFrameForATenthOfASecondAndClicks) {
    const auto tippen = [&](wchar_t zeichen) { return pausen([&] { b.user.type(zeichen); }); };
    EXPECT_EQ(tippen(L'5'), (Pausen{{100, {6}}}));
    // Beyond the first half of the code page.
    EXPECT_EQ(tippen(L'€'), (Pausen{{100, {18}}}));
    EXPECT_EQ(b.sound.played, Klänge(2, L"knopf.wav"));
    EXPECT_EQ(b.caption(L"lblPosO", 2), L"€");
    EXPECT_EQ(tippen(L'\b'), (Pausen{{100, {14}}}));
    EXPECT_EQ(tippen(L'\r'), (Pausen{{100, {28}}}));
    EXPECT_EQ(tippen(L'"'), Pausen{});
}

TEST_F(Tastenblitze, AHeldKeyWithoutACharacterFlashesOnceAndSilently) {
    EXPECT_EQ(gehalten({16}), (Pausen{{100, {42, 54}}}));
    EXPECT_EQ(gehalten({17}), (Pausen{{100, {55, 59}}}));
    // Both codes of Alt Gr pass the gate together.
    EXPECT_EQ(gehalten({17, 18}), (Pausen{{100, {55, 56, 59}}}));
    EXPECT_EQ(gehalten({9}), (Pausen{{100, {15}}}));
    EXPECT_EQ(gehalten({20}), (Pausen{{100, {29}}}));
    EXPECT_EQ(gehalten({65}), Pausen{});
    EXPECT_TRUE(b.sound.played.empty());
}

} // namespace
} // namespace klopfmeise
