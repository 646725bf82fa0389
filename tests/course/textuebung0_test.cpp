#include "platform/controls/rich_text_box.h"
#include "tests/course/laufbuehne.h"

namespace klopfmeise {
namespace {

using std::string_literals::operator""s;

class Texttippen : public Laufbühne {};

TEST_F(Texttippen, LineEndsAreTypedWithEnterAndTheCursorStepsOverTheLineFeed) {
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
    b.user.type(L"\rl");
    EXPECT_FALSE(b.runtime.loaded(L"HilfeFehlerbericht"));
    // The end of the last paragraph is no cell.
    b.user.type(L"o");
    EXPECT_TRUE(b.runtime.loaded(L"HilfeFehlerbericht"));
}

TEST_F(Texttippen, AnEmptyLineAtTheEndIsTypedLikeAnyOtherLineEnd) {
    textÖffnen("{\\rtf1\\ansi al\\par\\par}");
    b.user.type(L"al");
    EXPECT_FALSE(b.runtime.loaded(L"HilfeFehlerbericht"));
    b.user.type(L"\r");
    EXPECT_TRUE(b.runtime.loaded(L"HilfeFehlerbericht"));
}

TEST_F(Texttippen, ThreeTextsCountAndTheirAverageIsAStringFirstThenANumber) {
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

TEST_F(Texttippen, WithoutATextThereIsOneClosingCellAndNoKeyIsRight) {
    std::filesystem::remove(b.daten() / "Data" / "Texte" / "Text_001.txt");
    b.öffnen(L"Textübung0");
    EXPECT_EQ(pos(), 1);
    b.user.type(L" \r\bx");
    EXPECT_EQ(pos(), 1);
    EXPECT_EQ(b.satz(Kontosatz::TexteGesamt), Wert{std::int16_t{0}});
}

TEST_F(Texttippen, TheKeyGateOfTextTypingOpensWithTheFirstKeyUp) {
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

} // namespace
} // namespace klopfmeise
