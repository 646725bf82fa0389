#pragma once

#include <string>
#include <string_view>

namespace klopfmeise {

/// True if a class or a text can bear this name on every machine that may share the data folder: nothing of
/// `\ / : * ? " < > |` and no control character, no dot at its beginning, no dot or blank at its end, no name
/// of a device (CON, LPT1 and the like, whatever ending follows), and all of it in Windows-1252. Such a name
/// never leads out of its folder.
bool zulässigerName(std::wstring_view name);

/// True if a path with this name in it would lead out of the name's folder, or end too early. Names that come
/// from a disk or a file may be odd, but not that.
bool führtHinaus(std::wstring_view name);

/// Characters that a name may have where it is typed: those of a class, those of an account.
inline constexpr int längsterKlassenname = 15;
inline constexpr int längsterKontoname = 20;

/// What is wrong about other names, as a sentence for the user.
inline constexpr const wchar_t* namensregeln =
    L"Ein Name darf nicht leer sein, nicht mit einem Punkt beginnen, nicht mit einem Punkt oder Leerzeichen "
    L"enden, keines der Zeichen \\ / : * ? \" < > | und kein Zeichen außerhalb des westeuropäischen "
    L"Zeichensatzes enthalten und kein Gerätename wie CON oder LPT1 sein.";

} // namespace klopfmeise
