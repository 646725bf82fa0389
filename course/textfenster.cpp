#include "course/textfenster.h"

namespace klopfmeise {

namespace {
constexpr wchar_t zeilenvorschub = 10;
constexpr std::wstring_view zeilenendmarke = L"l";

/// Lines of text that the window shows; there is no room for more above the foot of the forms.
constexpr int zeilenzahl = 4;
constexpr int fensterbreite = 10830;
constexpr int fensteroberkante = 6195;
/// The black frame around the window.
constexpr int rahmendicke = 30;
/// What the window leaves free right of the right margin and below the lower one.
constexpr int freirand = 120;
/// The pattern of a cell: the text begins right of it, its first line at this height.
constexpr Rect musterplatz{0, 105, 165, 330};

constexpr int rechterRand = fensterbreite - freirand;
/// One pixel below the last line.
constexpr int untererRand = musterplatz.bottom() +
                            (zeilenzahl - 1) * (musterplatz.height + Textfenster::Zeilenabstand) +
                            twipsPerPixel;
constexpr int fensterhöhe = untererRand + freirand;

KeyHandlers tasten(Tastaturbild& bild, Tastensperre& sperre, std::function<void(const KeyPress&)> zeichen) {
    return {.down =
                [&](const KeyDown& taste) {
                    if (sperre.durchlassen())
                        bild.TastenLeuchten2(taste);
                },
            .press = [zeichen = std::move(zeichen)](KeyPress& taste) { zeichen(taste); },
            .up = [&] { sperre.loslassen(); }};
}

} // namespace

Textfenster::Textfenster(Form& form, Tastaturbild& bild, Tastensperre& sperre, int links,
                         std::function<void(const KeyPress&)> zeichen)
    : bild_(bild)
    , lblFärbung(form, L"lblFärbung",
                 Rect{links, fensteroberkante, fensterbreite, fensterhöhe}.grown(rahmendicke),
                 {.back = colors::black}, 1)
    , Picture1(form, L"Picture1", {links, fensteroberkante, fensterbreite, fensterhöhe},
               {.toolTip = L"", .keys = tasten(bild, sperre, std::move(zeichen))})
    , Text1(form, L"Text1", {0, 0, 600, 300}, {.visible = false})
    , lbl(
          Picture1, L"lbl", 0, 0, [](int) { return musterplatz; },
          LabelLook{.caption = L" ",
                    .font = {courier, 14.25, true},
                    .back = colors::white,
                    .autoSize = true,
                    .visible = false})
    , shpBegrenzung(Picture1, L"shpBegrenzung", {rechterRand, untererRand, 75, 75}, {.visible = false}) {}

void Textfenster::Übernehmen() {
    lbl.removeFrom(1);
    const std::wstring& text = Text1.text();
    Zellenzahl = static_cast<int>(text.size());
    const auto vorschub = [&](int i) {
        return i > 1 && i <= Zellenzahl && text[static_cast<std::size_t>(i) - 1] == zeilenvorschub;
    };
    for (int i = 1; i <= Zellenzahl + 1; ++i) {
        Label& zelle = lbl.load();
        if (vorschub(i + 1)) {
            // Marked before the lines are measured: the cell of the Enter key needs its place in the line.
            zelle.setCaption(std::wstring(zeilenendmarke));
            zelle.setFontName(wingdings);
        } else if (vorschub(i)) {
            zelle.setCaption(L"");
        } else {
            zelle.setCaption(i <= Zellenzahl ? std::wstring(1, text[static_cast<std::size_t>(i) - 1]) : L" ");
        }
        zelle.show();
    }
    lbl(1).setPlace({lbl(0).left() + lbl(0).width(), lbl(0).top(), lbl(1).width(), lbl(1).height()});
    for (int i = 2; i <= Zellenzahl + 1; ++i) {
        if (vorschub(i))
            zeilenanfang(i, lbl(0).left());
        else
            hinter(i);
        if (lbl(i).right() >= shpBegrenzung.left())
            umbrechen(i);
    }
    Pos = 1;
    FingerLeuchten();
}

void Textfenster::hinter(int i) {
    const Label& davor = lbl(i - 1);
    lbl(i).setPlace({davor.right(), davor.top(), lbl(i).width(), lbl(i).height()});
}

void Textfenster::zeilenanfang(int i, int links) {
    const Label& davor = lbl(i - 1);
    lbl(i).setPlace({links, davor.top() + davor.height() + Zeilenabstand, lbl(i).width(), lbl(i).height()});
}

void Textfenster::umbrechen(int i) {
    int leerzeichen = i - 1;
    while (leerzeichen >= 1 && lbl(leerzeichen).top() == lbl(i).top() && lbl(leerzeichen).caption() != L" ")
        --leerzeichen;
    // Where the line holds no blank, the cell that reaches the margin begins the next one.
    const bool gefunden = leerzeichen >= 1 && lbl(leerzeichen).top() == lbl(i).top();
    const int b = gefunden ? leerzeichen + 1 : i;
    zeilenanfang(b, lbl(1).left());
    for (int j = b + 1; j <= i; ++j)
        hinter(j);
}

void Textfenster::FingerLeuchten() {
    zelle().setBack(Cursorfarbe);
    bild_.fingerAus();
    bild_.leeren();
    if (Fehlersperre == 1) {
        bild_.aufTasteZeigen(TasteRück);
        bild_.rückzeichen();
    } else {
        bild_.leuchten(zelle().caption(), zelle().font().name);
        if (amZeilenende())
            bild_.aufTasteZeigen(TasteEingabe);
    }
    bild_.zeichenAufFinger();
}

void Textfenster::rücktaste() {
    zelle().setBack(colors::white);
    --Pos;
    if (zelle().caption().empty() && Pos > 1)
        --Pos;
    Fehlersperre = 0;
    FingerLeuchten();
}

void Textfenster::weiter() {
    if (!amEnde())
        ++Pos;
    // A line feed is no place for the cursor, at the very end of a text neither: nobody could type on.
    if (zelle().caption().empty() && !amEnde())
        ++Pos;
}

void Textfenster::richtig() {
    zelle().setBack(colors::right);
    weiter();
}

void Textfenster::falsch() {
    zelle().setBack(colors::wrong);
    Fehlersperre = 1;
    weiter();
    FingerLeuchten();
}

bool Textfenster::alleRichtig() const {
    for (int i = 1; i <= Zellenzahl; ++i)
        if (lbl(i).back() != colors::right)
            return false;
    return true;
}

bool Textfenster::keineFalsch() const {
    for (int i = 1; i <= Zellenzahl; ++i)
        if (lbl(i).back() == colors::wrong)
            return false;
    return true;
}

void Textfenster::scrollen() {
    if (amEnde())
        return;
    const auto verschieben = [this](int um) {
        for (int i = 1; i <= Zellenzahl + 1; ++i)
            lbl(i).setTop(lbl(i).top() + um);
    };
    const int zeile = lbl(0).height() + Zeilenabstand;
    if (zelle().bottom() > shpBegrenzung.top())
        verschieben(-zeile);
    if (zelle().top() < lbl(0).top())
        verschieben(zeile);
}

void Textfenster::blinken() { zelle().setBack(zelle().back() == Cursorfarbe ? Blinkfarbe : Cursorfarbe); }

} // namespace klopfmeise
