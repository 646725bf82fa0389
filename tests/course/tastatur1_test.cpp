#include "tests/course/tippbuehne.h"

#include <cmath>

namespace klopfmeise {
namespace {

constexpr std::wstring_view lauf = L"fj f\r"; // one run of the lesson's first text

class Einzeiler : public Tippbühne {
protected:
    void öffnen() { b.öffnen(L"Tastatur1"); }
    Label& zelle(int i) { return b.control<Label>(L"lblPosO", i); }
    /// Types, and then expects the number of the run, that of those without a fault, and the faults.
    void tippen(std::wstring_view tasten, std::wstring_view zähler) {
        b.user.type(tasten);
        EXPECT_EQ(b.captions({L"lblDurchgang", L"lblErfolg", L"lblFehler"}), zähler) << toUtf8(tasten);
    }
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
    EXPECT_EQ(b.captions({L"LblLektion", L"lblStufe", L"lblNameStufe", L"lblHinweisName", L"lblGenauigkeit",
                          L"lblSpeed", L"LblName", L"LblKlasse"}),
              L"Lektion 1|Stufe 1 von 2|Titel 1|Hinweis 1|100,00 %|1 sek / Buchstabe|Mia|Hasen\\");
    // The backdrop covers the change of screens and takes clicks only then.
    Form& kulisse = *b.runtime.loaded(L"frmTemp");
    bool verdeckt = false;
    std::wstring durchgang;
    b.backend.whenPainted = [&](Form& form) {
        verdeckt = verdeckt || (&form == &kulisse && kulisse.enabled() && !b.runtime.loaded(L"Tastatur1"));
        if (const auto* gezeigt = form.find<Label>(L"lblDurchgang"))
            durchgang = gezeigt->caption();
    };
    b.user.type(L"x ");
    EXPECT_TRUE(verdeckt && !kulisse.enabled() && !b.runtime.loaded(L"Tastatur0"));
    EXPECT_EQ(b.caption(L"LblLektion"), L"Lektion 1 (Stufe 1)");
    tippen(lauf, L"2|1 / 3|0");
    EXPECT_EQ(letzterKlang(), L"typewriterding.wav");
    b.user.type(lauf);
    b.user.type(L"fj f");
    EXPECT_EQ(platz(), "\2\0\0\0\2\0\0\0"s);
    b.user.type(L'\r');
    b.backend.whenPainted = nullptr;
    EXPECT_EQ(durchgang, L"3");
    EXPECT_EQ(b.caption(L"lblStufe"), L"Stufe 2 von 2");
    EXPECT_EQ(platz(), "\2\0\1\0\2\0\2\0"s);
    EXPECT_EQ(b.slot(36, 10) + b.slot(31, 4), "\x05\x00\x00\x00\x00\x00\x00\x00\x59\x40\2\0\0\0"s);
    b.user.click(L"cmdNeuesSpiel");
    b.user.type(L"ff jj\rff jj\rff jj\r");
    EXPECT_EQ(platz(), "\2\0\2\0\2\0\1\0"s);
    EXPECT_EQ(b.caption(L"lblHinweisName"),
              L"Für Lektion 2, Stufe 1 gibt es keinen Übungstext. Bitte sage deiner Lehrkraft Bescheid.");

