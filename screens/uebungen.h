#pragma once

#include "screens/formnamen.h"
#include "store/einstellungsdatei.h"

#include <array>
#include <string_view>

namespace klopfmeise {

/// One exercise of the menu. The title is the key by which the menu and the help pages know it, letter for
/// letter.
struct Übung {
    const wchar_t* titel;
    std::wstring_view form;
    const wchar_t* bild;
};

/// By the exercises' numbers less one.
inline constexpr auto Übungen = std::to_array<Übung>({
    {L"Klopfmeise - Der Kurs", formname::Tastatur0, L"uebung_1"},
    {L"Text tippen", formname::Textübung0, L"uebung_2"},
    {L"Spiel: Wolken treffen", formname::Tastatur3, L"uebung_3"},
    {L"Spiel: Fallende Steine", formname::Tetris, L"uebung_4"},
    {L"Spiel: Fließband", formname::Fließband, L"uebung_5"},
});
static_assert(Übungen.size() == Übungszahl);

/// Numbers of the exercises, as menu and class settings count them.
inline constexpr int ÜbungKurs = 1;
inline constexpr int ÜbungText = 2;
inline constexpr int ÜbungWolken = 3;
inline constexpr int ÜbungSteine = 4;
inline constexpr int ÜbungBand = 5;

/// An exercise by its number, 1 to Übungszahl.
constexpr const Übung& übungMit(int nummer) { return Übungen.at(static_cast<std::size_t>(nummer) - 1); }

} // namespace klopfmeise
