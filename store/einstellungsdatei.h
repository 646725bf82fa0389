#pragma once

#include "store/globale.h"

#include <array>
#include <string>
#include <string_view>

namespace klopfmeise {

class Files;

inline constexpr int Übungszahl = 5;

/// What the class's `KME.ein` switches on, by the exercises' numbers less one. A switch is on only if its
/// record equals 1; a file that is missing is created empty and offers nothing.
std::array<bool, Übungszahl> angebotLesen(Files& dateien, const Globale& global);

/// File name of the class's text, record 106; empty where none is chosen.
std::wstring textnameLesen(Files& dateien, const Globale& global);
bool textnameSchreiben(Files& dateien, const Globale& global, std::wstring_view name);

} // namespace klopfmeise
