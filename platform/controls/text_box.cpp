#include "platform/controls/text_box.h"

#include <algorithm>
#include <utility>

namespace klopfmeise {

void TextBox::setText(std::wstring text) {
    if (!put(&Look::text, std::move(text)))
        return;
    caret_ = std::min(caret_, static_cast<int>(this->text().size()));
    allSelected_ = false;
}

void TextBox::setFontPoints(double points) {
    Font font = look().font;
    font.points = points;
    put(&Look::font, font);
}

void TextBox::setCaret(int position) {
    caret_ = std::clamp(position, 0, static_cast<int>(text().size()));
    allSelected_ = false;
    changed();
}

void TextBox::selectAll() {
    caret_ = static_cast<int>(text().size());
    allSelected_ = true;
    changed();
}

void TextBox::edited(std::wstring text, int caret) {
    const bool other = take(&Look::text, std::move(text));
    caret_ = std::clamp(caret, 0, static_cast<int>(this->text().size()));
    allSelected_ = false;
    if (other && look().change)
        look().change();
}

} // namespace klopfmeise
