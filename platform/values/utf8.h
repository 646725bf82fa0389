#pragma once

#include <cstddef>
#include <string_view>

namespace klopfmeise {

inline constexpr std::string_view utf8ByteOrderMark = "\xEF\xBB\xBF";
/// Stands for what is no character.
inline constexpr wchar_t replacementCharacter = 0xFFFD;

/// A character of a UTF-8 text and the bytes that it takes; 0 bytes where there is none (broken, overlong or
/// cut sequences, surrogates).
struct Utf8Character {
    wchar_t character = 0;
    std::size_t length = 0;
};

/// The character whose first byte stands at `at`, which lies inside `bytes`.
[[nodiscard]] Utf8Character utf8CharacterAt(std::string_view bytes, std::size_t at);

} // namespace klopfmeise
