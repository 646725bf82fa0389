#include "platform/controls/drawn.h"
#include "tests/buehne.h"

#include <gtest/gtest.h>

namespace klopfmeise {
namespace {

class Tastenblitze : public ::testing::Test {
protected:
    Bühne b;
    /// The keys with a border, at each wait.
    std::vector<std::vector<int>> blitze;

    void öffnen() {
        b.lektion(1, "Einzeiler", {"5\x80 f"});
        b.öffnen(L"Tastatur1");
        b.backend.duringWait = [this](int) {
            std::vector<int> umrandet;
            for (int i = 1; i <= 59; ++i)
                if (b.control<Picture>(L"picTaste", i).border())
                    umrandet.push_back(i);
            blitze.push_back(umrandet);
        };
    }
};

TEST_F(Tastenblitze, ASignBeyondTheFirstHalfOfTheCodePageFlashesAndClicksLikeAnyOther) {
    öffnen();
    b.user.type(L"5€");
    EXPECT_EQ(blitze, (std::vector<std::vector<int>>{{6}, {18}}));
    EXPECT_EQ(b.sound.played, std::vector<std::wstring>(2, L"knopf.wav"));
    EXPECT_EQ(b.caption(L"lblPosO", 2), L"€");
}

TEST_F(Tastenblitze, BothCodesOfAltGrPassTheGateTogether) {
    öffnen();
    b.user.keyDown({17, 18});
    b.user.keyDown({17, 18});
    b.user.keyUp();
    b.user.keyDown(16);
    EXPECT_EQ(blitze, (std::vector<std::vector<int>>{{55, 56, 59}, {42, 54}}));
    EXPECT_TRUE(b.sound.played.empty());
}

} // namespace
} // namespace klopfmeise
