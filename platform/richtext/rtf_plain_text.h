#pragma once

#include "platform/richtext/rtf.h"

#include <cstddef>
#include <string_view>

namespace klopfmeise {

/// More bytes of a plain text are not looked at; in any encoding they would not fit into a document.
inline constexpr std::size_t plainTextMaxLength = 4 * (rtfMaxCharacters + 1);

/// The bytes of a plain-text file: UTF-16 behind its byte order mark, UTF-8 if all of it is or behind its
/// mark, else Windows-1252.
[[nodiscard]] RtfReading readPlainText(std::string_view bytes);

} // namespace klopfmeise
