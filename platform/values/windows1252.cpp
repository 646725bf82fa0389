#include "platform/values/windows1252.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace klopfmeise {

namespace {

constexpr unsigned firstDeviation = 0x80;

// Bytes 80 to 9F; below and above, byte and code point are the same number.
constexpr std::array<wchar_t, 32> deviations{0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                             0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                             0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                             0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

} // namespace

wchar_t fromWindows1252(unsigned char byte) {
    const std::size_t place = std::size_t{byte} - firstDeviation;
    return place < deviations.size() ? deviations[place] : static_cast<wchar_t>(byte);
}

std::wstring fromWindows1252(std::string_view bytes) {
    std::wstring text;
    text.reserve(bytes.size());
    for (const char byte : bytes)
        text += fromWindows1252(static_cast<unsigned char>(byte));
    return text;
}

int toWindows1252(wchar_t character) {
    if ((character >= 0 && character < 0x80) || (character >= 0xA0 && character <= 0xFF))
        return static_cast<int>(character);
    const auto found = std::find(deviations.begin(), deviations.end(), character);
    return found == deviations.end() ? -1 : static_cast<int>(firstDeviation + (found - deviations.begin()));
}

std::string toWindows1252(std::wstring_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (const wchar_t character : text) {
        const int byte = toWindows1252(character);
        bytes += byte < 0 ? '?' : static_cast<char>(byte);
    }
    return bytes;
}

} // namespace klopfmeise
