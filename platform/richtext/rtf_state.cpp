#include "platform/richtext/rtf_state.h"

#include <algorithm>

namespace klopfmeise {

void RtfState::applyWord(RtfWord word, int number, bool on) {
    const RtfState defaults;
    switch (word) {
    case RtfWord::plain:
        font = defaults.font;
        size = defaults.size;
        color = defaults.color;
        bold = italic = underlined = false;
        hidden = deleted = false;
        break;
    case RtfWord::font:
        font = number;
        break;
    case RtfWord::size:
        size = number > 0 ? std::clamp(number, 2, 3276) : defaults.size;
        break;
    case RtfWord::color:
        color = number;
        break;
    case RtfWord::bold:
        bold = on;
        break;
    case RtfWord::italic:
        italic = on;
        break;
    case RtfWord::underlined:
        underlined = on;
        break;
    case RtfWord::noUnderline:
        underlined = false;
        break;
    case RtfWord::hidden:
        hidden = on;
        break;
    case RtfWord::deleted:
        deleted = on;
        break;
    default:
        break;
    }
}

} // namespace klopfmeise
