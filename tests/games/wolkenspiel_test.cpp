#include "games/wolkenspiel.h"
#include "games/ziehung.h"
#include "platform/headless/headless_services.h"
#include "tests/games/zufallsfolge.h"

#include <gtest/gtest.h>

namespace klopfmeise {
namespace {

using Zug = Wolkenspiel::Zug;

/// A game that runs, with the letters a and b, and all clouds far at the right.
Wolkenspiel laufend() {
    SeededRandom zufall;
    Wolkenspiel spiel;
    spiel.Startaufstellung(L"ab", zufall);
    spiel.lblLinks = L"a";
    spiel.lblRechts = L"b";
    for (auto& wolke : spiel.wolken)
        wolke.left = pixel(600);
    spiel.starten(1000);
    return spiel;
}

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

TEST(Wolkenspiel, ABeamTakesTheLowestCloudThatItMeetsInside) {
    Wolkenspiel spiel = laufend();
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

TEST(Wolkenspiel, PushyStepsByTheLettersOncePerKeyAsFarAsTheTrees) {
    Wolkenspiel spiel = laufend();
    EXPECT_EQ(spiel.Form_KeyPress(L'A'), Zug::keiner);
    EXPECT_EQ(spiel.Form_KeyPress(L'a'), Zug::schritt);
    EXPECT_EQ(spiel.Pushy, pixel(456));
    for (const wchar_t k : {L'a', L'b', L' '})
        EXPECT_EQ(spiel.Form_KeyPress(k), Zug::keiner) << "the key is still down";
    spiel.Form_KeyUp();
    EXPECT_EQ(spiel.Form_KeyPress(L' '), Zug::schuss);
    EXPECT_EQ(spiel.TasteGedrueckt, 1);

    const auto weit = [&](wchar_t k) {
        int schritte = 0;
        for (spiel.Form_KeyUp(); spiel.Form_KeyPress(k) == Zug::schritt; spiel.Form_KeyUp())
            ++schritte;
        EXPECT_EQ(spiel.TasteGedrueckt, 0) << "a step too far is a wrong key";
        return schritte;
    };
    EXPECT_EQ(weit(L'a'), 17);
    EXPECT_EQ(spiel.Pushy, pixel(116));
    EXPECT_EQ(weit(L'b'), 24);
    EXPECT_EQ(spiel.Pushy, pixel(596));
    // Just at the tree there is no room for another step.
    spiel.Pushy = pixel(126);
    EXPECT_EQ(weit(L'a'), 0);
    spiel.Pushy = pixel(586);
    EXPECT_EQ(weit(L'b'), 0);
}

TEST(Wolkenspiel, RoundedSecondsCountDownTheLastTenInRed) {
    Wolkenspiel spiel = laufend();
    SeededRandom zufall;
    for (const auto& [vergangen, übrig, rot, vorbei] : std::vector<std::tuple<double, int, bool, bool>>{
             {0.1, 60, false, false},
             {49.4, 11, false, false},
             {49.6, 10, true, false},
             {59.55, 0, true, true},
         }) {
        EXPECT_EQ(spiel.Timer1_Timer(1000 + vergangen, zufall), vorbei) << vergangen;
        EXPECT_EQ(spiel.lblZeit, übrig) << vergangen;
        EXPECT_EQ(spiel.zeitRot, rot) << vergangen;
    }
    spiel.Startaufstellung(L"ab", zufall);
    EXPECT_EQ(spiel.lblZeit, 60);
    EXPECT_TRUE(spiel.zeitRot) << "red until the next game's first tick";
}

TEST(Wolkenspiel, ATickMovesOneCloudInsideTheTrees) {
    const auto nach = [](int wolke, double wohin, int left) {
        Wolkenspiel spiel = laufend();
        spiel.imgKiste(wolke).left = pixel(left);
        Wolkenspiel vorher = spiel;
        Zufallsfolge zufall({(wolke - 0.5) / 5, wohin});
        spiel.Timer1_Timer(spiel.Startzeit, zufall);
        const int jetzt = std::exchange(spiel.imgKiste(wolke).left, pixel(left));
        EXPECT_EQ(spiel.wolken, vorher.wolken) << "the others stand";
        return jetzt / twipsPerPixel;
    };
    EXPECT_EQ(nach(1, 0, 112), 107);
    EXPECT_EQ(nach(2, 0, 111), 111);
    EXPECT_EQ(nach(3, 0.5, 300), 300);
    EXPECT_EQ(nach(4, 0.9, 628), 633);
    EXPECT_EQ(nach(5, 0.9, 629), 629);
}

TEST(Wolkenspiel, AHitPaysAndPutsTheCloudAndTheLettersElsewhere) {
    Wolkenspiel spiel = laufend();
    spiel.imgKiste(4) = {pixel(300), Wolkenspiel::wolkenoben(4), 5};
    int schritte = 1;
    while (spiel.fliegen(4))
        ++schritte;
    EXPECT_EQ(schritte, 15) << "from 140 until it is above the edge";
    // Places 106 and 636 touch the trees, 107 is free; the value 3, the letters b and a.
    Zufallsfolge zufall({105.0 / 800, 635.0 / 800, 106.0 / 800, 0.5, 0.9, 0});
    spiel.treffen(4, zufall);
    EXPECT_EQ(spiel.Punkte, 5);
    EXPECT_EQ(spiel.imgKiste(4), (Wolkenspiel::Wolke{pixel(107), pixel(140), 3}));
    EXPECT_EQ(spiel.lblLinks + spiel.lblRechts, L"ba");
}

} // namespace
} // namespace klopfmeise
