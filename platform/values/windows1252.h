#pragma once

#include <string>
#include <string_view>

namespace klopfmeise {

/// The 8-bit code page of files, registry values and key-press codes. The table is complete: the five bytes
/// that Windows-1252 leaves undefined (81 8D 8F 90 9D) stand for the C1 code points of the same number, so
/// that every byte survives the way into text and back.
[[nodiscard]] wchar_t fromWindows1252(unsigned char byte);
[[nodiscard]] std::wstring fromWindows1252(std::string_view bytes);

/// The byte of a character, 0 to 255, or -1 where the code page has none.
[[nodiscard]] int toWindows1252(wchar_t character);
/// One byte a character; '?' for what the code page cannot hold.
[[nodiscard]] std::string toWindows1252(std::wstring_view text);

} // namespace klopfmeise
