#include "games/ziehung.h"

#include "platform/values/text.h"

namespace klopfmeise {

namespace {

wchar_t anZufälligerStelle(std::wstring_view text, Random& zufall) {
    const double stelle = Int(static_cast<double>(text.size()) * zufall.next() + 1);
    return text.at(static_cast<std::size_t>(stelle) - 1);
}

} // namespace

bool hatZeichen(std::wstring_view Stufentext) {
    return Stufentext.find_first_not_of(L' ') != std::wstring_view::npos;
}

bool hatPaar(std::wstring_view Stufentext) {
    const auto erstes = Stufentext.find_first_not_of(L' ');
    if (erstes == std::wstring_view::npos)
        return false;
    const wchar_t schonDa[] = {L' ', Stufentext[erstes], 0};
    return Stufentext.find_first_not_of(schonDa) != std::wstring_view::npos;
}

wchar_t zeichenZiehen(std::wstring_view Stufentext, Random& zufall) {
    wchar_t zeichen = L' ';
    while (zeichen == L' ')
        zeichen = anZufälligerStelle(Stufentext, zufall);
    return zeichen;
}

Zeichenpaar paarZiehen(std::wstring_view Stufentext, Random& zufall) {
    Zeichenpaar paar;
    do {
        paar.erstes = anZufälligerStelle(Stufentext, zufall);
        paar.zweites = anZufälligerStelle(Stufentext, zufall);
    } while (paar.erstes == paar.zweites || paar.erstes == L' ' || paar.zweites == L' ');
    return paar;
}

} // namespace klopfmeise
