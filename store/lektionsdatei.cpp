#include "store/lektionsdatei.h"

#include "platform/values/text.h"
#include "platform/values/windows1252.h"

#include <cmath>

namespace klopfmeise {

namespace {

/// More than any lesson needs; what lies behind is not read.
constexpr std::size_t größteDatei = std::size_t{16} << 20;

/// Takes the next line off `rest`; none at the end of the text.
std::optional<std::string_view> zeile(std::string_view& rest) {
    if (rest.empty())
        return std::nullopt;
    const auto ende = rest.find('\n');
    std::string_view text = rest.substr(0, ende);
    rest.remove_prefix(ende == std::string_view::npos ? rest.size() : ende + 1);
    if (text.ends_with('\r'))
        text.remove_suffix(1);
    return text;
}

std::wstring textOderLeer(std::optional<std::string_view> text) {
    return text ? fromWindows1252(*text) : std::wstring();
}

std::optional<int> stufenzahl(const std::wstring& text) {
    const auto zahl = spelledNumber(text);
    if (!zahl || *zahl != std::floor(*zahl) || *zahl < 1 || *zahl > Lektion::höchsteStufenzahl)
        return std::nullopt;
    return static_cast<int>(*zahl);
}

} // namespace

Lektion lektionAus(std::string_view bytes, int Stufennummer) {
    Lektion lektion;
    lektion.Stufenzahl = stufenzahl(textOderLeer(zeile(bytes)));
    lektion.Lektionsart = textOderLeer(zeile(bytes));
    lektion.Lektionstitel = textOderLeer(zeile(bytes));

    const std::string marke = "Unterstufe" + std::to_string(Stufennummer);
    auto gefunden = zeile(bytes);
    while (gefunden && *gefunden != marke)
        gefunden = zeile(bytes);
    const auto titel = zeile(bytes);
    const auto text = zeile(bytes);
    const auto hinweis = zeile(bytes);
    if (gefunden && titel && text && hinweis && !text->empty())
        lektion.stufe = {fromWindows1252(*titel), fromWindows1252(*text), fromWindows1252(*hinweis)};
    return lektion;
}

Lektion lektionLesen(Files& dateien, const std::wstring& pfad, int Stufennummer) {
    return lektionAus(dateien.readAll(pfad, größteDatei).value_or(std::string()), Stufennummer);
}

} // namespace klopfmeise
