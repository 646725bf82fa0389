#include "platform/controls/drawn.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace klopfmeise {

Label::Label(Container& parent, std::wstring_view name, const Rect& place, Look look, int index)
    : TypedControl(Kind::label, parent, name, place, std::move(look), index)
    , leastWidth_(place.width) {
    fit();
}

namespace {
LabelLook hidden(LabelLook look) {
    look.visible = false;
    return look;
}
} // namespace

Label::Label(const Label& pattern, int index)
    : TypedControl(Kind::label, pattern.parent(), pattern.name(), pattern.place(), hidden(pattern.look()),
                   index)
    , leastWidth_(pattern.leastWidth_) {}

void Label::setCaption(std::wstring caption) {
    if (put(&Look::caption, std::move(caption)))
        fit();
}

void Label::setFont(const Font& font) {
    if (put(&Look::font, font))
        fit();
}

void Label::setFontName(std::wstring_view name) {
    Font font = look().font;
    font.name = name;
    setFont(font);
}

Font Label::shownFont() const {
    // Below this nobody can read it.
    constexpr double leastPoints = 6;
    constexpr double step = 0.75;
    Font shown = font();
    while (look().mostWidth > 0 && shown.points > leastPoints &&
           sizeOf(caption(), shown).width > look().mostWidth)
        shown.points -= step;
    return shown;
}

void Label::fit() {
    if (look().mostWidth > 0) {
        const int wanted = std::min(sizeOf(caption(), shownFont()).width, look().mostWidth);
        const int wider = std::max(leastWidth_, wanted) - width();
        setPlace({left() - (align() == Align::center ? wider / 2 : 0), top(), width() + wider, height()});
    }
    if (!autoSize())
        return;
    // Without a caption it keeps the place of one character, so that what follows it in a line stays in its
    // column.
    const TextSize size = sizeOf(caption().empty() ? L" " : std::wstring_view(caption()), font());
    setPlace({left(), top(), size.width, size.height});
}

Picture::Picture(Container& parent, std::wstring_view name, const Rect& place, Look look, int index)
    : TypedControl(Kind::picture, parent, name, place, std::move(look), index) {}

void Picture::setPicture(PictureSource picture) {
    // The same file again is read again: it may have changed on disk.
    if (picture == this->picture() && !picture.file)
        return;
    ++revision_;
    file_ = picture.file;
    if (!put(&Look::picture, std::move(picture.name)))
        changed();
}

Rect LinePlace::box() const {
    return {std::min(x1, x2), std::min(y1, y2), std::abs(x2 - x1) + 1, std::abs(y2 - y1) + 1};
}

Line::Line(Container& parent, std::wstring_view name, const LinePlace& ends, Look look, int index)
    : TypedControl(Kind::line, parent, name, ends.box(), look, index)
    , ends_(ends) {}

void Line::setEnds(const LinePlace& ends) {
    if (ends == ends_)
        return;
    ends_ = ends;
    setPlace(ends.box());
    changed();
}

} // namespace klopfmeise
