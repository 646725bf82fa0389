#pragma once

#include "screens/umgebung.h"

#include <string>
#include <string_view>

namespace klopfmeise {

/// What stands in place of a list whose folder cannot be listed.
inline constexpr const wchar_t* ablageUnlesbar = L"Die Datenablage kann gerade nicht gelesen werden.";

/// Tells that a folder cannot be the data folder, and what a data folder is; `welcher` says which folder it
/// is, "eingestellte" or "angegebene".
void datenablageAblehnen(const Umgebung& umgebung, std::wstring_view welcher, const std::wstring& ordner);

/// Tells that only an administrator can write the machine-wide values. The program, in the spelling of its
/// name that the screen uses, says that it ends now; to end it is left to the caller.
void administratorVerlangen(const Umgebung& umgebung, std::wstring_view programm);

} // namespace klopfmeise
