#pragma once

#include "platform/values/color.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace klopfmeise {

inline constexpr int Figurenzahl = 7;

/// A state of a figure: its grid row by row from the top, '#' for a cell.
using Figurenzustand = std::array<std::string_view, 4>;

struct Figur {
    Color farbe;
    int zustände = 1;
    std::array<Figurenzustand, 4> zustand{};
};

/// By the figures' kinds less one. A turn takes the next state as it stands here; none is computed from
/// another.
inline constexpr std::array<Figur, Figurenzahl> Figuren{{
    {RGB(255, 0, 0), 1, {{{"....", ".##.", ".##.", "...."}}}},
    {RGB(0, 180, 0),
     2,
     {{
         {"....", "####", "....", "...."},
         {".#..", ".#..", ".#..", ".#.."},
     }}},
    {RGB(255, 150, 0),
     4,
     {{
         {".##.", "..#.", "..#.", "...."},
         {"...#", ".###", "....", "...."},
         {".#..", ".#..", ".##.", "...."},
         {".###", ".#..", "....", "...."},
     }}},
    {RGB(100, 100, 100),
     4,
     {{
         {".##.", ".#..", ".#..", "...."},
         {".###", "...#", "....", "...."},
         {"..#.", "..#.", ".##.", "...."},
         {".#..", ".###", "....", "...."},
     }}},
    {RGB(200, 0, 200),
     4,
     {{
         {"..#.", ".##.", "..#.", "...."},
         {"..#.", ".###", "....", "...."},
         {".#..", ".##.", ".#..", "...."},
         {".###", "..#.", "....", "...."},
     }}},
    {RGB(100, 100, 255),
     2,
     {{
         {".#..", ".##.", "..#.", "...."},
         {"..##", ".##.", "....", "...."},
     }}},
    {RGB(0, 200, 200),
     2,
     {{
         {"..#.", ".##.", ".#..", "...."},
         {".##.", "..##", "....", "...."},
     }}},
}};

constexpr const Figur& figurMit(int art) { return Figuren.at(static_cast<std::size_t>(art) - 1); }

/// True if the figure `art` (from 1) has the cell (x, y), 1 to 4 each, in the state `drehung` (from 1).
constexpr bool figurHat(int art, int drehung, int x, int y) {
    const Figurenzustand& zustand = figurMit(art).zustand.at(static_cast<std::size_t>(drehung) - 1);
    return zustand.at(static_cast<std::size_t>(y) - 1).at(static_cast<std::size_t>(x) - 1) == '#';
}

} // namespace klopfmeise
