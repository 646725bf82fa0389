#include "platform/controls/windowed.h"

#include "platform/forms/form_runtime.h"

#include <algorithm>
#include <utility>

namespace klopfmeise {

Frame::Frame(Container& parent, std::wstring_view name, const Rect& place, Look look, int index)
    : Control(parent, name, place, index)
    , caption_(std::move(look.caption))
    , back_(look.back)
    , border_(look.border)
    , font_(look.font) {
    if (!look.visible)
        startHidden();
    mouseMove = std::move(look.mouseMove);
}

PictureBox::PictureBox(Container& parent, std::wstring_view name, const Rect& place, Look look, int index)
    : Control(parent, name, place, index)
    , keys(std::move(look.keys))
    , back_(look.back)
    , picture_(std::move(look.picture)) {
    if (!look.visible)
        startHidden();
    setToolTip(std::move(look.toolTip));
}

void PictureBox::setPicture(std::wstring name) {
    if (name == picture_)
        return;
    picture_ = std::move(name);
    changed();
}

Button::Button(Container& parent, std::wstring_view name, const Rect& place, Look look, int index)
    : Control(parent, name, place, index)
    , caption_(std::move(look.caption))
    , font_(look.font)
    , back_(look.back)
    , picture_(std::move(look.picture))
    , tabStop_(look.tabStop) {
    if (!look.visible)
        startHidden();
    if (!look.enabled)
        startDisabled();
    setToolTip(std::move(look.toolTip));
    click = std::move(look.click);
}

void Button::setCaption(std::wstring caption) {
    if (caption == caption_)
        return;
    caption_ = std::move(caption);
    changed();
}

TextBox::TextBox(Container& parent, std::wstring_view name, const Rect& place, Look look, int index)
    : Control(parent, name, place, index)
    , keys(std::move(look.keys))
    , change(std::move(look.change))
    , text_(std::move(look.text))
    , font_(look.font)
    , fore_(look.fore)
    , back_(look.back)
    , align_(look.align)
    , multiLine_(look.multiLine)
    , readOnly_(look.readOnly)
    , maxLength_(look.maxLength)
    , passwordSign_(look.passwordSign)
    , spoken_(std::move(look.spoken)) {
    if (!look.visible)
        startHidden();
}

void TextBox::setText(std::wstring text) {
    if (text == text_)
        return;
    text_ = std::move(text);
    caret_ = std::min(caret_, static_cast<int>(text_.size()));
    changed();
    if (change)
        change();
}

void TextBox::setFontPoints(double points) {
    if (points == font_.points)
        return;
    font_.points = points;
    changed();
}

void TextBox::setFore(Color color) {
    if (color == fore_)
        return;
    fore_ = color;
    changed();
}

void TextBox::setCaret(int position) {
    caret_ = std::clamp(position, 0, static_cast<int>(text_.size()));
    changed();
}

void TextBox::edited(std::wstring text, int caret) {
    caret_ = caret;
    if (text == text_)
        return;
    text_ = std::move(text);
    if (change)
        change();
}

ListControl::ListControl(Container& parent, std::wstring_view name, const Rect& place, ListLook look,
                         int index)
    : Control(parent, name, place, index)
    , look_(std::move(look)) {
    if (!look_.visible)
        startHidden();
    mouseDown = std::move(look_.mouseDown);
    click = std::move(look_.click);
}

void ListControl::select(int row) {
    const int wanted = row >= 0 && row < itemCount() ? row : -1;
    if (wanted == selected_)
        return;
    selected_ = wanted;
    changed();
    if (selected_ >= 0 && click)
        click();
}

void ListControl::unselect() { select(-1); }

std::wstring ListControl::selectedName() const { return selected_ < 0 ? std::wstring() : item(selected_); }

void ListControl::setPath(std::wstring path) {
    path_ = std::move(path);
    selected_ = -1;
    refresh();
}

void ListControl::refresh() {
    const std::wstring selectedBefore = selectedName();
    items_ = std::make_shared<Items>(listing(form().runtime().services().files));
    const auto found = selectedBefore.empty() ? items_->end() : std::ranges::find(*items_, selectedBefore);
    selected_ = found == items_->end() ? -1 : static_cast<int>(found - items_->begin());
    changed();
}

FileList::FileList(Container& parent, std::wstring_view name, const Rect& place, Look look, int index)
    : ListControl(parent, name, place, std::move(look), index) {}

std::vector<std::wstring> FileList::listing(Files& files) const { return files.listFiles(path(), pattern()); }

FolderList::FolderList(Container& parent, std::wstring_view name, const Rect& place, Look look, int index)
    : ListControl(parent, name, place, std::move(look), index) {}

std::vector<std::wstring> FolderList::listing(Files& files) const { return files.listFolders(path()); }

RangeControl::RangeControl(Container& parent, std::wstring_view name, const Rect& place, RangeLook look,
                           int index)
    : Control(parent, name, place, index)
    , look_(std::move(look)) {
    if (!look_.visible)
        startHidden();
}

void RangeControl::setMin(int min) {
    look_.min = min;
    changed();
    setValue(look_.value);
}

void RangeControl::setMax(int max) {
    look_.max = max;
    changed();
    setValue(look_.value);
}

void RangeControl::setValue(int value) {
    const int bounded = std::max(look_.min, std::min(value, look_.max));
    if (bounded == look_.value)
        return;
    look_.value = bounded;
    changed();
    if (look_.change)
        look_.change();
}

CheckControl::CheckControl(Container& parent, std::wstring_view name, const Rect& place, CheckLook look,
                           int index)
    : Control(parent, name, place, index)
    , look_(std::move(look)) {
    if (!look_.visible)
        startHidden();
    if (!look_.enabled)
        startDisabled();
    click = std::move(look_.click);
}

void CheckControl::setValue(int value) {
    if (value == look_.value)
        return;
    look_.value = value;
    if (value && exclusive())
        for (std::size_t slot = 0; slot < parent().controlCount(); ++slot)
            if (auto* other = dynamic_cast<OptionButton*>(&parent().control(slot)); other && other != this) {
                auto& base = static_cast<CheckControl&>(*other);
                base.look_.value = 0;
                base.changed();
            }
    changed();
    if (click)
        click();
}

} // namespace klopfmeise
