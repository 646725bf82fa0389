#pragma once

#include <string_view>

namespace klopfmeise {

/// What a control word means to the reader; the words not in the table are passed over.
enum class RtfWord {
    unknown,
    paragraph,
    nestedRow,
    rowProperties,
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
    charset,
    codePage,
    documentCodePage,
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
    int value = 0; ///< the character, the RtfAlignment or the code page
};

[[nodiscard]] RtfControlWord rtfControlWord(std::string_view name);

} // namespace klopfmeise
