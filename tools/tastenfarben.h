#pragma once

#include "screens/tastenplan.h"

#include <array>
#include <string_view>

namespace klopfmeise {

/// Colours of a key cap, as SVG and Qt write them.
struct Kappenfarbe {
    std::string_view fläche;
    std::string_view rand;  ///< the side of the cap that lies in the shade
    std::string_view stark; ///< the saturated face that stands for "new in this lesson"
};

inline constexpr std::string_view Tinte = "#2b3a4a";

/// One colour a finger; the same finger of both hands is told apart by lightness. The index fingers, which
/// meet in the middle of the keyboard, have colours of their own. Index 0: keys without a finger.
/// Ink on each face and strong face has a contrast of 4.5:1 or better.
inline constexpr std::array<Kappenfarbe, Fingerzahl + 1> Fingerfarben{{
    {"#dfe3e8", "#b3bcc6", "#86dccf"},
    {"#f2b8c6", "#cf8a9c", "#fb8fa9"},
    {"#f6d78b", "#d1aa52", "#ffc72e"},
    {"#b7dba5", "#87b171", "#7ecb55"},
    {"#a9cdea", "#76a1c4", "#5fb3f2"},
    {"#e3dccb", "#b9af97", "#dcc68f"},
    {"#e3dccb", "#b9af97", "#dcc68f"},
    {"#c9b8e6", "#9a86c0", "#b795f5"},
    {"#a3cf8f", "#76a460", "#74c24a"},
    {"#efcb73", "#c79f40", "#fbbf1f"},
    {"#eaa5b8", "#c27a8e", "#f4849f"},
}};

inline const Kappenfarbe& kappenfarbe(const Taste& taste) {
    return Fingerfarben.at(static_cast<std::size_t>(taste.finger));
}

} // namespace klopfmeise
