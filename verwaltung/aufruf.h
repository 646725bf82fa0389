#pragma once

#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace klopfmeise {

/// An option of a command, without its hyphens. `wert` is what stands for its value in the help; empty where
/// it takes none.
struct Option {
    std::string_view name;
    std::string_view wert;
    std::string_view hilfe;
};

/// What a command was called with: its arguments in order, and its options by name.
struct Aufruf {
    std::vector<std::string> orte;
    std::map<std::string, std::string, std::less<>> optionen;

    bool hat(std::string_view option) const { return optionen.contains(option); }
    /// The value of an option, or `sonst` where it was not given.
    std::string wert(std::string_view option, std::string_view sonst = {}) const;
};

/// Takes the words behind the name of a command apart: `--name`, `--name=wert`, `--name wert`; behind `--`
/// all are arguments, and a single hyphen is one. There have to be `ortszahl` of them. What is wrong goes to
/// `fehler`, a German sentence.
std::optional<Aufruf> aufrufAus(std::span<const std::string> worte, std::span<const Option> erlaubt,
                                std::size_t ortszahl, std::wstring& fehler);

} // namespace klopfmeise
