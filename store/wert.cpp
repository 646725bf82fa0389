#include "store/wert.h"

#include "platform/values/text.h"
#include "platform/values/windows1252.h"

#include <bit>
#include <cmath>
#include <limits>

namespace klopfmeise {

namespace {

enum Marke : unsigned { leer = 0, integer = 2, lang = 3, einfach = 4, doppelt = 5, zeichenkette = 8 };

constexpr std::size_t markenbreite = 2;

std::uint64_t ganzAus(std::string_view bytes) {
    std::uint64_t zahl = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i)
        zahl |= std::uint64_t{static_cast<unsigned char>(bytes[i])} << (8 * i);
    return zahl;
}

void anfügen(std::string& bytes, std::uint64_t zahl, int breite) {
    for (int i = 0; i < breite; ++i)
        bytes += static_cast<char>(zahl >> (8 * i) & 0xFF);
}

} // namespace

Wert wertAus(std::string_view bytes) {
    if (bytes.size() < markenbreite)
        return {};
    const auto marke = ganzAus(bytes.substr(0, markenbreite));
    const auto daten = bytes.substr(markenbreite);
    const auto hat = [&](std::size_t breite) { return daten.size() >= breite; };
    switch (marke) {
    case integer:
        if (hat(2))
            return static_cast<std::int16_t>(ganzAus(daten.substr(0, 2)));
        break;
    case lang:
        if (hat(4))
            return static_cast<std::int32_t>(ganzAus(daten.substr(0, 4)));
        break;
    case einfach:
        if (hat(4))
            return std::bit_cast<float>(static_cast<std::uint32_t>(ganzAus(daten.substr(0, 4))));
        break;
    case doppelt:
        if (hat(8))
            return std::bit_cast<double>(ganzAus(daten.substr(0, 8)));
        break;
    case zeichenkette:
        if (hat(2))
            if (const auto länge = static_cast<std::size_t>(ganzAus(daten.substr(0, 2))); hat(2 + länge))
                return fromWindows1252(daten.substr(2, länge));
        break;
    default:
        break;
    }
    return {};
}

std::string bytesAus(const Wert& wert, std::size_t platz) {
    std::string bytes;
    const auto marke = [&](Marke m) { anfügen(bytes, m, markenbreite); };
    if (const auto* i = std::get_if<std::int16_t>(&wert)) {
        marke(integer);
        anfügen(bytes, static_cast<std::uint16_t>(*i), 2);
    } else if (const auto* l = std::get_if<std::int32_t>(&wert)) {
        marke(lang);
        anfügen(bytes, static_cast<std::uint32_t>(*l), 4);
    } else if (const auto* f = std::get_if<float>(&wert)) {
        marke(einfach);
        anfügen(bytes, std::bit_cast<std::uint32_t>(*f), 4);
    } else if (const auto* d = std::get_if<double>(&wert)) {
        marke(doppelt);
        anfügen(bytes, std::bit_cast<std::uint64_t>(*d), 8);
    } else if (const auto* s = std::get_if<std::wstring>(&wert)) {
        marke(zeichenkette);
        const std::string text = toWindows1252(*s).substr(0, platz - 2 * markenbreite);
        anfügen(bytes, text.size(), 2);
        bytes += text;
    } else {
        marke(leer);
    }
    return bytes;
}

bool istLeer(const Wert& wert) { return std::holds_alternative<std::monostate>(wert); }

std::optional<double> zahlAus(const Wert& wert) {
    struct Leser {
        std::optional<double> operator()(std::monostate) const { return std::nullopt; }
        std::optional<double> operator()(const std::wstring& text) const { return spelledNumber(text); }
        std::optional<double> operator()(std::int16_t zahl) const { return zahl; }
        std::optional<double> operator()(std::int32_t zahl) const { return zahl; }
        std::optional<double> operator()(float zahl) const { return static_cast<double>(zahl); }
        std::optional<double> operator()(double zahl) const { return zahl; }
    };
    return std::visit(Leser{}, wert);
}

bool gleich(const Wert& wert, double zahl) {
    if (istLeer(wert))
        return zahl == 0;
    return zahlAus(wert) == zahl;
}

bool gleich(const Wert& wert, std::wstring_view text) {
    if (istLeer(wert))
        return text.empty();
    const auto* eigen = std::get_if<std::wstring>(&wert);
    return eigen && *eigen == text;
}

Wert oderNull(const Wert& wert) {
    const auto zahl = zahlAus(wert);
    return gleich(wert, L"") || (zahl && !std::isfinite(*zahl)) ? Wert(std::int16_t{0}) : wert;
}

std::wstring textAus(const Wert& wert, wchar_t dezimalzeichen) {
    if (const auto* text = std::get_if<std::wstring>(&wert))
        return *text;
    // A Single shows its own seven digits, not those of the Double next to it.
    if (const auto* einzeln = std::get_if<float>(&wert))
        return numberText(static_cast<double>(*einzeln), dezimalzeichen, 7);
    const auto zahl = zahlAus(wert);
    return zahl ? numberText(*zahl, dezimalzeichen) : std::wstring();
}

Wert ganzzahl(int zahl) {
    using Kurz = std::numeric_limits<std::int16_t>;
    if (zahl >= Kurz::min() && zahl <= Kurz::max())
        return static_cast<std::int16_t>(zahl);
    return static_cast<std::int32_t>(zahl);
}

} // namespace klopfmeise
