#pragma once

#include "platform/controls/button.h"
#include "platform/controls/checks.h"
#include "platform/controls/drawn.h"
#include "platform/controls/lists.h"
#include "platform/controls/panels.h"
#include "platform/controls/ranges.h"
#include "platform/controls/rich_text_box.h"
#include "platform/controls/text_box.h"

#include <stdexcept>

namespace klopfmeise {

/// Several functions as one, for `visit`.
template <class... Functions>
struct Overloaded : Functions... {
    using Functions::operator()...;
};
// Clang before 17 does not deduce it by itself.
template <class... Functions>
Overloaded(Functions...) -> Overloaded<Functions...>;

/// Calls `function` with the control as what it is. The one place where a kind becomes a type.
template <class Function>
decltype(auto) visit(Control& control, Function&& function) {
    switch (control.kind()) {
    case Kind::label:
        return function(static_cast<Label&>(control));
    case Kind::picture:
        return function(static_cast<Picture&>(control));
    case Kind::shape:
        return function(static_cast<Shape&>(control));
    case Kind::line:
        return function(static_cast<Line&>(control));
    case Kind::frame:
        return function(static_cast<Frame&>(control));
    case Kind::pictureBox:
        return function(static_cast<PictureBox&>(control));
    case Kind::button:
        return function(static_cast<Button&>(control));
    case Kind::textBox:
        return function(static_cast<TextBox&>(control));
    case Kind::richTextBox:
        return function(static_cast<RichTextBox&>(control));
    case Kind::fileList:
        return function(static_cast<FileList&>(control));
    case Kind::folderList:
        return function(static_cast<FolderList&>(control));
    case Kind::scrollBar:
        return function(static_cast<ScrollBar&>(control));
    case Kind::slider:
        return function(static_cast<Slider&>(control));
    case Kind::optionButton:
        return function(static_cast<OptionButton&>(control));
    case Kind::checkBox:
        return function(static_cast<CheckBox&>(control));
    }
    throw std::logic_error("a control of no kind");
}

/// The control as a `T` if it is one, else null.
template <class T>
T* as(Control* control) {
    return control && T::is(control->kind()) ? static_cast<T*>(control) : nullptr;
}
template <class T>
const T* as(const Control* control) {
    return control && T::is(control->kind()) ? static_cast<const T*>(control) : nullptr;
}

} // namespace klopfmeise
