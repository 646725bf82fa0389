#include "tests/course/tippbuehne.h"

#include <map>
#include <set>

namespace klopfmeise {
namespace {

/// A screen of running text, opened on a text of the test: a stage of the course, or text typing.
class Laufbühne : public Tippbühne {
protected:
    void fliesstextÖffnen(const std::string& text, std::int16_t durchgänge = 1) {
        b.lektion(1, "Fließtext", {text, "zwei"});
        b.satz(Kontosatz::Durchgangszahl, durchgänge);
        b.öffnen(L"Tastatur2");
    }
    void textÖffnen(std::string_view text) {
        dateiSchreiben(b.daten() / "Data" / "Texte" / "Text_001.txt", text);
        b.öffnen(L"Textübung0");
    }
    /// A key, and what it brings: sounds, the place of the cursor, the number of errors.
    struct Schritt {
        wchar_t taste;
        Klänge klänge;
        int pos;
        int fehler;
    };
    void spielen(const std::vector<Schritt>& schritte) {
        for (std::size_t i = 0; i < schritte.size(); ++i) {
            SCOPED_TRACE(i);
            EXPECT_EQ(klänge(schritte[i].taste), schritte[i].klänge);
            EXPECT_EQ(pos(), schritte[i].pos);
            EXPECT_EQ(b.caption(L"lblFehler"), std::to_wstring(schritte[i].fehler));
        }
    }
    Label& zelle(int i) { return b.control<Label>(L"lbl", i); }
    /// Place of the cursor: the one cell in a cursor's colour.
    int pos() {
        for (int i = 1;; ++i)
            if (zelle(i).back() == colors::midGrey || zelle(i).back() == colors::panel)
                return i;
    }
    /// Expects that the cell is the `spalte`-th of the `zeile`-th line.
    void erwartePlatz(int i, int zeile, int spalte) {
        EXPECT_EQ(zelle(i).place(), (Rect{165 * spalte, 105 + 340 * (zeile - 1), 165, 330})) << i;
    }

