#include "verwaltung/aufruf.h"

#include "platform/values/text.h"

#include <algorithm>

namespace klopfmeise {

std::string Aufruf::wert(std::string_view option, std::string_view sonst) const {
    const auto gefunden = optionen.find(option);
    return gefunden == optionen.end() ? std::string(sonst) : gefunden->second;
}

std::optional<Aufruf> aufrufAus(std::span<const std::string> worte, std::span<const Option> erlaubt,
                                std::size_t ortszahl, std::wstring& fehler) {
    Aufruf aufruf;
    bool nurOrte = false;
    for (std::size_t i = 0; i < worte.size(); ++i) {
        const std::string& wort = worte[i];
        if (nurOrte || wort == "-" || !wort.starts_with('-')) {
            aufruf.orte.push_back(wort);
            continue;
        }
        if (wort == "--") {
            nurOrte = true;
            continue;
        }
        const auto gleich = wort.find('=');
        const std::string name = wort.substr(0, gleich);
        const auto option = std::ranges::find_if(
            erlaubt, [&](const Option& o) { return name == "--" + std::string(o.name); });
        if (option == erlaubt.end()) {
            fehler = L"Die Option " + fromUtf8(name) + L" gibt es hier nicht.";
            return std::nullopt;
        }
        const std::string schlüssel(option->name);
        if (aufruf.hat(schlüssel)) {
            fehler = L"Die Option " + fromUtf8(name) + L" steht zweimal da.";
            return std::nullopt;
        }
        if (option->wert.empty() && gleich != std::string::npos) {
            fehler = L"Die Option " + fromUtf8(name) + L" nimmt keinen Wert.";
            return std::nullopt;
        }
        std::string& wert = aufruf.optionen[schlüssel];
        if (gleich != std::string::npos)
            wert = wort.substr(gleich + 1);
        else if (!option->wert.empty() && i + 1 < worte.size())
            wert = worte[++i];
        if (!option->wert.empty() && (wert.empty() || wert.starts_with("--"))) {
            fehler = L"Hinter " + fromUtf8(name) + L" fehlt " + fromUtf8(option->wert) + L".";
            return std::nullopt;
        }
    }
    if (std::ranges::any_of(aufruf.orte, [](const std::string& ort) { return ort.empty(); }))
        fehler = L"Ein Argument ist leer.";
    else if (aufruf.orte.size() < ortszahl)
        fehler = L"Es fehlen Argumente.";
    else if (aufruf.orte.size() > ortszahl)
        fehler = L"Das sind zu viele Argumente: " + fromUtf8(aufruf.orte[ortszahl]) +
                 L". Namen mit Leerzeichen gehören in Anführungszeichen.";
    else
        return aufruf;
    return std::nullopt;
}

} // namespace klopfmeise
