#include "platform/controls/rich_text_box.h"
#include "tests/course/laufbuehne.h"

namespace klopfmeise {
namespace {

using std::string_literals::operator""s;

class Texttippen : public Laufbühne {};

TEST_F(Texttippen, LineEndsAreTypedWithEnterAndTheCursorStepsOverTheLineFeed) {
    textÖffnen("{\\rtf1\\ansi al\\par lo\\par}");
    EXPECT_EQ(b.caption(L"LblBib", 2), L"Text_001.txt");
    EXPECT_EQ(zelle(3).caption() + zelle(4).caption(), L"l");
    b.user.type(L"al");
    EXPECT_EQ(b.runtime.active()->spokenTarget(), L"Eingabetaste");
    spielen({{L'l', falsch, 5, 1}});
    EXPECT_EQ(zelle(3).back(), colors::wrong);
    spielen({{L'\b', knopf, 3, 1}, {L'\r', knopf, 5, 1}, {L'\b', knopf, 3, 1}});
}

TEST_F(Texttippen, TheEndOfTheLastParagraphIsNoCellButAnEmptyLineIsTyped) {
    textÖffnen("{\\rtf1\\ansi al\\par\\par lo\\par}");
    b.user.type(L"al\r\rl");
    EXPECT_FALSE(b.runtime.loaded(L"HilfeFehlerbericht"));
    b.user.type(L'o');
    EXPECT_TRUE(b.runtime.loaded(L"HilfeFehlerbericht"));
}

TEST_F(Texttippen, ThreeTextsCountAndTheirAverageIsAStringFirstThenANumber) {
    textÖffnen("0123456789");
    // 11 cells (the closing one included) in so many seconds give 120, 100 and 100 keystrokes a minute by
    // Int(60 * Pos / s).
    b.satz(Kontosatz::TexteGesamt, std::int16_t{0});
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
    b.user.click(L"imgEnde");
    EXPECT_EQ(b.aktiv(), L"Lern1");
    EXPECT_FALSE(b.runtime.loaded(L"HilfeFehlerbericht"));
    EXPECT_EQ(b.satz(Kontosatz::TexteGesamt), Wert{std::int16_t{3}});
}

TEST_F(Texttippen, WithoutATextThereIsOneClosingCellAndNoKeyIsRight) {
    std::filesystem::remove(b.daten() / "Data" / "Texte" / "Text_001.txt");
    b.öffnen(L"Textübung0");
    b.user.type(L" \r\bx");
    EXPECT_EQ(b.satz(Kontosatz::TexteGesamt), Wert{std::int16_t{0}});
}

TEST_F(Texttippen, TheKeystrokesOfTheMomentAreCellsByWholeSeconds) {
    textÖffnen("abc");
    b.user.pass(20000);
    b.user.type(L"a");
    b.user.pass(450);
    EXPECT_EQ(b.captions({L"lblZeit", L"lblAnschläge"}), L"0|0");
    b.user.type(L"b");
    b.user.pass(1450);
    EXPECT_EQ(b.captions({L"lblZeit", L"lblAnschläge"}), L"2|90");
}

} // namespace
} // namespace klopfmeise