    const Klänge knopf{L"knopf.wav"};
    const Klänge falsch{L"falsch.wav"};
};
using Fliesstext = Laufbühne;
using Texttippen = Laufbühne;
using Textfenster = Laufbühne;

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
    // How the countdown is seen while it shows a number.
    std::map<std::wstring, std::set<std::string>> gesehen;
    const auto zusehen = [&](int sekunden) {
        for (int i = 0; i < 20 * sekunden; ++i) {
            b.user.pass(50);
            const bool rot = uhr.fore() == colors::red;
            gesehen[uhr.caption()].insert(uhr.visible() ? rot ? "rot" : "schwarz" : "versteckt");
        }
    };
    zusehen(8);
    EXPECT_EQ(gesehen[L"11"], std::set{"schwarz"s});
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

TEST_F(Textfenster, LinesBreakBehindTheLastBlankAndHold63Cells) {
    const std::string wort(130, 'x');
    struct Platz {
        int zelle, zeile, spalte;
    };
    const std::pair<std::string, std::vector<Platz>> fälle[]{
        // A word that would reach the margin, and the closing cell.
        {std::string(60, 'a') + " bcde f", {{61, 1, 61}, {62, 2, 1}, {68, 2, 7}}},
        // A word wider than a line breaks at the margin.
        {"ab " + wort, {{4, 2, 1}, {66, 2, 63}, {67, 3, 1}}},
        // The only blank is the first cell.
        {" " + wort.substr(0, 63), {{2, 2, 1}}},
    };
    for (const auto& [text, plätze] : fälle) {
        fliesstextÖffnen(text);
        for (const auto& [zelle, zeile, spalte] : plätze)
            erwartePlatz(zelle, zeile, spalte);
        b.runtime.unload(*b.runtime.active());
    }
    // 58 letters, a blank and a word that ends in cell 63: its line end would be the 64th.
    textÖffnen("{\\rtf1\\ansi " + std::string(58, 'a') + " bcde\\par f}");
    for (const auto& [zelle, zeile, spalte] : {Platz{59, 1, 59}, {60, 2, 1}, {66, 3, 1}})
        erwartePlatz(zelle, zeile, spalte);
}

TEST_F(Textfenster, TheTextScrollsByLinesBothWays) {
    std::wstring text;
    for (int i = 0; i < 6; ++i)
        text += std::wstring(62, static_cast<wchar_t>(L'a' + i)) + L" ";
    fliesstextÖffnen(std::string(text.begin(), text.end()) + "z");
    b.user.type(text.substr(0, 4 * 63));
    b.user.pass(50);
    erwartePlatz(4 * 63 + 1, 4, 1);
    erwartePlatz(1, 0, 1);
    b.user.type(std::wstring(3 * 63 + 1, L'\b'));
    b.user.pass(50);
    erwartePlatz(1, 1, 1);
}

TEST_F(Texttippen, LineEndsAreTypedWithEnterAndOnlyThatOfTheLastParagraphIsNoCell) {
    textÖffnen("{\\rtf1\\ansi al\\par\\par lo\\par}");
    EXPECT_EQ(b.caption(L"LblBib", 2), L"Text_001.txt");
    EXPECT_EQ(zelle(3).caption() + zelle(4).caption(), L"l");
    b.user.type(L"al");
    EXPECT_EQ(b.runtime.active()->spokenTarget(), L"Eingabetaste");
    spielen({{L'l', falsch, 5, 1}});
    EXPECT_EQ(zelle(3).back(), colors::wrong);
    // The cursor steps over the line feed.
    spielen({{L'\b', knopf, 3, 1}, {L'\r', knopf, 5, 1}, {L'\b', knopf, 3, 1}});
    b.user.type(L"\r\rl");
    EXPECT_FALSE(b.runtime.loaded(L"HilfeFehlerbericht"));
    b.user.type(L'o');
    EXPECT_TRUE(b.runtime.loaded(L"HilfeFehlerbericht"));
}

TEST_F(Texttippen, ThreeTextsCountAndTheirAverageIsAStringFirstThenANumber) {
    textÖffnen("0123456789");
    // 11 cells (the closing one included) in so many seconds give 120, 100 and 100 keystrokes a minute by
    // Int(60 * Pos / s).
    const auto tippen = [&](int sekunden) {
        b.user.activate(*b.runtime.loaded(L"Textübung0"));
        b.user.type(L"01x\b2345678");
        b.user.pass(sekunden * 1000 - 1000);
        b.user.type(L"9");
        return dynamic_cast<RichTextBox*>(b.runtime.active()->find(L"lbl"))->text();
    };
    EXPECT_EQ(b.caption(L"lblRichtig"), L"0");
    const std::wstring bericht = tippen(6);
    EXPECT_EQ(b.aktiv(), L"HilfeFehlerbericht");
    EXPECT_TRUE(bericht.starts_with(
        L"Du hast den Text in 6 Sekunden getippt.\r\n\r\nDas entspricht einer "
        L"Tippgeschwindigkeit von 100 Anschlägen pro Minute.\r\n\r\nBeim Tippen hast du 1 "
        L"Fehler gemacht."));
    EXPECT_EQ(b.slot(40, 4), "\x02\x00\x01\x00"s);
    EXPECT_EQ(b.slot(41, 7), "\x08\x00\x03\x00"s + "100");
    for (const auto& [sekunden, schnitt] : {std::pair{5, 110.0}, std::pair{6, 105.0}}) {
        tippen(sekunden);
        EXPECT_EQ(b.satz(Kontosatz::AnschlaegeSchnitt), Wert{schnitt});
    }
    b.user.activate(*b.runtime.loaded(L"Textübung0"));
    EXPECT_EQ(b.captions({L"lblRichtig", L"lblAnschlägeDurchschnitt"}), L"3|105");
    // Begun anew in the midst of an error.
    b.user.type(L"0x");
    b.user.pass(2000);
    b.user.click(L"imgNeu");
    EXPECT_EQ(pos(), 1);
    EXPECT_EQ(b.captions({L"lblAKtuell", L"lblFehler", L"lblZeit", L"lblAnschläge"}), L"0|0|0|0");
    // The keystrokes of the moment are cells by whole seconds from the first one on.
    b.user.pass(20000);
    for (const auto& [taste, pause, stand] : {std::tuple(L'0', 450, L"0|0"), {L'1', 1450, L"2|90"}}) {
        b.user.type(taste);
        b.user.pass(pause);
        EXPECT_EQ(b.captions({L"lblZeit", L"lblAnschläge"}), stand);
    }
    b.user.click(L"imgEnde");
    EXPECT_EQ(b.aktiv(), L"Lern1");
    EXPECT_FALSE(b.runtime.loaded(L"HilfeFehlerbericht"));
    EXPECT_EQ(b.satz(Kontosatz::TexteGesamt), Wert{std::int16_t{3}});
}

TEST_F(Texttippen, WithoutATextThereIsOneClosingCellAndNoKeyIsRight) {
    fs::remove(b.daten() / "Data" / "Texte" / "Text_001.txt");
    b.öffnen(L"Textübung0");
    b.user.type(L" \r\bx");
    EXPECT_EQ(b.satz(Kontosatz::TexteGesamt), Wert{std::int16_t{0}});
}

} // namespace
} // namespace klopfmeise
