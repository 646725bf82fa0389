#pragma once

#include "platform/values/geometry.h"

#include <span>
#include <string_view>
#include <vector>

namespace klopfmeise {

/// One key of the German keyboard on the typing screens.
struct Taste {
    int nummer;                ///< 1 to 59, row by row
    std::wstring_view name;    ///< spoken or shown name, "Q", "Leertaste"
    std::wstring_view zeichen; ///< characters typed on it, compared exactly; empty for function keys
    int finger;                ///< 1 to 10, counted from the left little finger; 0 none; 5 stands for 5 and 6
    Rect lage;
};

constexpr int Tastenzahl = 59;
constexpr int Fingerzahl = 10;

constexpr int TasteRück = 14;
constexpr int TasteTabulator = 15;
constexpr int TasteEingabe = 28;
constexpr int TasteFeststell = 29;
constexpr int TasteUmschaltLinks = 42;
constexpr int TasteUmschaltRechts = 54;
constexpr int TasteStrgLinks = 55;
constexpr int TasteAlt = 56;
constexpr int TasteLeer = 57;
constexpr int TasteAltGr = 58;
constexpr int TasteStrgRechts = 59;

/// All keys in the order of their numbers.
std::span<const Taste> tasten();

/// Key by its number; std::out_of_range outside 1 to 59.
const Taste& taste(int nummer);

/// The key on which a text character lies, 0 if the course does not know the character.
int tasteFür(wchar_t zeichen);

/// As tasteFür, for the character code of a key press: backspace (8) and Enter (13) have keys, too.
int tasteFürZeichencode(wchar_t code);

/// The keys that flash for a virtual key code that types nothing (Tab 9, Shift 16, Control 17, Alt 18,
/// Caps Lock 20). Both keys of a pair, since the code does not tell left from right; empty for any other
/// code.
std::vector<int> tastenFürTastencode(int code);

/// The fingers that type a key: none, one, or the two thumb pictures 5 and 6 of the space bar.
std::vector<int> fingerFür(int tastennummer);

/// Where the picture of a lit finger lies; 5 is the round mark on the right thumb, 6 the thumb itself.
/// std::out_of_range outside 1 to 10.
const Rect& fingerbild(int finger);

} // namespace klopfmeise
