#include "store/mdl_registry.h"

#include "platform/machine/value_text.h"
#include "platform/values/windows1252.h"

namespace klopfmeise {

namespace {

constexpr std::uint32_t lesezugriff = 25;
constexpr std::uint32_t schreibzugriff = 63;

std::string dwordBytes(std::int32_t zahl) {
    std::string bytes;
    for (int stelle = 0; stelle < 32; stelle += 8)
        bytes += static_cast<char>(static_cast<std::uint32_t>(zahl) >> stelle & 0xFF);
    return bytes;
}

/// Every line break, be it CR LF, CR or LF, becomes one zero.
std::string mitNullen(const std::string& text) {
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n')
            continue;
        bytes += text[i] == '\r' || text[i] == '\n' ? '\0' : text[i];
    }
    return bytes;
}

/// Every zero becomes a line break.
std::wstring mitZeilen(std::wstring_view text) {
    std::wstring zeilen;
    for (const wchar_t c : text)
        zeilen += c == L'\0' ? std::wstring(L"\r\n") : std::wstring(1, c);
    return zeilen;
}

} // namespace

RegistryStatus RegistrySchluesselDa(Registry& registry, std::uint32_t bereich, std::wstring_view schlüssel) {
    const auto offen = registry.open(bereich, toWindows1252(schlüssel), lesezugriff);
    if (offen.status == RegistryStatus::success)
        registry.close(offen.handle);
    return offen.status;
}

std::uint32_t RegistrySchluesselAnlegen(Registry& registry, std::uint32_t bereich,
                                        std::wstring_view schlüssel) {
    const auto neu = registry.create(bereich, toWindows1252(schlüssel), schreibzugriff);
    if (neu.status == RegistryStatus::success && registry.flush(neu.handle) == RegistryStatus::success)
        registry.close(neu.handle);
    return neu.disposition;
}

RegistryStatus RegistrySchreiben(Registry& registry, std::uint32_t bereich, std::wstring_view schlüssel,
                                 std::wstring_view name, const Wert& wert, bool mehrzeilig, bool anlegen) {
    if (anlegen) {
        RegistrySchluesselDa(registry, bereich, schlüssel);
        RegistrySchluesselAnlegen(registry, bereich, schlüssel);
    }
    Registry::Value inhalt;
    if (const auto* text = std::get_if<std::wstring>(&wert)) {
        inhalt = {Registry::Type::string, valueBytes(*text)};
        if (mehrzeilig && text->find_first_of(L"\r\n") != std::wstring::npos)
            inhalt = {Registry::Type::multiString, mitNullen(inhalt.bytes)};
    } else if (const auto* kurz = std::get_if<std::int16_t>(&wert)) {
        inhalt = {Registry::Type::dword, dwordBytes(*kurz)};
    } else if (const auto* lang = std::get_if<std::int32_t>(&wert)) {
        inhalt = {Registry::Type::dword, dwordBytes(*lang)};
    }
    const auto offen = registry.open(bereich, toWindows1252(schlüssel), schreibzugriff);
    if (offen.status != RegistryStatus::success)
        return offen.status;
    if (inhalt.type != Registry::Type::none)
        registry.set(offen.handle, toWindows1252(name), inhalt);
    return registry.close(offen.handle);
}

RegistryStatus RegistryLesen(Registry& registry, std::uint32_t bereich, std::wstring_view schlüssel,
                             std::wstring_view name, Wert& ziel) {
    const auto offen = registry.open(bereich, toWindows1252(schlüssel), lesezugriff);
    if (offen.status != RegistryStatus::success)
        return offen.status;
    Registry::Value inhalt;
    const auto status = registry.query(offen.handle, toWindows1252(name), inhalt);
    if (status == RegistryStatus::success) {
        if (inhalt.type == Registry::Type::string) {
            ziel = valueText(inhalt.bytes);
        } else if (inhalt.type == Registry::Type::multiString) {
            ziel = mitZeilen(valueText(inhalt.bytes));
        } else if (inhalt.type == Registry::Type::dword && inhalt.bytes.size() == 4) {
            std::uint32_t zahl = 0;
            for (std::size_t i = 0; i < 4; ++i)
                zahl |= std::uint32_t{static_cast<unsigned char>(inhalt.bytes[i])} << (8 * i);
            ziel = static_cast<std::int32_t>(zahl);
        }
    }
    registry.close(offen.handle);
    return status;
}

std::wstring RegistryText(Registry& registry, std::wstring_view name) {
    Wert wert;
    RegistryLesen(registry, Maschine, Programmschlüssel, name, wert);
    // A number counts by its digits: an access code laid as one must not pass for a missing code.
    if (const auto* zahl = std::get_if<std::int32_t>(&wert))
        return std::to_wstring(*zahl);
    const auto* text = std::get_if<std::wstring>(&wert);
    return text ? *text : std::wstring();
}

} // namespace klopfmeise
