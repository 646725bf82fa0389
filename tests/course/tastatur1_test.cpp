#include "tests/course/tippbuehne.h"

#include <cmath>

namespace klopfmeise {
namespace {

class Einzeiler : public Tippbühne {
protected:
    void öffnen() { b.öffnen(L"Tastatur1"); }
    Label& zelle(int i) { return b.control<Label>(L"lblPosO", i); }
    Label& marke(int i) { return b.control<Label>(L"lblPosU", i); }
    /// One run of the lesson's first text.
    void lauf() { b.user.type(L"fj f\r"); }
    /// The run, those without a fault, and the faults.
    std::wstring zähler() { return b.captions({L"lblDurchgang", L"lblErfolg", L"lblFehler"}); }
    std::string platz() { return b.slot(32, 4) + b.slot(33, 4); }
    /// The fingers that light.
    std::vector<int> finger() {
        std::vector<int> an;
        for (int i = 1; i <= 10; ++i)
            if (b.control<Picture>(L"imgFinger", i).visible())
                an.push_back(i);
        return an;
    }
};

TEST_F(Einzeiler, AChildsRoadPassesTheStageAndWritesTheToldBytes) {
    b.zurÜbung(1);
    ASSERT_EQ(b.aktiv(), L"Tastatur0");
    EXPECT_EQ(b.captions({L"LblLektion", L"lblStufe", L"lblNameStufe", L"lblHinweisName", L"lblGenauigkeit",
                          L"lblSpeed", L"LblName", L"LblKlasse"}),
              L"Lektion 1|Stufe 1 von 2|Titel 1|Hinweis 1|100,00 %|1 sek / Buchstabe|Mia|Hasen\\");
    // The backdrop covers the change of screens and takes clicks only then.
    Form& kulisse = *b.runtime.loaded(L"frmTemp");
    bool verdeckt = false;
    b.backend.whenPainted = [&](Form& form) {
        verdeckt = verdeckt || (&form == &kulisse && kulisse.enabled() && !b.runtime.loaded(L"Tastatur1"));
    };
    b.user.type(L"x ");
    b.backend.whenPainted = nullptr;
    EXPECT_TRUE(verdeckt);
    EXPECT_FALSE(kulisse.enabled() || b.runtime.loaded(L"Tastatur0"));
    ASSERT_EQ(b.aktiv(), L"Tastatur1");
    EXPECT_EQ(b.caption(L"LblLektion"), L"Lektion 1 (Stufe 1)");
    lauf();
    EXPECT_EQ(letzterKlang(), L"typewriterding.wav");
    EXPECT_EQ(zähler(), L"2|1 / 3|0");
    lauf();
    b.user.type(L"fj f");
    EXPECT_EQ(platz(), "\2\0\0\0\2\0\0\0"s);
    std::wstring zuletzt;
    b.backend.whenPainted = [&](Form& form) {
        if (const auto* durchgang = form.find<Label>(L"lblDurchgang"))
            zuletzt = durchgang->caption();
    };
    b.user.type(L'\r');
    b.backend.whenPainted = nullptr;
    EXPECT_EQ(zuletzt, L"3");
    ASSERT_EQ(b.aktiv(), L"Tastatur0");
    EXPECT_EQ(b.caption(L"lblStufe"), L"Stufe 2 von 2");
    EXPECT_EQ(platz(), "\2\0\1\0\2\0\2\0"s);
    EXPECT_EQ(b.slot(36, 10), "\x05\x00\x00\x00\x00\x00\x00\x00\x59\x40"s);
    EXPECT_EQ(b.slot(31, 4), "\2\0\0\0"s);
    b.user.click(L"cmdNeuesSpiel");
    b.user.type(L"ff jj\rff jj\rff jj\r");
    EXPECT_EQ(platz(), "\2\0\2\0\2\0\1\0"s);
    EXPECT_EQ(b.caption(L"lblHinweisName"),
              L"Für Lektion 2, Stufe 1 gibt es keinen Übungstext. Bitte sage deiner Lehrkraft Bescheid.");
}

TEST_F(Einzeiler, BehindTheLastLessonTheCourseIsDone) {
    b.satz(Kontosatz::Lektionsnummer, std::int32_t{31});
    b.öffnen(L"Tastatur0");
    EXPECT_EQ(b.caption(L"lblNameLektion"), L"Geschafft! Du hast alle Lektionen des Kurses bestanden.");
    b.user.type(L' ');
    b.user.click(L"cmdNeuesSpiel");
    EXPECT_EQ(b.aktiv(), L"Tastatur0");
}

TEST_F(Einzeiler, WrongKeysCountOnlyBetweenFirstKeyAndLineEndAndCostAccuracyDownToAFloor) {
    b.satz(Kontosatz::Lektionsnummer, std::int16_t{9});
    b.lektion(9, "Einzeiler", {"fj f"});
    öffnen();
    EXPECT_EQ(klänge(L'x'), Klänge{L"knopf.wav"});
    EXPECT_EQ(zähler(), L"1|0 / 3|0");
    b.user.type(L"fJ");
    EXPECT_EQ(letzterKlang(), L"falsch.wav");
    // The later the lesson, the more weighs what was before.
    EXPECT_DOUBLE_EQ(genauigkeit(), (9 * 100.0 + 50) / 10);
    EXPECT_EQ(b.caption(L"lblGenau"), L"95,00 %");
    EXPECT_EQ(zelle(2).back(), colors::red);
    b.user.type(L'\b');
    EXPECT_EQ(zähler(), L"1|0 / 3|2");
    EXPECT_EQ(b.control<Label>(L"lblFehler").back(), colors::wrong);
    b.user.type(L"j");
    EXPECT_EQ(zelle(2).back(), colors::white);
    EXPECT_EQ(zelle(2).caption(), L"j");
    b.user.type(L" ff");
    EXPECT_EQ(zähler(), L"1|0 / 3|2");
    b.user.type(L"\r");
    EXPECT_EQ(zähler(), L"2|0 / 3|0");
    b.satz(Kontosatz::Genauigkeit, 1.0);
    b.user.type(L"fxxxxxxx");
    EXPECT_DOUBLE_EQ(genauigkeit(), 0.01);
}

TEST_F(Einzeiler, AStoppedRunShowsItsErrorTwoSecondsAndBeginsAnew) {
    b.satz(Kontosatz::Fehlerstopp, std::int16_t{1});
    öffnen();
    lauf();
    b.user.type(L"fj");
    std::vector<int> dauern;
    b.backend.duringWait = [&](int dauer) {
        dauern.push_back(dauer);
        EXPECT_EQ(marke(3).back() == colors::white, dauern.size() > 2);
        if (dauern.size() != 2)
            return;
        EXPECT_EQ(zelle(3).caption(), L"k");
        EXPECT_EQ(zelle(3).back(), colors::red);
        EXPECT_EQ(zähler(), L"2|1 / 3|1");
        // What is typed meanwhile belongs to the next run.
        b.user.type(L"fj");
    };
    b.user.type(L"k");
    b.backend.duringWait = nullptr;
    EXPECT_EQ(dauern, (std::vector{100, 2000, 100, 100}));
    EXPECT_EQ(zähler(), L"3|1 / 3|0");
    EXPECT_EQ(zelle(2).caption() + zelle(3).caption(), L"j");
    b.user.type(L" f\r");
    EXPECT_EQ(zähler(), L"4|2 / 3|0");
}

TEST_F(Einzeiler, TheTimeBarDecidesWhereTimeCounts) {
    b.satz(Kontosatz::Zeitmodus, std::int16_t{1});
    öffnen();
    auto& balken = b.control<Label>(L"lblZeit");
    b.user.pass(30000);
    lauf();
    EXPECT_EQ(zähler(), L"2|1 / 3|0");
    b.user.type(L"f");
    // The bar needs one second a cell: after four it has overtaken the second cell.
    b.user.pass(4000);
    EXPECT_EQ(balken.caption(), L"4 sek");
    EXPECT_EQ(balken.width(), static_cast<int>(std::lround(4.1 * 11775 / 56)) - 21);
    EXPECT_EQ(balken.back(), colors::wrong);
    // Behind the last cell it stops, red as it was, and says the limit.
    b.user.pass(1500);
    EXPECT_EQ(balken.caption(), L"56 sek");
    EXPECT_EQ(balken.width(), 11775);
    // In a mode that is not told no run is in time.
    b.satz(Kontosatz::Zeitmodus, std::int16_t{2});
    b.user.type(L"j f\r");
    EXPECT_EQ(zähler(), L"3|1 / 3|0");
    b.user.pass(1000);
    EXPECT_EQ(balken.width(), 0);
    b.satz(Kontosatz::Zeitmodus, std::int16_t{1});
    lauf();
    EXPECT_EQ(zähler(), L"4|1 / 3|0");
    lauf();
    EXPECT_EQ(zähler(), L"5|2 / 3|0");
}

TEST_F(Einzeiler, LongTextsAreCutAndInTheirLastCellTheRunIsInTime) {
    öffnen();
    EXPECT_TRUE(b.control<Label>(L"lblPosV", 5).visible());
    EXPECT_FALSE(b.control<Label>(L"lblPosV", 6).visible());
    b.lektion(1, "Einzeiler", {std::string(60, 'a')});
    b.satz(Kontosatz::Durchgangszahl, std::int32_t{5});
    b.satz(Kontosatz::Zeitmodus, std::int16_t{1});
    b.user.click(L"imgNeu");
    b.user.type(L' ');
    b.user.type(std::wstring(55, L'a'));
    EXPECT_EQ(finger(), std::vector{10});
    // However late it is.
    b.user.pass(60000);
    EXPECT_EQ(b.caption(L"lblZeit"), L"56 sek");
    b.user.type(L"\r");
    EXPECT_EQ(zähler(), L"2|1 / 5|0");
}

TEST_F(Einzeiler, KeyAndFingerOfTheNextCharacterLight) {
    b.lektion(1, "Einzeiler", {"aA\"_ x"});
    öffnen();
    auto& rahmen = b.control<Shape>(L"shpLeucht");
    EXPECT_EQ(rahmen.place(), b.control<Picture>(L"picTaste", 30).place().grown(2));
    struct Fall {
        wchar_t taste;
        std::vector<int> finger;
        int links; ///< the character's left edge, over the finger
    };
    // No key for the double quote: the character shows it and stays where it last stood.
    const Fall fälle[]{
        {L'a', {1}, 1485}, {L'A', {1}, 1485}, {L'"', {}, 1485}, {L'_', {10}, 9945}, {L' ', {5, 6}, 6570}};
    for (const Fall& fall : fälle) {
        SCOPED_TRACE(static_cast<int>(fall.taste));
        EXPECT_EQ(finger(), fall.finger);
        EXPECT_EQ(rahmen.visible(), fall.taste != L'"');
        EXPECT_EQ(b.control<Label>(L"lblAKtuell").left(), fall.links);
        b.user.type(fall.taste);
    }
}

TEST_F(Einzeiler, APressedKeyShowsItsFrameForATenthOfASecondAndAHeldOneSilentlyOnce) {
    b.lektion(1, "Einzeiler", {"5\x80 f"});
    öffnen();
    const auto tippen = [&](wchar_t zeichen) { return pausen([&] { b.user.type(zeichen); }); };
    EXPECT_EQ(tippen(L'5'), (Pausen{{100, {6}}}));
    // Beyond the first half of the code page.
    EXPECT_EQ(tippen(L'€'), (Pausen{{100, {18}}}));
    EXPECT_EQ(b.caption(L"lblPosO", 2), L"€");
    EXPECT_EQ(tippen(L'\b'), (Pausen{{100, {14}}}));
    EXPECT_EQ(tippen(L'"'), Pausen{});
    b.sound.played.clear();
    EXPECT_EQ(gehalten({16}), (Pausen{{100, {42, 54}}}));
    // Both codes of Alt Gr pass the gate together.
    EXPECT_EQ(gehalten({17, 18}), (Pausen{{100, {55, 56, 59}}}));
    EXPECT_EQ(gehalten({9}), (Pausen{{100, {15}}}));
    EXPECT_EQ(gehalten({65}), Pausen{});
    EXPECT_TRUE(b.sound.played.empty());
}

TEST_F(Einzeiler, TheWorkbookMayCoverTheLineAndLeavingKeepsAccuracyAndNothingElse) {
    b.satz(Kontosatz::Vorlagemodus, std::int16_t{1});
    öffnen();
    EXPECT_TRUE(sichtbar(L"frmVorlage"));
    b.user.type(L"fx");
    const std::string vorher = dateiinhalt(b.konto());
    b.user.click(L"imgNeu");
    EXPECT_EQ(b.aktiv(), L"Tastatur0");
    EXPECT_EQ(b.caption(L"lblGenauigkeit"), L"75,00 %");
    b.user.type(L' ');
    b.user.click(L"imgEnde");
    EXPECT_EQ(b.aktiv(), L"Lern1");
    EXPECT_EQ(dateiinhalt(b.konto()), vorher);
}

} // namespace
} // namespace klopfmeise
