#include "course/tastaturbild.h"

#include <algorithm>
#include <iterator>
#include <vector>

namespace klopfmeise {

namespace {

constexpr int rechterKleinerFinger = 10;
constexpr int rechterDaumen = 6;
/// Milliseconds that a pressed key keeps its frame.
constexpr int blitzdauer = 100;

std::wstring zweistellig(int zahl) { return (zahl < 10 ? L"0" : L"") + std::to_wstring(zahl); }

Rect fingerplatz(int finger, int daumenLinks) {
    Rect platz = fingerbild(finger);
    if (finger == rechterDaumen)
        platz.left = daumenLinks;
    return platz;
}

} // namespace

Tastaturbild::Tastaturbild(Form& form, const Umgebung& umgebung, int daumenLinks)
    : umgebung_(umgebung)
    , shpLeucht(form, L"shpLeucht", {0, 0, 0, 0},
                {.fill = colors::white, .outline = colors::black, .visible = false})
    , picTaste(
          form, L"picTaste", 1, Tastenzahl, [](int i) { return taste(i).lage; },
          [](int i) {
              return PictureLook{.picture = L"taste_" + zweistellig(i),
                                 .spoken = std::wstring(taste(i).name)};
          })
    , imgFinger(
          form, L"imgFinger", 1, Fingerzahl, [daumenLinks](int i) { return fingerplatz(i, daumenLinks); },
          [](int i) { return PictureLook{.picture = L"finger_" + zweistellig(i), .visible = false}; })
    , lblT(form, L"lblT", {10230, 645, 1185, 660},
           {.caption = L"ß", .font = {wingdings, 27.75, true}, .visible = false}, 32)
    // On the left index finger until a key is lit: the first character of a text may have none.
    , lblAKtuell(form, L"lblAKtuell", {3810, 4672, 660, 810},
                 {.font = {courier, 27.75, true}, .align = Align::center, .wrap = false}) {}

void Tastaturbild::fingerAus() {
    for (int i = 1; i <= Fingerzahl; ++i)
        imgFinger(i).hide();
}

void Tastaturbild::leeren() {
    shpLeucht.hide();
    lblAKtuell.setCaption(L"");
    lblAKtuell.repaint();
}

void Tastaturbild::leuchten(const std::wstring& zeichen, std::wstring_view schrift) {
    lblAKtuell.setFontName(schrift);
    lblAKtuell.setCaption(zeichen);
    lblAKtuell.repaint();
    const int nummer = zeichen.size() == 1 ? tasteFür(zeichen.front()) : 0;
    if (nummer == 0)
        return;
    for (const int finger : fingerFür(nummer))
        imgFinger(finger).show();
    umrahmen(taste(nummer));
}

void Tastaturbild::umrahmen(const Taste& taste) {
    // Behind the key, so that only a rim of two twips shows.
    shpLeucht.setPlace(taste.lage.grown(2));
    shpLeucht.show();
}

void Tastaturbild::aufTasteZeigen(int nummer) {
    fingerAus();
    imgFinger(rechterKleinerFinger).show();
    umrahmen(taste(nummer));
}

void Tastaturbild::rückzeichen() {
    lblAKtuell.setCaption(lblT.caption());
    lblAKtuell.setFontName(lblT.font().name);
}

void Tastaturbild::zeichenAufFinger() {
    for (int i = 1; i <= Fingerzahl; ++i) {
        const Picture& finger = imgFinger(i);
        if (!finger.visible())
            continue;
        lblAKtuell.setPlace({finger.left() + finger.width() / 2 - lblAKtuell.width() / 2,
                             finger.top() + lblAKtuell.height() / 4, lblAKtuell.width(),
                             lblAKtuell.height()});
        return;
    }
}

void Tastaturbild::TastenLeuchten(const KeyPress& taste, bool klick) {
    const int nummer = tasteFürZeichencode(taste.character);
    if (nummer == 0)
        return;
    if (klick)
        umgebung_.klang(L"knopf.wav");
    Tastenblitz(std::span(&nummer, 1));
}

void Tastaturbild::TastenLeuchten2(const KeyDown& taste) {
    std::vector<int> nummern;
    for (const int code : taste.codes)
        std::ranges::copy(tastenFürTastencode(code), std::back_inserter(nummern));
    if (!nummern.empty())
        Tastenblitz(nummern);
}

void Tastaturbild::Tastenblitz(std::span<const int> nummern) {
    for (const bool an : {true, false}) {
        for (const int nummer : nummern) {
            picTaste(nummer).setBorder(an);
            picTaste(nummer).repaint();
        }
        if (an)
            umgebung_.runtime.wait(blitzdauer);
    }
}

std::wstring Tastaturbild::ziel() const {
    const std::wstring& zeichen = lblAKtuell.caption();
    if (lblAKtuell.font().name == wingdings)
        return zeichen == lblT.caption() ? L"Rücktaste" : L"Eingabetaste";
    return zeichen == L" " ? L"Leertaste" : zeichen;
}

} // namespace klopfmeise
