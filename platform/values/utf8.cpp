#include "platform/values/utf8.h"

#include <array>
#include <cstdint>

namespace klopfmeise {

Utf8Character utf8CharacterAt(std::string_view bytes, std::size_t at) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    const unsigned lead = byte(at);
    if (lead < 0x80)
        return {static_cast<wchar_t>(lead), 1};
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || bytes.size() - at < length)
        return {};
    std::uint32_t code = lead & (0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const unsigned next = byte(at + i);
        if ((next & 0xC0u) != 0x80)
            return {};
        code = code << 6 | (next & 0x3Fu);
    }
    constexpr std::array<std::uint32_t, 5> least{0, 0, 0x80, 0x800, 0x10000};
    if (code < least[length] || code > 0x10FFFF || (code >= 0xD800 && code < 0xE000))
        return {};
    return {static_cast<wchar_t>(code), length};
}

} // namespace klopfmeise
