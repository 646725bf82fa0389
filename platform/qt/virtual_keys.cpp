#include "platform/qt/virtual_keys.h"

#include <QKeyEvent>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace klopfmeise {

namespace {

struct Named {
    int key;
    int code;
};

constexpr int altGr = -1;

/// Keys that mean the same wherever they lie.
constexpr std::array named = std::to_array<Named>({
    {Qt::Key_Backspace, 8},       {Qt::Key_Tab, 9},       {Qt::Key_Backtab, 9},
    {Qt::Key_Return, 13},         {Qt::Key_Enter, 13},    {Qt::Key_Shift, 16},
    {Qt::Key_Control, 17},        {Qt::Key_Alt, 18},      {Qt::Key_AltGr, altGr},
    {Qt::Key_Mode_switch, altGr}, {Qt::Key_Pause, 19},    {Qt::Key_CapsLock, 20},
    {Qt::Key_Escape, 27},         {Qt::Key_Space, 32},    {Qt::Key_PageUp, 33},
    {Qt::Key_PageDown, 34},       {Qt::Key_End, 35},      {Qt::Key_Home, 36},
    {Qt::Key_Left, 37},           {Qt::Key_Up, 38},       {Qt::Key_Right, 39},
    {Qt::Key_Down, 40},           {Qt::Key_Print, 44},    {Qt::Key_Insert, 45},
    {Qt::Key_Delete, 46},         {Qt::Key_Super_L, 91},  {Qt::Key_Super_R, 92},
    {Qt::Key_Menu, 93},           {Qt::Key_NumLock, 144}, {Qt::Key_ScrollLock, 145},
});

/// Keys that are told by their place, as Shift changes what they type: number of the key (as the kernel
/// counts them) and code on a German keyboard.
constexpr std::array placed = std::to_array<Named>({
    {2, '1'},  {3, '2'},  {4, '3'},  {5, '4'},  {6, '5'},  {7, '6'},  {8, '7'},  {9, '8'},
    {10, '9'}, {11, '0'}, {12, 219}, {13, 221}, {26, 186}, {27, 187}, {39, 192}, {40, 222},
    {41, 220}, {43, 191}, {51, 188}, {52, 190}, {53, 189}, {86, 226}, {55, 106}, {71, 103},
    {72, 104}, {73, 105}, {74, 109}, {75, 100}, {76, 101}, {77, 102}, {78, 107}, {79, 97},
    {80, 98},  {81, 99},  {82, 96},  {83, 110}, {98, 111},
});
/// What X and Wayland count on top of the kernel's numbers.
constexpr int firstKeycode = 8;

/// Where the place is not known (keys sent by a program), by the character.
constexpr std::array typedKeys = std::to_array<Named>({
    {Qt::Key_Udiaeresis, 186},  {Qt::Key_Plus, 187},
    {Qt::Key_Asterisk, 187},    {Qt::Key_Comma, 188},
    {Qt::Key_Semicolon, 188},   {Qt::Key_Minus, 189},
    {Qt::Key_Underscore, 189},  {Qt::Key_Period, 190},
    {Qt::Key_Colon, 190},       {Qt::Key_NumberSign, 191},
    {Qt::Key_Apostrophe, 191},  {Qt::Key_Odiaeresis, 192},
    {Qt::Key_ssharp, 219},      {Qt::Key_Question, 219},
    {Qt::Key_AsciiCircum, 220}, {Qt::Key_Dead_Circumflex, 220},
    {Qt::Key_degree, 220},      {Qt::Key_Dead_Acute, 221},
    {Qt::Key_Dead_Grave, 221},  {Qt::Key_acute, 221},
    {Qt::Key_Adiaeresis, 222},  {Qt::Key_Less, 226},
    {Qt::Key_Greater, 226},     {Qt::Key_Bar, 226},
    {Qt::Key_Exclam, '1'},      {Qt::Key_QuoteDbl, '2'},
    {Qt::Key_section, '3'},     {Qt::Key_Dollar, '4'},
    {Qt::Key_Percent, '5'},     {Qt::Key_Ampersand, '6'},
    {Qt::Key_Slash, '7'},       {Qt::Key_ParenLeft, '8'},
    {Qt::Key_ParenRight, '9'},  {Qt::Key_Equal, '0'},
});

int lookUp(const auto& table, int key) {
    const auto found = std::ranges::find(table, key, &Named::key);
    return found == table.end() ? 0 : found->code;
}

int placedCode(int place) {
    // With Alt Gr a letter's key types another character.
    constexpr std::array rows = std::to_array<std::pair<int, std::string_view>>(
        {{16, "QWERTZUIOP"}, {30, "ASDFGHJKL"}, {44, "YXCVBNM"}});
    for (const auto& [first, letters] : rows)
        if (place >= first && place < first + static_cast<int>(letters.size()))
            return letters[static_cast<std::size_t>(place - first)];
    return lookUp(placed, place);
}

int codeOf(const QKeyEvent& event) {
    const int key = event.key();
    // The keypad's digits and signs bear codes of their own and, without Num Lock, those of the arrows.
    const bool keypad = event.modifiers().testFlag(Qt::KeypadModifier);
    if (const int code = lookUp(named, key))
        return code;
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24)
        return 112 + key - Qt::Key_F1;
    if (!keypad && key >= Qt::Key_A && key <= Qt::Key_Z &&
        !event.modifiers().testFlag(Qt::GroupSwitchModifier))
        return key;
    if (const auto scan = static_cast<int>(event.nativeScanCode()); scan > firstKeycode)
        if (const int code = placedCode(scan - firstKeycode))
            return code;
    if (key >= Qt::Key_0 && key <= Qt::Key_9)
        return keypad ? 96 + key - Qt::Key_0 : key;
    if (key >= Qt::Key_A && key <= Qt::Key_Z)
        return key;
    return lookUp(typedKeys, key);
}

/// The accent keys, by the sign that stands for each alone.
constexpr std::array accents = std::to_array<std::pair<int, wchar_t>>({
    {Qt::Key_Dead_Acute, L'´'},
    {Qt::Key_Dead_Grave, L'`'},
    {Qt::Key_Dead_Circumflex, L'^'},
    {Qt::Key_Dead_Tilde, L'~'},
    {Qt::Key_Dead_Diaeresis, L'¨'},
    {Qt::Key_Dead_Cedilla, L'¸'},
    {Qt::Key_Dead_Abovering, L'°'},
    {Qt::Key_Dead_Caron, L'ˇ'},
});

} // namespace

std::vector<int> virtualKeys(const QKeyEvent& key) {
    const int code = codeOf(key);
    if (code == altGr)
        return {17, 18};
    return code ? std::vector{code} : std::vector<int>{};
}

wchar_t accentOf(const QKeyEvent& key) {
    const auto* found = std::ranges::find(accents, key.key(), &std::pair<int, wchar_t>::first);
    return found == accents.end() ? L'\0' : found->second;
}

} // namespace klopfmeise
