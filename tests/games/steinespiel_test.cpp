#include "games/figuren.h"
#include "games/steinespiel.h"
#include "platform/headless/headless_services.h"
#include "tests/games/zufallsfolge.h"

#include <array>
#include <gtest/gtest.h>
#include <set>

namespace klopfmeise {
namespace {

using Zellen = std::set<std::pair<int, int>>;

/// Cells "xy xy …".
Zellen zellen(std::string_view text) {
    Zellen menge;
    for (std::size_t i = 0; i + 1 < text.size(); i += 3)
        menge.insert({text[i] - '0', text[i + 1] - '0'});
    return menge;
}

Zellen zellen(const Steinespiel::Gitter& gitter) {
    Zellen menge;
    for (int x = 0; x <= 5; ++x)
        for (int y = 0; y <= 4; ++y)
            if (gitter[static_cast<std::size_t>(x)][static_cast<std::size_t>(y)])
                menge.insert({x, y});
    return menge;
}

class Steine : public ::testing::Test {
protected:
    SeededRandom zufall;
    Steinespiel spiel;

    /// A running game whose first figure, of this kind, has come into play.
    void mit(int art) {
        Zufallsfolge erste({(art - 0.5) / Figurenzahl});
        spiel.Startaufstellung(L"ab", erste);
        spiel.starten();
        EXPECT_FALSE(spiel.Timer1_Timer(zufall));
        spiel.TasteLinks = L'a';
        spiel.TasteRechts = L'b';
    }
    bool taste(wchar_t zeichen) {
        spiel.Form_KeyUp();
        return spiel.Form_KeyPress(zeichen);
    }
    void legen(int x, int y, Color farbe = RGB(1, 2, 3)) {
        spiel.gelandet(x, y) = true;
        spiel.farbe(x, y) = farbe;
    }
    /// Columns and rows in the figure's colour.
    Zellen gemalt() const {
        Zellen menge;
        for (int x = 1; x <= Steinespiel::Spalten; ++x)
            for (int y = 1; y <= Steinespiel::Reihen; ++y)
                if (spiel.farbe(x, y) == spiel.SteinFarbe)
                    menge.insert({x, y});
        return menge;
    }
};

TEST_F(Steine, TurnThroughTheirStates) {
    const std::vector<std::vector<const char*>> zustände{
        {"22 32 23 33"},
        {"12 22 32 42", "21 22 23 24"},
        {"21 31 32 33", "41 22 32 42", "21 22 23 33", "21 31 41 22"},
        {"21 31 22 23", "21 31 41 42", "31 32 23 33", "21 22 32 42"},
        {"31 22 32 33", "31 22 32 42", "21 22 32 23", "21 31 41 32"},
        {"21 22 32 33", "31 41 22 32"},
        {"31 22 32 23", "21 31 32 42"},
    };
    for (int art = 1; art <= Figurenzahl; ++art) {
        SCOPED_TRACE(art);
        mit(art);
        EXPECT_EQ(spiel.SteinArt, art);
        EXPECT_EQ(taste(L' '), art > 1) << "a square does not turn, and makes no sound";
        const auto& folge = zustände[static_cast<std::size_t>(art) - 1];
        for (std::size_t i = 1; i <= folge.size(); ++i) {
            EXPECT_EQ(zellen(spiel.Stein), zellen(folge[i % folge.size()]));
            EXPECT_EQ(gemalt().size(), 4u);
            taste(L' ');
        }
    }
}

TEST_F(Steine, TheFirstTickBringsTheFigureOfThePreviewAndScoresNothing) {
    Zufallsfolge erste({0.99});
    spiel.Startaufstellung(L"ab", erste);
    EXPECT_EQ(spiel.Shape3[2], RGB(0, 200, 200));
    EXPECT_EQ(spiel.Shape3[3], colors::white);
    spiel.starten();
    EXPECT_EQ(spiel.Intervall, 1000);
    EXPECT_FALSE(spiel.Timer1_Timer(zufall));
    EXPECT_EQ(spiel.lblScore, 0);
    EXPECT_EQ(spiel.Intervall, 990);
    EXPECT_EQ(gemalt(), (Zellen{{6, 25}, {5, 24}, {6, 24}, {5, 23}}));
    EXPECT_FALSE(spiel.Timer1_Timer(zufall));
    EXPECT_EQ(gemalt(), (Zellen{{6, 24}, {5, 23}, {6, 23}, {5, 22}}));
    EXPECT_EQ(spiel.Fallbonus, 19);
}

TEST_F(Steine, AWholeTickIsLeftAtTheRestingPlace) {
    mit(2);
    for (int i = 0; i < 23; ++i)
        EXPECT_FALSE(spiel.Timer1_Timer(zufall));
    EXPECT_EQ(gemalt(), (Zellen{{4, 1}, {5, 1}, {6, 1}, {7, 1}}));
    EXPECT_EQ(spiel.SteinArt, 2);
    EXPECT_TRUE(taste(L'b')) << "it can still be moved";
    EXPECT_TRUE(gemalt().contains({8, 1}));
    EXPECT_FALSE(spiel.gelandet(8, 1));
    EXPECT_FALSE(spiel.Timer1_Timer(zufall));
    EXPECT_TRUE(spiel.gelandet(8, 1));
    EXPECT_EQ(spiel.lblScore, 0) << "falling unaided earns nothing";
}

TEST_F(Steine, ADropFillsTwoRowsAndScoresAtTheNextTick) {
    mit(1);
    for (int x = 1; x <= Steinespiel::Spalten; ++x)
        if (x != 5 && x != 6)
            for (int y : {1, 2})
                legen(x, y);
    legen(9, 3, RGB(9, 9, 9));
    EXPECT_TRUE(taste(L'\r'));
    EXPECT_EQ(spiel.SteinArt, 0);
    EXPECT_FALSE(taste(L'\r')) << "it rests already";
    EXPECT_EQ(spiel.lblScore, 0);
    EXPECT_FALSE(spiel.Timer1_Timer(zufall));
    EXPECT_EQ(spiel.lblScore, 19 + 190 + 190);
    EXPECT_EQ(spiel.farbe(9, 1), RGB(9, 9, 9));
    int belegt = 0;
    for (int x = 1; x <= Steinespiel::Spalten; ++x)
        for (int y = 1; y <= Steinespiel::Reihen; ++y)
            belegt += spiel.gelandet(x, y);
    EXPECT_EQ(belegt, 1) << "only what lay above is left, two rows lower";
    EXPECT_TRUE(spiel.gelandet(9, 1));
}

TEST_F(Steine, WallsAndLandedCellsStopStepsAndTurnsWithAClick) {
    mit(2);
    // Upright in column 5.
    EXPECT_TRUE(taste(L' '));
    for (int i = 0; i < 4; ++i)
        taste(L'a');
    const Zellen anDerWand = gemalt();
    EXPECT_TRUE(anDerWand.contains({1, 24}));
    EXPECT_TRUE(taste(L'a'));
    EXPECT_TRUE(taste(L' ')) << "lying it would stand outside";
    EXPECT_EQ(gemalt(), anDerWand);
    legen(2, 23);
    EXPECT_TRUE(taste(L'b'));
    EXPECT_EQ(gemalt(), anDerWand);
    spiel.gelandet(2, 23) = false;
    for (int i = 0; i < 20; ++i)
        taste(L'b');
    EXPECT_TRUE(gemalt().contains({10, 24}));
    EXPECT_EQ(gemalt().size(), 4u) << "nothing stays where it came from";
    EXPECT_FALSE(spiel.Form_KeyPress(L'a')) << "the key is still down";
}

TEST_F(Steine, AnotherColourInTheWayEndsTheGame) {
    for (const bool gleiche : {false, true}) {
        mit(4);
        const int nächste = spiel.NaechsteArt;
        taste(L'\r');
        const Color farbe = gleiche ? spiel.NaechsteFarbe : RGB(1, 2, 3);
        for (int x = 4; x <= 7; ++x)
            for (int y = 23; y <= 24; ++y)
                legen(x, y, farbe);
        EXPECT_EQ(spiel.Timer1_Timer(zufall), !gleiche);
        if (gleiche) {
            EXPECT_EQ(spiel.SteinArt, nächste);
            EXPECT_EQ(spiel.lblScore, 19);
            static_cast<void>(spiel.Timer1_Timer(zufall));
            EXPECT_EQ(spiel.lblScore, 19 + 19) << "it lands at the next tick";
        }
    }
}

TEST_F(Steine, AnUprightFigureThatWasDroppedCanStillBePushed) {
    mit(2);
    taste(L' ');
    taste(L'\r');
    EXPECT_TRUE(taste(L'a'));
    EXPECT_EQ(spiel.farbe(4, 1), spiel.SteinFarbe);
    EXPECT_EQ(spiel.farbe(5, 1), colors::white);
    EXPECT_TRUE(spiel.gelandet(5, 1));
    EXPECT_FALSE(spiel.Timer1_Timer(zufall));
    EXPECT_TRUE(spiel.gelandet(4, 1));
}

TEST_F(Steine, FallFasterByEachLandingDownToAFloor) {
    mit(1);
    for (int landung = 2; landung < 130; ++landung) {
        spiel.Ner(zufall);
        spiel.Nyfig(zufall);
        EXPECT_EQ(spiel.Intervall, std::max(50, 1000 - 10 * landung));
    }
}

} // namespace
} // namespace klopfmeise
