#include "games/bandspiel.h"
#include "games/figuren.h"
#include "games/steinespiel.h"
#include "games/wolkenspiel.h"
#include "games/ziehung.h"
#include "platform/headless/headless_services.h"

#include <gtest/gtest.h>
#include <set>

namespace klopfmeise {
namespace {

/// Draws what the test says, one after the other; `at` throws where more is drawn.
struct Zufallsfolge final : Random {
    explicit Zufallsfolge(std::vector<double> was)
        : folge(std::move(was)) {}
    void randomize() override {}
    double next() override { return folge.at(gezogen++); }

    std::vector<double> folge;
    std::size_t gezogen = 0;
};

TEST(Ziehung, TakesNoBlankAndNoPairOfLikeCharacters) {
    EXPECT_FALSE(hatZeichen(L"   ") || hatPaar(L" f ff"));
    EXPECT_TRUE(hatZeichen(L" f ff") && hatPaar(L"f F"));
    // Blank, then a; a and a, blank and b: each pair is drawn anew as a whole.
    Zufallsfolge zufall({0, 0.99, 0.3, 0.6, 0, 0.99, 0.99, 0.3});
    EXPECT_EQ(zeichenZiehen(L" aab", zufall), L'b');
    const Zeichenpaar paar = paarZiehen(L" aab", zufall);
    EXPECT_EQ(zufall.gezogen, 8u);
    EXPECT_EQ(paar.erstes, L'b');
    EXPECT_EQ(paar.zweites, L'a');
}

/// A game that runs, with the letters a and b, and all clouds far at the right.
class Wolken : public ::testing::Test {
protected:
    using Zug = Wolkenspiel::Zug;

