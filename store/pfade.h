#pragma once

#include "store/globale.h"

#include <string>
#include <string_view>

namespace klopfmeise {

/// The ending of a Kontodatei; a child's name is the file name less it.
inline constexpr std::wstring_view Kontoendung = L"._";

/// What the files of accounts match.
inline constexpr std::wstring_view Kontomuster = L"*._";

/// `Gruppen\<Klasse>\` of the chosen class, or `Gruppen\` while none is chosen.
std::wstring klassenordner(const Globale& global);
/// The Kontodatei of the chosen child, whether `AktuellesKonto` carries the ending or not.
std::wstring kontopfad(const Globale& global);
/// The Kontodatei of a child of the chosen class; `name` is without the ending.
std::wstring kontopfad(const Globale& global, const std::wstring& name);
/// `AktuellesKonto` of the learner's side without its ending.
std::wstring kontoname(const Globale& global);
/// `Data\Tastatur\Lektion<n>.txt` and `.bmp`.
std::wstring lektionspfad(const Globale& global, int lektion);
std::wstring lektionsbild(const Globale& global, std::wstring_view lektion);

} // namespace klopfmeise
