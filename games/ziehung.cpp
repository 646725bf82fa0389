#include "games/ziehung.h"

#include "platform/values/text.h"

#include <algorithm>

namespace klopfmeise {

namespace {

bool ziehbar(wchar_t zeichen) {
    constexpr wchar_t festesLeerzeichen = 0xA0;
    constexpr wchar_t weichesTrennzeichen = 0xAD;
    return (zeichen > L' ' && zeichen < 0x7F) ||
           (zeichen > festesLeerzeichen && zeichen != weichesTrennzeichen);
}

wchar_t anZufälligerStelle(std::wstring_view text, Random& zufall) {
    const double stelle = Int(static_cast<double>(text.size()) * zufall.next() + 1);
    return text.at(static_cast<std::size_t>(stelle) - 1);
}

} // namespace

bool hatZeichen(std::wstring_view Stufentext) { return std::ranges::any_of(Stufentext, ziehbar); }

bool hatPaar(std::wstring_view Stufentext) {
    const auto erstes = std::ranges::find_if(Stufentext, ziehbar);
    return std::any_of(erstes, Stufentext.end(),
                       [&](wchar_t zeichen) { return ziehbar(zeichen) && zeichen != *erstes; });
}

wchar_t zeichenZiehen(std::wstring_view Stufentext, Random& zufall) {
    wchar_t zeichen = L' ';
    while (!ziehbar(zeichen))
        zeichen = anZufälligerStelle(Stufentext, zufall);
    return zeichen;
}

Zeichenpaar paarZiehen(std::wstring_view Stufentext, Random& zufall) {
    Zeichenpaar paar;
    do {
        paar.erstes = anZufälligerStelle(Stufentext, zufall);
        paar.zweites = anZufälligerStelle(Stufentext, zufall);
    } while (paar.erstes == paar.zweites || !ziehbar(paar.erstes) || !ziehbar(paar.zweites));
    return paar;
}

} // namespace klopfmeise
