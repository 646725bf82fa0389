#pragma once

#include "store/globale.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace klopfmeise {

class Files;

inline constexpr int Übungszahl = 5;

/// What the class's `KME.ein` switches on, by the exercises' numbers less one. A switch is on only if its
/// record equals 1; a file that is missing is created empty and offers nothing.
std::array<bool, Übungszahl> angebotLesen(Files& dateien, const Globale& global);

/// The switches of a class, by its folder's name with a backslash, as the settings screen shows them; none if
/// they could not be read or there is no such class.
std::optional<std::array<bool, Übungszahl>> schalterLesen(Files& dateien, const Globale& global,
                                                          const std::wstring& klasse);
/// Writes them: records 1 to 100, those above 5 with the value of record 5, all or none. Nothing is made or
/// written for a class that is gone, nor in the template of the new classes. False if a class that is there
/// did not take them.
bool schalterSchreiben(Files& dateien, const Globale& global, const std::wstring& klasse,
                       const std::array<bool, Übungszahl>& schalter);

/// File name of the class's text, record 106; empty where none is chosen.
std::wstring textnameLesen(Files& dateien, const Globale& global);
bool textnameSchreiben(Files& dateien, const Globale& global, std::wstring_view name);

} // namespace klopfmeise