    b.runtime.unload(L"Tastatur0");
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
    tippen(L"fJ", L"1|0 / 3|1");
    EXPECT_EQ(letzterKlang(), L"falsch.wav");
    // The later the lesson, the more weighs what was before.
    EXPECT_DOUBLE_EQ(genauigkeit(), (9 * 100.0 + 50) / 10);
    EXPECT_EQ(b.caption(L"lblGenau"), L"95,00 %");
    EXPECT_EQ(zelle(2).back(), colors::red);
    tippen(L"\b", L"1|0 / 3|2");
    EXPECT_EQ(b.control<Label>(L"lblFehler").back(), colors::wrong);
    b.user.type(L"j");
    EXPECT_EQ(zelle(2).back(), colors::white);
    EXPECT_EQ(zelle(2).caption(), L"j");
    tippen(L" ff", L"1|0 / 3|2");
    tippen(L"\r", L"2|0 / 3|0");
    b.satz(Kontosatz::Genauigkeit, 1.0);
    b.user.type(L"fxxxxxxx");
    EXPECT_DOUBLE_EQ(genauigkeit(), 0.01);
}

TEST_F(Einzeiler, AStoppedRunShowsItsErrorTwoSecondsAndBeginsAnew) {
    b.satz(Kontosatz::Fehlerstopp, std::int16_t{1});
    öffnen();
    b.user.type(lauf);
    b.user.type(L"fj");
    std::vector<int> dauern;
    b.backend.duringWait = [&](int dauer) {
        dauern.push_back(dauer);
        EXPECT_EQ(b.control<Label>(L"lblPosU", 3).back() == colors::white, dauern.size() > 2);
        if (dauern.size() != 2)
            return;
        EXPECT_EQ(zelle(3).caption(), L"k");
        EXPECT_EQ(zelle(3).back(), colors::red);
        // What is typed meanwhile belongs to the next run.
        tippen(L"fj", L"2|1 / 3|1");
    };
    tippen(L"k", L"3|1 / 3|0");
    b.backend.duringWait = nullptr;
    EXPECT_EQ(dauern, (std::vector{100, 2000, 100, 100}));
    EXPECT_EQ(zelle(2).caption() + zelle(3).caption(), L"j");
    tippen(L" f\r", L"4|2 / 3|0");
}

TEST_F(Einzeiler, TheTimeBarDecidesWhereTimeCounts) {
    b.satz(Kontosatz::Zeitmodus, std::int16_t{1});
    öffnen();
    auto& balken = b.control<Label>(L"lblZeit");
    b.user.pass(30000);
    tippen(lauf, L"2|1 / 3|0");
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
    tippen(L"j f\r", L"3|1 / 3|0");
    b.user.pass(1000);
    EXPECT_EQ(balken.width(), 0);
    b.satz(Kontosatz::Zeitmodus, std::int16_t{1});
    tippen(lauf, L"4|1 / 3|0");
    tippen(lauf, L"5|2 / 3|0");
}

TEST_F(Einzeiler, LongTextsAreCutAndInTheirLastCellTheRunIsInTime) {
    öffnen();
    for (const int i : {5, 6})
        EXPECT_EQ(b.control<Label>(L"lblPosV", i).visible(), i == 5);
    b.lektion(1, "Einzeiler", {std::string(60, 'a')});
    b.satz(Kontosatz::Durchgangszahl, std::int32_t{5});
    b.satz(Kontosatz::Zeitmodus, std::int16_t{1});
    b.user.click(L"imgNeu");
    b.user.type(L' ' + std::wstring(55, L'a'));
    EXPECT_EQ(finger(), std::vector{10});
    // However late it is.
    b.user.pass(60000);
    EXPECT_EQ(b.caption(L"lblZeit"), L"56 sek");
    tippen(L"\r", L"2|1 / 5|0");
}

TEST_F(Einzeiler, KeyAndFingerOfTheNextCharacterLight) {
    b.lektion(1, "Einzeiler", {"aA\"_ x"});
    öffnen();
    auto& rahmen = b.control<Shape>(L"shpLeucht");
    EXPECT_EQ(rahmen.place(), b.control<Picture>(L"picTaste", 30).place().grown(2));
    // The left edge of the character, over its finger. No key for the double quote: the character shows it
    // and stays where it last stood.
    for (const auto& [taste, an, links] : {std::tuple(L'a', std::vector{1}, 1485),
                                           {L'A', {1}, 1485},
                                           {L'"', {}, 1485},
                                           {L'_', {10}, 9945},
                                           {L' ', {5, 6}, 6570}}) {
        EXPECT_EQ(finger(), an) << links;
        EXPECT_EQ(rahmen.visible(), taste != L'"');
        EXPECT_EQ(b.control<Label>(L"lblAKtuell").left(), links);
        b.user.type(taste);
    }
}

TEST_F(Einzeiler, APressedKeyShowsItsFrameForATenthOfASecondAndAHeldOneSilentlyOnce) {
    b.lektion(1, "Einzeiler", {"5\x80 f"});
    öffnen();
    // One is beyond the first half of the code page, one has no key.
    for (const auto& [zeichen, taste] : {std::pair(L'5', 6), {L'€', 18}, {L'\b', 14}, {L'"', 0}})
        EXPECT_EQ(pausen([&, z = zeichen] { b.user.type(z); }), taste ? (Pausen{{100, {taste}}}) : Pausen{});
    EXPECT_EQ(b.caption(L"lblPosO", 2), L"€");
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
    EXPECT_EQ(b.caption(L"lblGenauigkeit"), L"75,00 %");
    b.user.type(L' ');
    b.user.click(L"imgEnde");
    EXPECT_EQ(b.aktiv(), L"Lern1");
    EXPECT_EQ(dateiinhalt(b.konto()), vorher);
}

} // namespace
} // namespace klopfmeise
