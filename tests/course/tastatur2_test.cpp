#include "platform/values/text.h"
#include "tests/course/laufbuehne.h"

#include <map>
#include <set>

namespace klopfmeise {
namespace {

using std::string_literals::operator""s;

class Fliesstext : public Laufbühne {};

TEST_F(Fliesstext, AWrongKeyLocksUntilItIsTakenBack) {
    fliesstextÖffnen("abc");
    EXPECT_TRUE(zelle(1).visible() && zelle(3).visible());
    EXPECT_EQ(klänge(L'x'), Klänge{});
    EXPECT_EQ(b.caption(L"lblFehler"), L"0");
    EXPECT_EQ(klänge(L'a'), Klänge{L"knopf.wav"});
    EXPECT_EQ(zelle(1).back(), colors::right);
    EXPECT_EQ(klänge(L'x'), Klänge{L"falsch.wav"});
    EXPECT_EQ(zelle(2).back(), colors::wrong);
    EXPECT_EQ(pos(), 3);
    EXPECT_EQ(b.control<Shape>(L"shpLeucht").place(), b.control<Picture>(L"picTaste", 14).place().grown(2));
    EXPECT_EQ(b.caption(L"lblAKtuell"), L"ß");
    EXPECT_EQ(b.control<Label>(L"lblAKtuell").font().name, wingdings);
    // The right key too has only its flash.
    EXPECT_EQ(pausen([&] { EXPECT_EQ(klänge(L'c'), Klänge{}); }), (Pausen{{100, {46}}}));
    EXPECT_EQ(pos(), 3);
    EXPECT_EQ(klänge(L'\b'), Klänge{L"knopf.wav"});
    EXPECT_EQ(pos(), 2);
    EXPECT_EQ(zelle(3).back(), colors::white);
    EXPECT_EQ(b.caption(L"lblAKtuell"), L"b");
    // Backspace works over right cells too and costs nothing; at the first cell it has only its flash.
    b.user.type(L"\b");
    EXPECT_EQ(pausen([&] { EXPECT_EQ(klänge(L'\b'), Klänge{}); }), (Pausen{{100, {14}}}));
    EXPECT_EQ(pos(), 1);
    EXPECT_EQ(b.caption(L"lblFehler"), L"1");
    b.user.type(L"abx");
    EXPECT_EQ(pos(), 4);
    EXPECT_EQ(b.aktiv(), L"Tastatur2");
    b.user.type(L"\bc");
    EXPECT_EQ(b.aktiv(), L"Tastatur0");
    EXPECT_EQ(b.slot(33, 4), "\x02\x00\x02\x00"s);
}

TEST_F(Fliesstext, AnErrorEntersTheAccuracyWithTheKeyBehindIt) {
    b.satz(Kontosatz::Genauigkeit, 80.0);
    fliesstextÖffnen("abc");
    std::vector<double> werte;
    for (const wchar_t taste : {L'a', L'x', L'\b', L'y', L'\b', L'b'}) {
        b.user.type(taste);
        werte.push_back(genauigkeit());
    }
    EXPECT_EQ(werte, (std::vector{90.0, 95.0, 95.0, 72.5, 72.5, 36.25}));
    EXPECT_EQ(b.caption(L"lblGenau"), L"36,25 %");
}

TEST_F(Fliesstext, AHeldKeyFlashesOnceAndWithoutTimeThereIsNoClock) {
    fliesstextÖffnen("abc");
    EXPECT_FALSE(sichtbar(L"imgUhr") || sichtbar(L"lblZeit"));
    const auto halten = [&] {
        b.user.keyDown(16);
        b.user.keyDown(16);
    };
    EXPECT_EQ(pausen(halten), (Pausen{{100, {42, 54}}}));
    b.user.keyUp();
    EXPECT_EQ(pausen(halten), (Pausen{{100, {42, 54}}}));
    b.user.type(L"a");
    b.user.pass(60000);
    EXPECT_FALSE(sichtbar(L"cmdNeu") || sichtbar(L"lblZeit"));
    b.user.click(L"imgNeu");
    EXPECT_EQ(b.aktiv(), L"Tastatur0");
}

TEST_F(Fliesstext, RunsCountWithTheirErrorsAndTheLastStageLeadsToTheNextLesson) {
    b.satz(Kontosatz::Stufennummer, std::int16_t{2});
    fliesstextÖffnen("egal", 3);
    for (int lauf = 1; lauf <= 3; ++lauf) {
        EXPECT_EQ(b.caption(L"lblDurchgang"), std::to_wstring(lauf) + L" / 3");
        b.user.type(L"xx");
        EXPECT_EQ(b.caption(L"lblFehler"), L"0");
        b.user.type(L"zx\bwei");
        EXPECT_EQ(letzterKlang(), L"typewriterding.wav");
    }
    EXPECT_EQ(b.aktiv(), L"Tastatur0");
    EXPECT_EQ(b.slot(32, 4), "\x02\x00\x02\x00"s);
    EXPECT_EQ(b.slot(33, 4), "\x02\x00\x01\x00"s);
}

TEST_F(Fliesstext, TheCountdownWarnsBlinksAndStopsTheRun) {
    b.satz(Kontosatz::Zeitmodus, std::int16_t{1});
    b.satz(Kontosatz::Tempowert, std::int16_t{3});
    fliesstextÖffnen(std::string(55, 'a'), 2);
    auto& uhr = b.control<Label>(L"lblZeit");
    EXPECT_EQ(uhr.caption(), L"16");
    EXPECT_TRUE(sichtbar(L"imgUhr") && uhr.visible());
    b.user.pass(60000);
    EXPECT_EQ(uhr.caption(), L"16");
    b.user.type(L"aa");
    // What is seen in the next seconds, in steps of a twentieth: the countdown, whether it was ever hidden,
    // ever red, and the cursor's colours.
    struct Gesehen {
        bool versteckt = false;
        bool rot = false;
        std::set<bool> cursor;
    };
    std::map<std::wstring, Gesehen> gesehen;
    const auto zusehen = [&](int sekunden) {
        for (int i = 0; i < 20 * sekunden; ++i) {
            b.user.pass(50);
            Gesehen& jetzt = gesehen[uhr.caption()];
            jetzt.versteckt = jetzt.versteckt || !uhr.visible();
            jetzt.rot = jetzt.rot || uhr.fore() == colors::red;
            jetzt.cursor.insert(cursorHell());
        }
    };
    zusehen(8);
    EXPECT_FALSE(gesehen[L"11"].versteckt || gesehen[L"11"].rot);
    EXPECT_EQ(gesehen[L"11"].cursor.size(), 2U);
    EXPECT_TRUE(gesehen[L"10"].versteckt && gesehen[L"10"].rot);
    // With the cursor back on the first cell it stands still.
    b.user.type(L"\b\b");
    b.user.pass(200);
    gesehen.clear();
    zusehen(1);
    for (const auto& [zahl, wie] : gesehen)
        EXPECT_FALSE(wie.versteckt) << toUtf8(zahl);
    // Its first right key starts the clock again.
    b.user.type(L"ax");
    b.user.pass(10000);
    EXPECT_EQ(uhr.caption(), L"6");
    b.user.pass(7000);
    EXPECT_EQ(uhr.caption(), L"0");
    EXPECT_EQ(letzterKlang(), L"falsch.wav");
    auto& neu = b.control<Picture>(L"cmdNeu");
    EXPECT_TRUE(neu.visible());
    const std::string vorher = dateiinhalt(b.konto());
    b.sound.played.clear();
    EXPECT_EQ(pausen([&] { b.user.type(L"a\b"); }), Pausen{});
    b.user.pass(1000);
    EXPECT_TRUE(b.sound.played.empty());
    EXPECT_EQ(dateiinhalt(b.konto()), vorher);
    b.user.click(neu);
    EXPECT_EQ(letzterKlang(), L"knopf.wav");
    EXPECT_FALSE(neu.visible());
    EXPECT_EQ(b.caption(L"lblDurchgang"), L"1 / 2");
    EXPECT_EQ(uhr.caption(), L"16");
    EXPECT_EQ(pos(), 1);
    EXPECT_EQ(b.caption(L"lblAKtuell"), L"a");
}

} // namespace
} // namespace klopfmeise
