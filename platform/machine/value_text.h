#pragma once

#include <string>
#include <string_view>

namespace klopfmeise {

/// The bytes of a string among the machine-wide values: Windows-1252, and UTF-8 behind its mark for what that
/// code page cannot hold, such as a folder with letters of another script.
std::string valueBytes(std::wstring_view text);
std::wstring valueText(std::string_view bytes);

} // namespace klopfmeise
