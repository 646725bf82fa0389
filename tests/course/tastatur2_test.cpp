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
    EXPECT_FALSE(sichtbar(L"imgUhr") || sichtbar(L"lblZeit"));
    spielen({{L'x', {}, 1, 0}, {L'a', knopf, 2, 0}, {L'x', falsch, 3, 1}});
    EXPECT_EQ(zelle(1).back(), colors::right);
    EXPECT_EQ(zelle(2).back(), colors::wrong);
    EXPECT_EQ(b.control<Shape>(L"shpLeucht").place(), b.control<Picture>(L"picTaste", 14).place().grown(2));
    EXPECT_EQ(b.control<Label>(L"lblAKtuell").font().name, wingdings);
    // The right key too has only its flash.
    EXPECT_EQ(pausen([&] { spielen({{L'c', {}, 3, 1}}); }), (Pausen{{100, {46}}}));
    spielen({{L'\b', knopf, 2, 1}});
    EXPECT_EQ(zelle(3).back(), colors::white);
    EXPECT_EQ(b.caption(L"lblAKtuell"), L"b");
    // Backspace works over right cells too and costs nothing; at the first cell it has only its flash.
    spielen({{L'\b', knopf, 1, 1}});
    EXPECT_EQ(pausen([&] { spielen({{L'\b', {}, 1, 1}}); }), (Pausen{{100, {14}}}));
    spielen({{L'a', knopf, 2, 1}, {L'b', knopf, 3, 1}, {L'x', falsch, 4, 2}});
    b.user.type(L"\bc");
    EXPECT_EQ(b.aktiv(), L"Tastatur0");
    EXPECT_EQ(b.slot(33, 4), "\2\0\2\0"s);
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

TEST_F(Fliesstext, RunsCountWithTheirErrorsAndTheLastStageLeadsToTheNextLesson) {
    b.satz(Kontosatz::Stufennummer, std::int16_t{2});
    fliesstextÖffnen("egal", 3);
    for (int lauf = 1; lauf <= 3; ++lauf) {
        b.user.type(L"xx");
        EXPECT_EQ(b.captions({L"lblDurchgang", L"lblFehler"}), std::to_wstring(lauf) + L" / 3|0");
        b.user.type(L"zx\bwei");
        EXPECT_EQ(letzterKlang(), L"typewriterding.wav");
    }
    EXPECT_EQ(b.aktiv(), L"Tastatur0");
    EXPECT_EQ(b.slot(32, 4) + b.slot(33, 4), "\2\0\2\0\2\0\1\0"s);
}

TEST_F(Fliesstext, TheCountdownWarnsBlinksAndStopsTheRun) {
    b.satz(Kontosatz::Zeitmodus, std::int16_t{1});
    b.satz(Kontosatz::Tempowert, std::int16_t{3});
    fliesstextÖffnen(std::string(55, 'a'), 2);
    auto& uhr = b.control<Label>(L"lblZeit");
    EXPECT_TRUE(sichtbar(L"imgUhr") && uhr.visible());
    b.user.pass(60000);
    EXPECT_EQ(uhr.caption(), L"16");
    b.user.type(L"aa");
    // What is seen while the countdown shows a number: whether it is hidden, whether it is red.
    std::map<std::wstring, std::set<std::string>> gesehen;
    const auto zusehen = [&](int sekunden) {
        for (int i = 0; i < 20 * sekunden; ++i) {
            b.user.pass(50);
            auto& jetzt = gesehen[uhr.caption()];
            jetzt.insert(uhr.visible() ? "da" : "versteckt");
            jetzt.insert(uhr.fore() == colors::red ? "rot" : "schwarz");
        }
    };
    zusehen(8);
    EXPECT_EQ(gesehen[L"11"], (std::set<std::string>{"da", "schwarz"}));
    EXPECT_TRUE(gesehen[L"10"].contains("versteckt") && gesehen[L"10"].contains("rot"));
    // With the cursor back on the first cell it stands still.
    b.user.type(L"\b\b");
    b.user.pass(200);
    gesehen.clear();
    zusehen(1);
    for (const auto& [zahl, wie] : gesehen)
        EXPECT_FALSE(wie.contains("versteckt")) << toUtf8(zahl);
    // Its first right key starts the clock again.
    b.user.type(L"ax");
    b.user.pass(10000);
    EXPECT_EQ(uhr.caption(), L"6");
    b.user.pass(7000);
    EXPECT_EQ(uhr.caption(), L"0");
    EXPECT_EQ(letzterKlang(), L"falsch.wav");
    EXPECT_TRUE(sichtbar(L"cmdNeu"));
    EXPECT_EQ(pausen([&] { b.user.type(L"a\b"); }), Pausen{});
    b.user.click(L"cmdNeu");
    EXPECT_FALSE(sichtbar(L"cmdNeu"));
    EXPECT_EQ(b.captions({L"lblDurchgang", L"lblZeit", L"lblAKtuell"}), L"1 / 2|16|a");
    EXPECT_EQ(pos(), 1);
}

} // namespace
} // namespace klopfmeise
