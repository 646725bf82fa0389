#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace klopfmeise {

/// A text of so many characters, of words as long as those of the course.
inline std::string fliesstext(std::size_t zeichen) {
    constexpr std::string_view wörter = "der schnelle specht klopft am morgen laut an jeden stamm im wald ";
    std::string text;
    while (text.size() < zeichen)
        text += wörter;
    text.resize(zeichen);
    return text;
}

} // namespace klopfmeise
