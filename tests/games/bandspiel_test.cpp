#include "games/bandspiel.h"
#include "platform/headless/headless_services.h"

#include <gtest/gtest.h>

namespace klopfmeise {
namespace {

class Band : public ::testing::Test {
protected:
    Band() {
        spiel.Startaufstellung(L"f j");
        spiel.starten(zufall);
    }
    int links(int i) const { return spiel.imgStein(i).left / twipsPerPixel; }
    SeededRandom zufall;
    Bandspiel spiel;
};

TEST_F(Band, AGroupComesOutOfTheRightEndAndRunsBackIntoIt) {
    EXPECT_EQ(links(1), 543);
    EXPECT_FALSE(spiel.stimmt(spiel.imgStein(1).zeichen == L'f' ? L'F' : L'J'));
    EXPECT_FALSE(spiel.Timer1_Timer());
    EXPECT_EQ(links(1), 542);
    for (int i = 1; i <= Bandspiel::Steinzahl; ++i) {
        EXPECT_TRUE(spiel.stimmt(spiel.imgStein(i).zeichen));
        EXPECT_EQ(spiel.tippen(), i == Bandspiel::Steinzahl);
    }
    int schritte = 1;
    while (spiel.zurücklaufen())
        ++schritte;
    EXPECT_EQ(schritte, 39) << "5 pixels each, from 542 to 733 or beyond";
    spiel.NeueTasten(zufall);
    EXPECT_EQ(links(1), 543);
    EXPECT_FALSE(spiel.imgStein(1).getippt);
    EXPECT_EQ(spiel.Position, 1);
}

TEST_F(Band, AWrongKeyThrowsAllStonesOnAndTheNextTickEndsIt) {
    spiel.tippen();
    for (int i = 1; i <= 3; ++i)
        spiel.danebentippen();
    EXPECT_EQ(spiel.Punkte, -3);
    EXPECT_EQ(links(5), 695 - 114);
    EXPECT_EQ(spiel.Position, 2);
    while (links(1) > 70)
        spiel.danebentippen();
    EXPECT_TRUE(spiel.Timer1_Timer());
    for (int i = 1; i <= Bandspiel::Steinzahl; ++i)
        EXPECT_EQ(links(i), 70 + 38 * (i - 1)) << "side by side against the left end";
    // One twip before the end is not the end.
    spiel.imgStein(1).left = pixel(71) + 1;
    EXPECT_FALSE(spiel.Timer1_Timer());
    EXPECT_TRUE(spiel.Timer1_Timer());
}

TEST_F(Band, APaidGroupCountsItsPlaceAndTheScore) {
    for (const auto& [punkte, stein, danach] : std::vector<std::tuple<int, int, int>>{
             {0, 543, 5}, {70, 543, 76}, {69, 543, 74}, {0, 71, 0}, {-59, 71, -60}, {-558, 71, -563}}) {
        spiel.Punkte = punkte;
        spiel.imgStein(1).left = pixel(stein);
        spiel.gutschreiben();
        EXPECT_EQ(spiel.Punkte, danach) << punkte << ", " << stein;
    }
}

TEST_F(Band, TheTwentiethGroupBringsItToAMillisecondAndThenTheStepsGrow) {
    for (int gruppe = 1; gruppe <= 23; ++gruppe) {
        spiel.Beschleunigen();
        EXPECT_EQ(spiel.Intervall, gruppe < 20 ? 200 - 10 * gruppe : 1);
        EXPECT_EQ(spiel.Schrittzehntel, gruppe < 20 ? 10 : 10 + gruppe - 19);
    }
    // 1.4 pixels are 21 twips.
    const int vorher = spiel.imgStein(3).left;
    spiel.Timer1_Timer();
    EXPECT_EQ(spiel.imgStein(3).left, vorher - 21);
    spiel.Startaufstellung(L"f");
    EXPECT_EQ(spiel.Intervall, 200);
    EXPECT_EQ(spiel.Schrittzehntel, 10);
}

} // namespace
} // namespace klopfmeise