    Wolken() {
        spiel.Startaufstellung(L"ab", zufall);
        spiel.lblLinks = L"a";
        spiel.lblRechts = L"b";
        for (auto& wolke : spiel.wolken)
            wolke.left = pixel(600);
        spiel.starten(1000);
    }
    SeededRandom zufall;
    Wolkenspiel spiel;
};

TEST_F(Wolken, ABeamTakesTheLowestCloudThatItMeetsInside) {
    const int x = spiel.Pushy + pixel(40);
    EXPECT_EQ(spiel.schießen().Strahlende, pixel(10));
    spiel.imgKiste(1).left = x;
    spiel.imgKiste(2).left = x - pixel(52);
    EXPECT_EQ(spiel.schießen().Treffer, 0) << "an edge is not inside";
    spiel.imgKiste(5).left = x - 1;
    EXPECT_EQ(spiel.schießen().Strahlende, pixel(98 + 32));
    spiel.imgKiste(3).left = x - pixel(52) + 1;
    EXPECT_EQ(spiel.schießen().Treffer, 3);
    EXPECT_EQ(spiel.schießen().Strahlende, pixel(182 + 32));
}

TEST_F(Wolken, PushyStepsByTheLettersOncePerKeyAsFarAsTheTrees) {
    EXPECT_EQ(spiel.Form_KeyPress(L'A'), Zug::keiner);
    EXPECT_EQ(spiel.Form_KeyPress(L'a'), Zug::schritt);
    EXPECT_EQ(spiel.Pushy, pixel(456));
    for (const wchar_t k : {L'a', L'b', L' '})
        EXPECT_EQ(spiel.Form_KeyPress(k), Zug::keiner) << "the key is still down";
    spiel.Form_KeyUp();
    EXPECT_EQ(spiel.Form_KeyPress(L' '), Zug::schuss);
    // From just at the tree there is no room for another step.
    for (const auto& [von, k, bis] :
         {std::tuple(456, L'a', 116), {116, L'b', 596}, {126, L'a', 126}, {586, L'b', 586}}) {
        spiel.Pushy = pixel(von);
        for (spiel.Form_KeyUp(); spiel.Form_KeyPress(k) == Zug::schritt;)
            spiel.Form_KeyUp();
        EXPECT_EQ(spiel.Pushy, pixel(bis)) << von;
        EXPECT_EQ(spiel.TasteGedrueckt, 0) << "a step too far is a wrong key";
    }
}

TEST_F(Wolken, RoundedSecondsCountDownTheLastTenInRed) {
    for (const auto& [vergangen, übrig, rot] :
         {std::tuple(0.1, 60, false), {49.4, 11, false}, {49.6, 10, true}, {59.55, 0, true}}) {
        EXPECT_EQ(spiel.Timer1_Timer(1000 + vergangen, zufall), übrig == 0) << vergangen;
        EXPECT_EQ(spiel.lblZeit, übrig) << vergangen;
        EXPECT_EQ(spiel.zeitRot, rot) << vergangen;
    }
    spiel.Startaufstellung(L"ab", zufall);
    EXPECT_EQ(spiel.lblZeit, 60);
    EXPECT_TRUE(spiel.zeitRot) << "red until the next game's first tick";
}

TEST_F(Wolken, ATickMovesOneCloudInsideTheTrees) {
    for (const auto& [wolke, wohin, von, nach] : {std::tuple(1, 0.0, 112, 107),
                                                  {2, 0.0, 111, 111},
                                                  {3, 0.5, 300, 300},
                                                  {4, 0.9, 628, 633},
                                                  {5, 0.9, 629, 629}}) {
        spiel.imgKiste(wolke).left = pixel(von);
        auto erwartet = spiel.wolken;
        erwartet.at(static_cast<std::size_t>(wolke) - 1).left = pixel(nach);
        Zufallsfolge zug({(wolke - 0.5) / 5, wohin});
        spiel.Timer1_Timer(spiel.Startzeit, zug);
        EXPECT_EQ(spiel.wolken, erwartet) << wolke;
    }
}

TEST_F(Wolken, AHitPaysAndPutsTheCloudAndTheLettersElsewhere) {
    spiel.imgKiste(4) = {pixel(300), Wolkenspiel::wolkenoben(4), 5};
    int schritte = 1;
    while (spiel.fliegen(4))
        ++schritte;
    EXPECT_EQ(schritte, 15) << "from 140 until it is above the edge";
    // Places 106 and 636 touch the trees, 107 is free; the value 3, the letters b and a.
    Zufallsfolge folge({105.0 / 800, 635.0 / 800, 106.0 / 800, 0.5, 0.9, 0});
    spiel.treffen(4, folge);
    EXPECT_EQ(spiel.Punkte, 5);
    EXPECT_EQ(spiel.imgKiste(4), (Wolkenspiel::Wolke{pixel(107), pixel(140), 3}));
    EXPECT_EQ(spiel.lblLinks + spiel.lblRechts, L"ba");
}

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
    for (const auto& [punkte, stein, danach] : {std::tuple(0, 543, 5),
                                                {70, 543, 76},
                                                {69, 543, 74},
                                                {0, 71, 0},
                                                {-59, 71, -60},
                                                {-558, 71, -563}}) {
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

/// Columns and rows of cells.
using Zellen = std::set<std::pair<int, int>>;

class Steine : public ::testing::Test {
protected:
    SeededRandom zufall;
    Steinespiel spiel;

    /// A running game whose first figure, of this kind, has come into play.
    void mit(int art) {
        Zufallsfolge erste({(art - 0.5) / Figurenzahl});
        spiel.Startaufstellung(L"ab", erste);
        spiel.starten();
        EXPECT_EQ(spiel.Intervall, 1000);
        takt();
        spiel.TasteLinks = L'a';
        spiel.TasteRechts = L'b';
    }
    void takt() { EXPECT_FALSE(spiel.Timer1_Timer(zufall)); }
    bool taste(wchar_t zeichen) {
        spiel.Form_KeyUp();
        return spiel.Form_KeyPress(zeichen);
    }
    void legen(int x, int y, Color farbe = RGB(1, 2, 3)) {
        spiel.gelandet(x, y) = true;
        spiel.farbe(x, y) = farbe;
    }
    /// The cells of which this holds.
    template <class Bedingung>
    static Zellen alle(Bedingung bedingung) {
        Zellen menge;
        for (int x = 1; x <= Steinespiel::Spalten; ++x)
            for (int y = 1; y <= Steinespiel::Reihen; ++y)
                if (bedingung(x, y))
                    menge.insert({x, y});
        return menge;
    }
    /// The cells in the figure's colour.
    Zellen gemalt() const {
        return alle([&](int x, int y) { return spiel.farbe(x, y) == spiel.SteinFarbe; });
    }
};

TEST_F(Steine, EachTurnIsAQuarterClockwiseUntilTheFirstStateIsBack) {
    // Moved to where the leftmost column's lowest cell is the origin.
    const auto gestalt = [](const Zellen& zellen) {
        Zellen menge;
        for (const auto& [x, y] : zellen)
            menge.insert({x - zellen.begin()->first, y - zellen.begin()->second});
        return menge;
    };
    for (const auto& [art, zustände] : {std::pair(1, 1), {2, 2}, {3, 4}, {4, 4}, {5, 4}, {6, 2}, {7, 2}}) {
        SCOPED_TRACE(art);
        mit(art);
        takt();
        takt();
        EXPECT_EQ(spiel.SteinArt, art);
        const auto erster = spiel.Stein;
        for (int i = 1; i <= zustände; ++i) {
            Zellen gedreht;
            for (const auto& [x, y] : gemalt())
                gedreht.insert({y, -x});
            EXPECT_EQ(taste(L' '), art > 1) << "a square does not turn, and makes no sound";
            EXPECT_EQ(gestalt(gemalt()), gestalt(gedreht));
            EXPECT_EQ(gemalt().size(), 4u);
            EXPECT_EQ(spiel.Stein == erster, i == zustände);
        }
    }
}

TEST_F(Steine, TheFirstTickBringsTheFigureOfThePreviewAndScoresNothing) {
    mit(7);
    EXPECT_EQ(spiel.SteinFarbe, RGB(0, 200, 200));
    EXPECT_EQ(spiel.lblScore, 0);
    EXPECT_EQ(spiel.Intervall, 990);
    EXPECT_EQ(gemalt(), (Zellen{{6, 25}, {5, 24}, {6, 24}, {5, 23}}));
    takt();
    EXPECT_EQ(gemalt(), (Zellen{{6, 24}, {5, 23}, {6, 23}, {5, 22}}));
    EXPECT_EQ(spiel.Fallbonus, 19);
    Zufallsfolge letzte({0.99});
    spiel.Startaufstellung(L"ab", letzte);
    EXPECT_EQ(spiel.Shape3[2], RGB(0, 200, 200));
    EXPECT_EQ(spiel.Shape3[3], colors::white);
}

TEST_F(Steine, AWholeTickIsLeftAtTheRestingPlace) {
    mit(2);
    for (int i = 0; i < 23; ++i)
        takt();
    EXPECT_EQ(gemalt(), (Zellen{{4, 1}, {5, 1}, {6, 1}, {7, 1}}));
    EXPECT_EQ(spiel.SteinArt, 2);
    EXPECT_TRUE(taste(L'b')) << "it can still be moved";
    EXPECT_TRUE(gemalt().contains({8, 1}));
    EXPECT_FALSE(spiel.gelandet(8, 1));
    takt();
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
    takt();
    EXPECT_EQ(spiel.lblScore, 19 + 190 + 190);
    EXPECT_EQ(spiel.farbe(9, 1), RGB(9, 9, 9));
    EXPECT_EQ(alle([&](int x, int y) { return spiel.gelandet(x, y); }), (Zellen{{9, 1}}))
        << "only what lay above is left, two rows lower";
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
    takt();
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
