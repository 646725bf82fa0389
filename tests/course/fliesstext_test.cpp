#include "platform/controls/drawn.h"
#include "platform/controls/rich_text_box.h"
#include "platform/controls/windowed.h"
#include "tests/buehne.h"

#include <gtest/gtest.h>
#include <numeric>

namespace klopfmeise {
namespace {

using std::string_literals::operator""s;

class Fließtext : public ::testing::Test {
protected:
    Bühne b;

    void öffnen(const std::string& text, std::int16_t durchgänge = 1) {
        b.lektion(1, "Fließtext", {text, "zwei"});
        b.satz(Kontosatz::Durchgangszahl, durchgänge);
        b.öffnen(L"Tastatur2");
    }
    void textÖffnen(std::string_view text) {
        dateiSchreiben(b.daten() / "Data" / "Texte" / "Text_001.txt", text);
        b.öffnen(L"Textübung0");
    }
    Label& zelle(int i) { return b.control<Label>(L"lbl", i); }
    /// Place of the cursor: the one cell in a cursor's colour.
    int pos() {
        for (int i = 1;; ++i)
            if (zelle(i).back() == colors::midGrey || zelle(i).back() == colors::panel)
                return i;
    }
    std::wstring letzterKlang() { return b.sound.played.empty() ? L"" : b.sound.played.back(); }
};

TEST_F(Fließtext, LinesBreakBehindTheLastBlankAndHold63Cells) {
    // 60 letters, a blank, a word that would reach the margin.
    öffnen(std::string(60, 'a') + " bcde f");
    EXPECT_EQ(zelle(1).left(), 165);
    EXPECT_EQ(zelle(1).top(), 105);
    EXPECT_EQ(zelle(61).caption(), L" ");
    EXPECT_EQ(zelle(61).top(), 105);
    EXPECT_EQ(zelle(62).place(), (Rect{165, 445, 165, 330}));
    EXPECT_EQ(zelle(67).left(), 165 + 5 * 165);
    // The closing cell.
    EXPECT_EQ(zelle(68).caption(), L" ");

    Bühne lang;
    lang.lektion(1, "Fließtext", {"ab " + std::string(130, 'x')});
    lang.öffnen(L"Tastatur2");
    const auto platz = [&](int i) { return lang.control<Label>(L"lbl", i).place(); };
    EXPECT_EQ(platz(4).top, 445);
    EXPECT_EQ(platz(4 + 63).top, 785);
    EXPECT_EQ(platz(4 + 63).left, 165);
    EXPECT_EQ(platz(4 + 62).right(), 10560);
}

TEST_F(Fließtext, TheCellOfALineEndNeedsItsPlaceInTheLineToo) {
    // 58 letters, a blank and a word that ends in cell 63: its line end would be the 64th.
    textÖffnen("{\\rtf1\\ansi " + std::string(58, 'a') + " bcde\\par f}");
    EXPECT_EQ(zelle(59).place(), (Rect{165 + 58 * 165, 105, 165, 330}));
    EXPECT_EQ(zelle(60).place(), (Rect{165, 445, 165, 330}));
    EXPECT_EQ(zelle(64).font().name, wingdings);
    EXPECT_EQ(zelle(64).place(), (Rect{165 + 4 * 165, 445, 165, 330}));
    EXPECT_EQ(zelle(66).top(), 785);
}

TEST_F(Fließtext, AWrongKeyLocksUntilItIsTakenBack) {
    öffnen("abc");
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

TEST_F(Fließtext, RunsCountWithTheirErrorsAndTheLastStageLeadsToTheNextLesson) {
    b.satz(Kontosatz::Stufennummer, std::int16_t{2});
    öffnen("egal", 3);
    for (int lauf = 1; lauf <= 3; ++lauf) {
        EXPECT_EQ(b.caption(L"lblDurchgang"), std::to_wstring(lauf) + L" / 3");
        b.user.type(L"zx\bwei");
        EXPECT_EQ(letzterKlang(), L"typewriterding.wav");
    }
    EXPECT_EQ(b.aktiv(), L"Tastatur0");
    EXPECT_EQ(b.slot(32, 4), "\x02\x00\x02\x00"s);
    EXPECT_EQ(b.slot(33, 4), "\x02\x00\x01\x00"s);
    // The error enters the figure at the key behind it.
    EXPECT_LT(zahlAus(b.satz(Kontosatz::Genauigkeit)).value_or(100), 100);
}

TEST_F(Fließtext, TheCountdownWarnsBlinksAndStopsTheRun) {
    b.satz(Kontosatz::Zeitmodus, std::int16_t{1});
    b.satz(Kontosatz::Tempowert, std::int16_t{3});
    öffnen(std::string(55, 'a'), 2);
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

TEST_F(Fließtext, TheTextScrollsByLinesBothWaysAndTheCursorStandsStillWithoutTime) {
    std::string text;
    for (int i = 0; i < 6; ++i)
        text += std::string(62, static_cast<char>('a' + i)) + " ";
    öffnen(text + "z");
    for (int i = 0; i < 4 * 63; ++i)
        b.user.type(static_cast<wchar_t>(text[static_cast<std::size_t>(i)]));
    b.user.pass(50);
    EXPECT_EQ(zelle(4 * 63 + 1).top(), 105 + 3 * 340);
    EXPECT_EQ(zelle(1).top(), 105 - 340);
    for (int i = 0; i < 3 * 63 + 1; ++i)
        b.user.type(L'\b');
    b.user.pass(50);
    EXPECT_EQ(zelle(1).top(), 105);
    EXPECT_EQ(zelle(pos()).back(), colors::midGrey);
    b.user.pass(1000);
    EXPECT_EQ(zelle(pos()).back(), colors::midGrey);
}

TEST_F(Fließtext, LineEndsAreTypedWithEnterAndTheCursorStepsOverTheLineFeed) {
    textÖffnen("{\\rtf1\\ansi al\\par lo\\par}");
    EXPECT_EQ(b.caption(L"LblBib", 2), L"Text_001.txt");
    EXPECT_EQ(zelle(3).caption(), L"l");
    EXPECT_EQ(zelle(3).font().name, wingdings);
    EXPECT_EQ(zelle(4).caption(), L"");
    EXPECT_EQ(zelle(5).top(), 445);
    EXPECT_EQ(zelle(5).left(), 165);
    b.user.type(L"al");
    EXPECT_TRUE(b.control<Picture>(L"imgFinger", 10).visible());
    EXPECT_EQ(b.control<Shape>(L"shpLeucht").place(), b.control<Picture>(L"picTaste", 28).place().grown(2));
    EXPECT_EQ(b.runtime.active()->spokenTarget(), L"Eingabetaste");
    b.user.type(L"l");
    EXPECT_EQ(zelle(3).back(), colors::wrong);
    EXPECT_EQ(pos(), 5);
    b.user.type(L"\b");
    EXPECT_EQ(pos(), 3);
    b.user.type(L"\r");
    EXPECT_EQ(pos(), 5);
    b.user.type(L"\b");
    EXPECT_EQ(pos(), 3);
    // A line end behind the last word closes the text like any other.
    b.user.type(L"\rlo\r");
    EXPECT_TRUE(b.runtime.loaded(L"HilfeFehlerbericht"));
}

TEST_F(Fließtext, ThreeTextsCountAndTheirAverageIsAStringFirstThenANumber) {
    textÖffnen("0123456789");
    // 11 cells (the closing one included) in so many seconds give 120, 100 and 100 keystrokes a minute by
    // Int(60 * Pos / s).
    b.satz(Kontosatz::TexteGesamt, std::int16_t{0});
    const auto tippen = [&](int sekunden) {
        Form& form = *b.runtime.loaded(L"Textübung0");
        b.user.activate(form);
        b.user.type(L"01");
        b.user.type(L"x\b");
        b.user.type(L"2345678");
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
    tippen(5);
    EXPECT_EQ(b.satz(Kontosatz::AnschlaegeSchnitt), Wert{110.0});
    tippen(6);
    EXPECT_EQ(b.satz(Kontosatz::AnschlaegeSchnitt), Wert{105.0});
    EXPECT_EQ(b.satz(Kontosatz::TexteGesamt), Wert{std::int16_t{3}});
    b.user.activate(*b.runtime.loaded(L"Textübung0"));
    EXPECT_EQ(b.caption(L"lblRichtig"), L"3");
    EXPECT_EQ(b.caption(L"lblAnschlägeDurchschnitt"), L"105");
    b.user.type(L"0");
    b.user.click(L"imgNeu");
    EXPECT_EQ(pos(), 1);
    b.user.click(L"imgEnde");
    EXPECT_EQ(b.aktiv(), L"Lern1");
    EXPECT_FALSE(b.runtime.loaded(L"HilfeFehlerbericht"));
    EXPECT_EQ(b.satz(Kontosatz::TexteGesamt), Wert{std::int16_t{3}});
}

TEST_F(Fließtext, WithoutATextThereIsOneClosingCellAndNoKeyIsRight) {
    std::filesystem::remove(b.daten() / "Data" / "Texte" / "Text_001.txt");
    b.öffnen(L"Textübung0");
    EXPECT_EQ(pos(), 1);
    b.user.type(L" \r\bx");
    EXPECT_EQ(pos(), 1);
    EXPECT_EQ(b.satz(Kontosatz::TexteGesamt), Wert{std::int16_t{0}});
}

TEST_F(Fließtext, TheKeyGateOfTextTypingOpensWithTheFirstKeyUp) {
    textÖffnen("abc");
    const double vorher = b.clock.seconds();
    b.user.keyDown(16);
    EXPECT_EQ(b.clock.seconds(), vorher);
    b.user.keyUp();
    b.user.keyDown(16);
    EXPECT_NEAR(b.clock.seconds() - vorher, 0.1, 1e-9);
    // The keystrokes of the moment: cells reached, by the whole seconds.
    b.user.keyUp();
    b.user.type(L"ab");
    b.user.pass(1900);
    EXPECT_EQ(b.caption(L"lblZeit"), L"2");
    EXPECT_EQ(b.caption(L"lblAnschläge"), L"90");
}

TEST(Hilfeseite, TellsTheExerciseAndClosesOnAClickElsewhere) {
    Bühne b;
    b.zurÜbung(1);
    b.user.click(L"imgHilfe", 0);
    ASSERT_EQ(b.aktiv(), L"Hilfe");
    EXPECT_EQ(b.caption(L"lblÜbung"), L" Klopfmeise - Der Kurs ");
    EXPECT_TRUE(b.caption(L"Label1").starts_with(L"Der Klopfmeise-Kurs besteht aus 30 Lektionen."));
    b.user.activate(*b.runtime.loaded(L"Tastatur0"));
    EXPECT_FALSE(b.runtime.loaded(L"Hilfe"));
    const std::vector<std::pair<std::wstring, std::wstring>> texte{
        {L"Text tippen", L"Der im Lehrkraft-Modus eingestellte Text"},
        {L"Spiel: Wolken treffen", L"Die beiden Buchstaben in den Bäumen"},
        {L"Spiel: Fallende Steine", L"Die beiden Buchstaben links und rechts des Schachtes"},
        {L"Spiel: Fließband", L"Das Fließband befördert"},
        {L"spiel: fließband", L"Der Hilfetext für diese Übung ist nicht verfügbar."},
    };
    for (const auto& [titel, anfang] : texte) {
        b.global.AktuelleUebung = titel;
        b.user.click(L"imgHilfe", 0);
        EXPECT_TRUE(b.caption(L"Label1").starts_with(anfang));
        b.user.close(*b.runtime.active());
    }
}

TEST(Kontoansicht, ShowsTheAccountAlikeFromBothSidesAndChangesNoByte) {
    Bühne b;
    b.start();
    b.user.click(L"LblGruppe", 0);
    b.user.pressRow(b.control<FileList>(L"File1"), 0);
    b.user.click(L"cmdKonto");
    ASSERT_EQ(b.aktiv(), L"Konto");
    EXPECT_TRUE(b.runtime.active()->topMost());
    const auto zeigt = [&](const std::vector<std::wstring>& werte) {
        const std::vector<std::wstring> felder{L"LblLektion",
                                               L"lblStufe",
                                               L"lblGenau",
                                               L"lblRichtig",
                                               L"lblAnschlägeDurchschnitt",
                                               L"lblHighWolken",
                                               L"lblHighTetris",
                                               L"lblHighFließband"};
        for (std::size_t i = 0; i < felder.size(); ++i)
            EXPECT_EQ(b.caption(felder[i]), werte[i]) << i;
    };
    zeigt({L"1", L"1", L"100,00 %", L"0", L"0", L"0", L"0", L"0"});
    b.user.activate(*b.runtime.loaded(L"Lern1"));
    EXPECT_FALSE(b.runtime.loaded(L"Konto"));
    EXPECT_TRUE(b.control<Frame>(L"frmSprache").visible());
    EXPECT_EQ(b.caption(L"LblName"), L"Mia");

    b.satz(Kontosatz::Lektionsnummer, std::int32_t{7});
    b.satz(Kontosatz::Genauigkeit, 98.745);
    b.satz(Kontosatz::AnschlaegeSchnitt, L"120"s);
    b.satz(Kontosatz::HighBand, 12.5F);
    b.satz(Kontosatz::HighSteine, 110.0);
    const std::string vorher = dateiinhalt(b.konto());
    for (const wchar_t* name : {L"Mia._", L"Mia"}) {
        b.global.AktuellesKonto = name;
        b.runtime.show(L"Konto");
        zeigt({L"7", L"1", L"98,75 %", L"0", L"120", L"0", L"110", L"12,5"});
        b.user.close(*b.runtime.active());
    }
    EXPECT_EQ(dateiinhalt(b.konto()), vorher);

    // An account that cannot be read is not an empty one.
    std::filesystem::remove(b.konto());
    std::filesystem::create_directory(b.konto());
    b.runtime.show(L"Konto");
    zeigt(std::vector<std::wstring>(8, L"–"));
    EXPECT_TRUE(b.control<Label>(L"lblUnlesbar").visible());
    EXPECT_EQ(b.caption(L"lblUnlesbar"), L"Das Konto kann gerade nicht gelesen werden.");
    b.user.close(*b.runtime.active());
    std::filesystem::remove(b.konto());
    b.runtime.show(L"Konto");
    zeigt({L"1", L"1", L"100,00 %", L"0", L"0", L"0", L"0", L"0"});
    EXPECT_FALSE(b.control<Label>(L"lblUnlesbar").visible());
}

TEST(RichText, SelectionTakesAFormatAndTheFileComesBack) {
    Bühne b;
    dateiSchreiben(b.daten() / "Data" / "Texte" / "Text_001.txt",
                   "{\\rtf1 \\b Gro\\'df\\b0 artig\\par\\qc x}");
    b.öffnen(L"Textübung0");
    auto& box = b.control<RichTextBox>(L"Text1");
    EXPECT_EQ(box.text(), L"Großartig\r\nx");
    box.select(0, static_cast<int>(box.text().size()));
    box.formatSelection({.typeface = L"Courier New", .halfPoints = 20}, RtfAlignment::left);
    ASSERT_EQ(box.document().paragraphs.size(), 2U);
    EXPECT_EQ(box.document().paragraphs[0].runs.size(), 1U);
    EXPECT_EQ(box.document().paragraphs[1].alignment, RtfAlignment::left);
    box.select(3, 2);
    box.formatSelection({.typeface = L"Courier New", .bold = true}, RtfAlignment::left);
    EXPECT_EQ(box.document().paragraphs[0].runs.size(), 3U);
    EXPECT_EQ(box.document().paragraphs[0].runs[1].text, L"ßa");
    const std::wstring pfad = logikpfad(b.daten() / "neu.txt");
    EXPECT_TRUE(box.saveFile(pfad));
    const RtfDocument vorher = box.document();
    box.setText(L"anderes");
    EXPECT_TRUE(box.loadFile(pfad));
    EXPECT_EQ(box.document(), vorher);
    EXPECT_FALSE(box.loadFile(pfad + L"x"));
    EXPECT_EQ(box.document(), vorher);
}

} // namespace
} // namespace klopfmeise
