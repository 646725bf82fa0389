#pragma once

#include <string_view>

namespace klopfmeise {

/// The names by which screens know one another; what makes the form of a name stands in formen.cpp.
namespace formname {

inline constexpr std::wstring_view frmStart = L"frmStart";
inline constexpr std::wstring_view frmTemp = L"frmTemp";
inline constexpr std::wstring_view frmPfad = L"frmPfad";
inline constexpr std::wstring_view frmAbbildung = L"frmAbbildung";

inline constexpr std::wstring_view Lern1 = L"Lern1";
inline constexpr std::wstring_view Hilfe = L"Hilfe";
inline constexpr std::wstring_view HilfeFehlerbericht = L"HilfeFehlerbericht";
inline constexpr std::wstring_view Konto = L"Konto";

inline constexpr std::wstring_view Tastatur0 = L"Tastatur0";
inline constexpr std::wstring_view Tastatur1 = L"Tastatur1";
inline constexpr std::wstring_view Tastatur2 = L"Tastatur2";
inline constexpr std::wstring_view Textübung0 = L"Textübung0";
inline constexpr std::wstring_view Tastatur3 = L"Tastatur3";
inline constexpr std::wstring_view Tetris = L"Tetris";
inline constexpr std::wstring_view Fließband = L"Fließband";

inline constexpr std::wstring_view einst0 = L"einst0";
inline constexpr std::wstring_view einstKlassen = L"einstKlassen";
inline constexpr std::wstring_view einstHaupt = L"einstHaupt";
inline constexpr std::wstring_view einstTastatur = L"einstTastatur";
inline constexpr std::wstring_view einstTexte = L"einstTexte";
inline constexpr std::wstring_view einstAllgemein = L"einstAllgemein";
inline constexpr std::wstring_view einstCode = L"einstCode";

} // namespace formname

} // namespace klopfmeise
