#pragma once

#include "store/einstellungsdatei.h"

#include <array>

namespace klopfmeise {

/// One exercise of the menu. The title is the key by which the menu and the help pages know it, letter for
/// letter.
struct Übung {
    const wchar_t* titel;
    const wchar_t* form;
    const wchar_t* bild;
};

/// By the exercises' numbers less one.
inline constexpr std::array<Übung, Übungszahl> Übungen{{
    {L"Klopfmeise - Der Kurs", L"Tastatur0", L"uebung_1"},
    {L"Text tippen", L"Textübung0", L"uebung_2"},
    {L"Spiel: Wolken treffen", L"Tastatur3", L"uebung_3"},
    {L"Spiel: Fallende Steine", L"Tetris", L"uebung_4"},
    {L"Spiel: Fließband", L"Fließband", L"uebung_5"},
}};

} // namespace klopfmeise
