#pragma once

#include "platform/richtext/rtf.h"

#include <string_view>

namespace klopfmeise {

/// The bytes of a plain-text file: UTF-8 after a byte order mark, else Windows-1252.
[[nodiscard]] RtfDocument readPlainText(std::string_view bytes);

} // namespace klopfmeise
