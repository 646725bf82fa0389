#include "tests/course/laufbuehne.h"

namespace klopfmeise {
namespace {

using std::string_literals::operator""s;

class Fliesstext : public Laufbühne {};

TEST_F(Fliesstext, AWrongKeyLocksUntilItIsTakenBack) {
    fliesstextÖffnen("abc");
    b.user.type(L"x");
    EXPECT_EQ(b.caption(L"lblFehler"), L"0");
    b.user.type(L"a");
    b.user.type(L"x");
    EXPECT_EQ(letzterKlang(), L"falsch.wav");
    EXPECT_EQ(zelle(2).back(), colors::wrong);
    EXPECT_EQ(pos(), 3);
    EXPECT_EQ(b.control<Shape>(L"shpLeucht").place(), b.control<Picture>(L"picTaste", 14).place().grown(2));
    EXPECT_EQ(b.caption(L"lblAKtuell"), L"ß");
    EXPECT_EQ(b.control<Label>(L"lblAKtuell").font().name, wingdings);
    b.sound.played.clear();
    b.user.type(L"cb");
    EXPECT_TRUE(b.sound.played.empty());
    EXPECT_EQ(pos(), 3);
    b.user.type(L"\b");
    EXPECT_EQ(letzterKlang(), L"knopf.wav");
    EXPECT_EQ(pos(), 2);
    // Backspace works over right cells too and costs nothing; at the first cell it does nothing.
    b.user.type(L"\b\b");
    EXPECT_EQ(pos(), 1);
    EXPECT_EQ(b.caption(L"lblFehler"), L"1");
    b.user.type(L"abx");
    EXPECT_EQ(pos(), 4);
    EXPECT_EQ(b.aktiv(), L"Tastatur2");
    b.user.type(L"\bc");
    EXPECT_EQ(b.aktiv(), L"Tastatur0");
    EXPECT_EQ(b.slot(33, 4), "\x02\x00\x02\x00"s);
}

TEST_F(Fliesstext, RunsCountWithTheirErrorsAndTheLastStageLeadsToTheNextLesson) {
    b.satz(Kontosatz::Stufennummer, std::int16_t{2});
    fliesstextÖffnen("egal", 3);
    for (int lauf = 1; lauf <= 3; ++lauf) {
        EXPECT_EQ(b.caption(L"lblDurchgang"), std::to_wstring(lauf) + L" / 3");
        b.user.type(L"zx\bwei");
        EXPECT_EQ(letzterKlang(), L"typewriterding.wav");
    }
    EXPECT_EQ(b.aktiv(), L"Tastatur0");
    EXPECT_EQ(b.slot(32, 4), "\x02\x00\x02\x00"s);
    EXPECT_EQ(b.slot(33, 4), "\x02\x00\x01\x00"s);
}

TEST_F(Fliesstext, AnErrorEntersTheAccuracyWithTheKeyBehindIt) {
    const auto genauigkeit = [&] { return zahlAus(b.satz(Kontosatz::Genauigkeit)).value_or(-1); };
    fliesstextÖffnen("abc");
    b.user.type(L"ax");
    EXPECT_DOUBLE_EQ(genauigkeit(), 100);
    b.user.type(L"\bb");
    EXPECT_DOUBLE_EQ(genauigkeit(), 75);
}

TEST_F(Fliesstext, TheCountdownWarnsBlinksAndStopsTheRun) {
    b.satz(Kontosatz::Zeitmodus, std::int16_t{1});
    b.satz(Kontosatz::Tempowert, std::int16_t{3});
    fliesstextÖffnen(std::string(55, 'a'), 2);
    EXPECT_EQ(b.caption(L"lblZeit"), L"16");
    EXPECT_TRUE(b.control<Picture>(L"imgUhr").visible());
    b.user.pass(60000);
    EXPECT_EQ(b.caption(L"lblZeit"), L"16");
    b.user.type(L"aa");
    b.user.pass(3000);
    EXPECT_EQ(b.control<Label>(L"lblZeit").fore(), colors::black);
    b.user.pass(3000);
    EXPECT_EQ(b.caption(L"lblZeit"), L"10");
    bool gesehen[2] = {};
    for (int i = 0; i < 4; ++i) {
        b.user.pass(200);
        gesehen[b.control<Label>(L"lblZeit").visible() ? 1 : 0] = true;
    }
    EXPECT_TRUE(gesehen[0] && gesehen[1]);
    b.user.pass(12000);
    EXPECT_EQ(b.caption(L"lblZeit"), L"0");
    EXPECT_EQ(letzterKlang(), L"falsch.wav");
    auto& neu = b.control<Picture>(L"cmdNeu");
    EXPECT_TRUE(neu.visible());
    const double vorher = b.clock.seconds();
    b.user.type(L"a");
    EXPECT_EQ(b.clock.seconds(), vorher);
    b.user.click(neu);
    EXPECT_FALSE(neu.visible());
    EXPECT_EQ(b.caption(L"lblDurchgang"), L"1 / 2");
    EXPECT_EQ(pos(), 1);
}

} // namespace
} // namespace klopfmeise
