#include "platform/forms/timer.h"
#include "tests/ausfallende_dateien.h"
#include "tests/probe.h"

#include <algorithm>
#include <functional>

namespace klopfmeise {
namespace {

using Klänge = std::vector<std::wstring>;

/// One of the games on the stage.
class Spielbühne : public Bühne {
public:
    explicit Spielbühne(int nummer, const std::string& text = "fj fj", Files* dateien = nullptr)
        : Bühne(dateien) {
        lektion(1, "Einzeiler", {text});
        nummer_ = nummer;
        backend.duringWait = [this](int dauer) {
            if (imWarten)
                imWarten(dauer);
        };
    }
    void betreten() {
        zurÜbung(nummer_);
        sound.played.clear();
    }
    void beginnen() {
        betreten();
        user.click(L"cmdNeuesSpiel");
    }
    Button& start() { return control<Button>(L"cmdNeuesSpiel"); }
    Label& hinweis() { return control<Label>(L"lblHinweis"); }
    wchar_t linkeTaste() { return (caption(L"lblLinks") + L" ")[0]; }
    PictureBox& stein(int i) { return control<PictureBox>(L"imgStein", i); }
    /// The label on a stone, which lies in a container of its own.
    Label& zeichen(int i) { return static_cast<Label&>(stein(i).Container::control(0)); }
    /// The stone to be typed next.
    wchar_t nächster() {
        for (int i = 1; i <= 5; ++i)
            if (zeichen(i).visible())
                return zeichen(i).caption()[0];
        return 0;
    }
    std::wstring punkte() { return caption(nummer_ == 4 ? L"lblScore" : L"lblPunkte"); }

    /// A key or two that may score.
    void spielzug() {
        if (nummer_ == 3)
            user.type(std::wstring(1, linkeTaste()) + L" ");
        else
            user.type(nummer_ == 4 ? L'\r' : nächster());
    }
    /// From START to the end.
    void spielen() {
        beginnen();
        for (int zug = 0; !start().visible() && zug < 1000; ++zug) {
            if (nummer_ == 5 && zug >= 20)
                user.type(L'x');
            else
                spielzug();
            user.pass(300);
        }
        EXPECT_TRUE(start().visible());
    }

