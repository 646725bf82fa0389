#pragma once

#include <string_view>

namespace klopfmeise {

/// What a control word means to the reader; the words not in the table are passed over.
enum class RtfWord {
    unknown,
    paragraph,
    section,
    alignment,
    bin,
    blue,
    color,
    colorTable,
    bold,
    deleted,
    size,
    green,
    noUnderline,
    italic,
    pard,
    plain,
    red,
    font,
    defaultFont,
    fontTable,
    uc,
    skip,
    unicode,
    underlined,
    hidden,
    character
};

struct RtfControlWord {
    std::string_view name;
    RtfWord word = RtfWord::unknown;
    int value = 0; ///< the character, or the RtfAlignment
};

[[nodiscard]] RtfControlWord rtfControlWord(std::string_view name);

} // namespace klopfmeise
