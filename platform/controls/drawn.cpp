#include "platform/controls/drawn.h"

#include <cstdlib>
#include <utility>

namespace klopfmeise {

Label::Label(Container& parent, std::wstring_view name, const Rect& place, Look look, int index)
    : Control(parent, name, place, index)
    , caption_(std::move(look.caption))
    , font_(look.font)
    , fore_(look.fore)
    , back_(look.back)
    , align_(look.align)
    , border_(look.border)
    , autoSize_(look.autoSize)
    , wrap_(look.wrap) {
    if (!look.visible)
        startHidden();
    startWithPointer(look.pointer);
    setToolTip(std::move(look.toolTip));
    click = std::move(look.click);
    mouseDown = std::move(look.mouseDown);
    mouseMove = std::move(look.mouseMove);
    fit();
}

Label::Label(const Label& pattern, int index)
    : Control(pattern.parent(), pattern.name(), pattern.place(), index)
    , caption_(pattern.caption_)
    , font_(pattern.font_)
    , fore_(pattern.fore_)
    , back_(pattern.back_)
    , align_(pattern.align_)
    , border_(pattern.border_)
    , autoSize_(pattern.autoSize_)
    , wrap_(pattern.wrap_) {
    startHidden();
}

void Label::setCaption(std::wstring caption) {
    if (caption == caption_)
        return;
    caption_ = std::move(caption);
    fit();
    changed();
}

void Label::setFont(const Font& font) {
    if (font == font_)
        return;
    font_ = font;
    fit();
    changed();
}

void Label::setFontName(std::wstring_view name) {
    Font font = font_;
    font.name = name;
    setFont(font);
}

void Label::setFore(Color color) {
    if (color == fore_)
        return;
    fore_ = color;
    changed();
}

void Label::setBack(std::optional<Color> color) {
    if (color == back_)
        return;
    back_ = color;
    changed();
}

void Label::setBorder(bool border) {
    if (border == border_)
        return;
    border_ = border;
    changed();
}

void Label::fit() {
    if (!autoSize_)
        return;
    // Without a caption it keeps the place of one character, so that what follows it in a line stays in its
    // column.
    const TextSize size = sizeOf(caption_.empty() ? L" " : std::wstring_view(caption_), font_);
    const int shift = align_ == Align::center ? (size.width - width()) / 2 : 0;
    setPlace({left() - shift, top(), size.width, size.height});
}

Picture::Picture(Container& parent, std::wstring_view name, const Rect& place, Look look, int index)
    : Control(parent, name, place, index)
    , picture_{std::move(look.picture), false}
    , border_(look.border)
    , spoken_(std::move(look.spoken)) {
    if (!look.visible)
        startHidden();
    startWithPointer(look.pointer);
    setToolTip(std::move(look.toolTip));
    click = std::move(look.click);
    mouseDown = std::move(look.mouseDown);
    mouseMove = std::move(look.mouseMove);
}

void Picture::setPicture(PictureSource picture) {
    // The same file again is read again: it may have changed on disk.
    if (picture == picture_ && !picture.file)
        return;
    picture_ = std::move(picture);
    ++revision_;
    changed();
}

void Picture::setBorder(bool border) {
    if (border == border_)
        return;
    border_ = border;
    changed();
}

Shape::Shape(Container& parent, std::wstring_view name, const Rect& place, Look look, int index)
    : Control(parent, name, place, index)
    , kind_(look.kind)
    , fill_(look.fill)
    , outline_(look.outline) {
    if (!look.visible)
        startHidden();
}

void Shape::setFill(std::optional<Color> color) {
    if (color == fill_)
        return;
    fill_ = color;
    changed();
}

Rect LinePlace::box() const {
    return {std::min(x1, x2), std::min(y1, y2), std::abs(x2 - x1) + 1, std::abs(y2 - y1) + 1};
}

Line::Line(Container& parent, std::wstring_view name, const LinePlace& ends, Look look, int index)
    : Control(parent, name, ends.box(), index)
    , ends_(ends)
    , color_(look.color)
    , lineWidth_(look.width) {
    if (!look.visible)
        startHidden();
}

void Line::setEnds(const LinePlace& ends) {
    if (ends == ends_)
        return;
    ends_ = ends;
    setPlace(ends.box());
    changed();
}

void Line::setColor(Color color) {
    if (color == color_)
        return;
    color_ = color;
    changed();
}

} // namespace klopfmeise
