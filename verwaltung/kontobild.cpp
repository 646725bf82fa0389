#include "verwaltung/kontobild.h"

#include <algorithm>

namespace klopfmeise {

std::string_view Kontobild::satz(int nummer) const {
    const auto anfang = static_cast<std::size_t>(nummer - 1) * Kontodatei::Satzlänge;
    return std::string_view(bytes_).substr(std::min(anfang, bytes_.size()), Kontodatei::Satzlänge);
}

Kontobild::Stand Kontobild::stand(int nummer) const {
    const std::string_view bytes = satz(nummer);
    if (bytes.substr(0, 2).find_first_not_of('\0') == bytes.npos)
        return Stand::fehlt;
    return istLeer(wertAus(bytes)) ? Stand::unlesbar : Stand::gut;
}

std::wstring Kontobild::platz() const {
    const auto text = [&](Kontosatz nummer) {
        const Wert zahl = wert(nummer);
        return gleich(zahl, 0) || gleich(zahl, L"") ? std::wstring(L"1") : textAus(zahl, L',');
    };
    return L"Lektion " + text(Kontosatz::Lektionsnummer) + L", Stufe " + text(Kontosatz::Stufennummer);
}

} // namespace klopfmeise