    std::function<void(int)> imWarten;

private:
    int nummer_ = 0;
};

TEST(Spiele, OnlyAHigherScoreIsStoredHeardAndSeen) {
    std::vector<Color> blinken;
    for (int i = 0; i < 10; ++i)
        blinken.insert(blinken.end(), {RGB(0, 192, 192), colors::black});
    for (const auto& [nummer, satz] :
         {std::pair{3, Kontosatz::HighWolken}, {4, Kontosatz::HighSteine}, {5, Kontosatz::HighBand}}) {
        int erreicht = 0;
        for (const bool neu : {true, false}) {
            SCOPED_TRACE(testing::Message() << nummer << ", " << neu);
            Spielbühne b(nummer);
            b.satz(satz, ganzzahl(erreicht));
            // What is seen in the waits that follow the end.
            std::vector<Color> farben;
            std::wstring zuletzt;
            Wert gespeichert;
            b.imWarten = [&, satz = satz](int dauer) {
                zuletzt = b.punkte();
                gespeichert = b.satz(satz);
                if (b.sound.played.back() == L"typewriterding.wav" && dauer == 100)
                    farben.push_back(b.control<Label>(L"lblHigh").fore());
            };
            b.spielen();
            erreicht = std::stoi(b.caption(L"lblHigh"));
            ASSERT_GT(erreicht, 0);
            EXPECT_EQ(zuletzt, std::to_wstring(erreicht)) << "the end is seen before the page is ready again";
            EXPECT_TRUE(gleich(gespeichert, erreicht)) << "written before the blinking";
            EXPECT_EQ(b.punkte(), L"0");
            EXPECT_EQ(b.runtime.active()->spokenTarget(),
                      L"Spielende, " + zuletzt + L" Punkte" + (neu ? L", neuer High-Score" : L""));
            EXPECT_EQ(farben, neu ? blinken : std::vector<Color>());
            EXPECT_EQ(b.sound.played.back(), neu ? L"typewriterding.wav" : L"falsch.wav");
            EXPECT_EQ(b.satz(satz) == ganzzahl(erreicht), !neu || nummer == 4)
                << "of its own type, or untouched";
        }
    }
}

TEST(Spiele, AScoreThatCannotBeStoredIsNotLostWithoutAWord) {
    AusfallendeDateien dateien;
    Spielbühne b(4, "fj fj", &dateien);
    b.beginnen();
    while (!b.start().visible()) {
        dateien.ausfallenBei(2);
        b.user.type(L'\r');
        b.user.pass(300);
    }
    EXPECT_EQ(b.sound.played.back(), L"falsch.wav");
    EXPECT_EQ(b.caption(L"lblHigh"), L"0");
    EXPECT_TRUE(b.hinweis().visible());
    EXPECT_EQ(b.hinweis().caption(), L"Dein Ergebnis konnte nicht gespeichert werden.");
    b.user.click(L"cmdNeuesSpiel");
    EXPECT_FALSE(b.hinweis().visible());
}

TEST(Spiele, AStageWithoutAPairOrAnAccountCannotBePlayedOn) {
    for (const int nummer : {3, 4, 5}) {
        SCOPED_TRACE(nummer);
        Spielbühne b(nummer, nummer == 5 ? " \t\xA0 " : "f \tf");
        b.betreten();
        EXPECT_TRUE(b.hinweis().visible() && !b.start().enabled());
        EXPECT_EQ(b.hinweis().caption(),
                  L"Auf dieser Stufe kann man nicht spielen. Bitte sage deiner Lehrkraft Bescheid.");
        b.lektion(1, "Einzeiler", {"ab"});
        b.user.click(L"imgNeu");
        EXPECT_FALSE(b.hinweis().visible());
        EXPECT_EQ(b.caption(L"LblLektion"), L"Lektion 1 (Stufe 1)");
        b.user.click(L"cmdNeuesSpiel");
        EXPECT_FALSE(b.start().visible());
        fs::remove(b.konto());
        fs::create_directory(b.konto());
        b.user.click(L"imgNeu");
        EXPECT_FALSE(b.start().enabled());
        EXPECT_EQ(b.captions({L"LblLektion", L"lblHigh"}), L"Lektion –|–");
    }
}

TEST(Spiele, TheThirdButtonDropsTheGameAndHelpLetsItGoOn) {
    for (const int nummer : {3, 4, 5}) {
        SCOPED_TRACE(nummer);
        Spielbühne b(nummer);
        b.beginnen();
        for (int zug = 0; zug < 60 && b.punkte() == L"0"; ++zug) {
            b.user.pass(1100);
            b.spielzug();
        }
        ASSERT_GT(std::stoi(b.punkte()), 0);
        const double vorher = b.runtime.nextTick();
        b.user.click(L"imgHilfe");
        b.user.pass(1100);
        EXPECT_GT(b.runtime.nextTick(), vorher) << "its timers run on";
        b.runtime.unload(L"Hilfe");
        b.user.click(L"imgNeu");
        EXPECT_TRUE(b.start().visible());
        EXPECT_EQ(b.punkte() + b.caption(L"lblHigh"), L"00");
        EXPECT_LT(b.runtime.nextTick(), 0) << "nothing ticks";
    }
    // On the belt the button works when it goes down.
    Spielbühne b(5);
    b.beginnen();
    b.control<Picture>(L"imgNeu").mouseDown()(MouseButton::left);
    EXPECT_FALSE(b.stein(1).visible());
}

TEST(Tastatur3, ABeamIsSeenAndThenTheValueFliesAwayWithoutLetters) {
    Spielbühne b(3);
    b.betreten();
    b.user.type(L"fj ");
    EXPECT_EQ(b.sound.played, Klänge()) << "keys before START";
    b.user.click(L"cmdNeuesSpiel");
    auto& pushy = b.control<Picture>(L"Pushy");
    const auto trifft = [&] {
        for (int i = 1; i <= 5; ++i)
            if (const auto& wolke = b.control<Picture>(L"imgKiste", i);
                wolke.left() < pushy.left() + 600 && wolke.right() > pushy.left() + 600)
                return i;
        return 0;
    };
    for (int i = 0; i < 20 && trifft() == 0; ++i)
        b.user.type(b.linkeTaste());
    const int wolke = trifft();
    ASSERT_GT(wolke, 0);
    const int wert = std::stoi(b.caption(L"lblKiste", wolke));
    b.sound.played.clear();
    int schritte = 0;
    bool strahl = false;
    b.imWarten = [&](int dauer) {
        const auto& schuss = b.control<Line>(L"schuss");
        if (dauer == 10) {
            ++schritte;
            EXPECT_FALSE(schuss.visible());
            EXPECT_EQ(b.caption(L"lblLinks") + b.caption(L"lblRechts"), L"");
        }
        if (dauer == 100 && !strahl) {
            strahl = schuss.visible();
            b.user.keyUp();
            b.user.type(L' ');
        }
    };
    const double beginn = b.clock.seconds();
    b.user.type(L' ');
    EXPECT_TRUE(strahl);
    EXPECT_GT(schritte, 9);
    EXPECT_GT(b.clock.seconds() - beginn, 0.1 + schritte / 62.0) << "each step is seen";
    EXPECT_GE(std::stoi(b.punkte()), wert) << "the second shot may pay as well";
    EXPECT_EQ(b.caption(L"lblLinks").size(), 1u);
    EXPECT_EQ(std::ranges::count(b.sound.played, L"pb_Schieben.wav"), 2) << "the key typed meanwhile";
}

TEST(Tetris, TheKeysOfTheMomentShowAndClick) {
    Spielbühne b(4);
    b.beginnen();
    b.user.type(L"fj \r");
    EXPECT_EQ(b.sound.played, Klänge{L"knopf.wav"}) << "no keys before the first figure";
    b.user.pass(1000);
    b.user.repeat(b.linkeTaste());
    b.user.repeat(b.linkeTaste());
    EXPECT_EQ(b.sound.played.size(), 2u) << "a held key is one step";
    // When the shaft is cleared the letters stay until START.
    const std::wstring taste = b.caption(L"lblLinks");
    b.user.click(L"imgNeu");
    EXPECT_EQ(b.caption(L"lblLinks"), taste);
}

TEST(Fließband, AStoneChangesWhenItsSoundIsOverAndTheGroupRunsBackInSight) {
    Spielbühne b(5, "f");
    b.sound.length = 70;
    b.beginnen();
    std::vector<int> wege;
    int klick = 0;
    b.imWarten = [&](int dauer) {
        if (dauer == 70 && klick++ == 0) {
            EXPECT_EQ(b.stein(1).picture(), L"stein_offen");
            b.user.type(L"fffff");
        }
        if (dauer != 70)
            wege.push_back(b.stein(1).left());
    };
    b.user.type(L'f');
    // The first key and the five typed in its wait: a group, its way back, and one of the next.
    EXPECT_EQ(klick, 6);
    EXPECT_EQ(wege.size(), 39u);
    EXPECT_EQ(wege[1] - wege[0], 75);
    EXPECT_GE(wege.back(), 733 * 15);
    EXPECT_EQ(b.stein(1).left(), 543 * 15);
    EXPECT_EQ(b.stein(1).picture(), L"stein_getippt");
    EXPECT_EQ(b.stein(2).picture(), L"stein_offen");
    EXPECT_EQ(b.sound.played.at(6), L"typewriterding.wav");
    EXPECT_EQ(b.punkte(), L"5");
    // Of the stones only the one to come counts, and a wrong key is not waited for.
    const int links = b.stein(1).left();
    b.user.type(L'j');
    EXPECT_EQ(b.punkte(), L"4");
    EXPECT_EQ(b.stein(1).left(), links - 38 * 15);
    EXPECT_EQ(b.sound.played.back(), L"Fließbandfalsch.wav");
}

} // namespace
} // namespace klopfmeise
