#include "platform/richtext/rtf.h"

#include <algorithm>
#include <array>

namespace klopfmeise {

namespace {

/// Characters that stand for another one, from `first` to `last`.
struct Replaced {
    wchar_t first;
    wchar_t last;
    wchar_t by; ///< 0: nothing
};

constexpr auto replaced = std::to_array<Replaced>({
    {0x0000, 0x0008, 0},    {0x000B, 0x001F, 0},    {0x007F, 0x009F, 0},    {0x00A0, 0x00A0, L' '},
    {0x00AD, 0x00AD, 0},    {0x034F, 0x034F, 0},    {0x061C, 0x061C, 0},    {0x180E, 0x180E, 0},
    {0x2000, 0x200A, L' '}, {0x200B, 0x200F, 0},    {0x2010, 0x2011, L'-'}, {0x2028, 0x2029, L'\n'},
    {0x202A, 0x202E, 0},    {0x202F, 0x202F, L' '}, {0x205F, 0x205F, L' '}, {0x2060, 0x206F, 0},
    {0x3000, 0x3000, L' '}, {0xFDD0, 0xFDEF, 0},    {0xFE00, 0xFE0F, 0},    {0xFEFF, 0xFEFF, 0},
    {0xFFF9, 0xFFFC, 0},    {0xFFFE, 0xFFFF, 0},
});
static_assert(std::ranges::is_sorted(replaced, {}, &Replaced::first));

} // namespace

wchar_t rtfCharacter(wchar_t character) {
    const auto* behind = std::ranges::upper_bound(replaced, character, {}, &Replaced::first);
    if (behind == replaced.begin())
        return 0;
    const Replaced& range = *(behind - 1);
    return character <= range.last ? range.by : character;
}

RtfAdmission rtfAdmitted(std::wstring_view text, std::size_t room) {
    RtfAdmission admission;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == L'\n' && i > 0 && text[i - 1] == L'\r')
            continue;
        const wchar_t character = rtfCharacter(text[i] == L'\r' ? L'\n' : text[i]);
        const std::size_t places = character == 0 ? 0 : character == L'\n' ? 2 : 1;
        if (places > room) {
            admission.whole = false;
            break;
        }
        room -= places;
        if (character != 0)
            admission.text += character;
    }
    return admission;
}

} // namespace klopfmeise
