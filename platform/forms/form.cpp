#include "platform/forms/form.h"

#include "platform/forms/form_runtime.h"

#include <utility>

namespace klopfmeise {

Form::Form(FormRuntime& runtime, std::wstring_view name, FormLook look)
    : runtime_(runtime)
    , name_(name)
    , look_(std::move(look)) {}

Form::~Form() = default;

void Form::setCaption(std::wstring caption) {
    if (caption == look_.caption)
        return;
    look_.caption = std::move(caption);
    if (view_)
        view_->formChanged();
}

void Form::setWindowState(WindowState state) {
    if (state == look_.state)
        return;
    look_.state = state;
    if (view_)
        view_->formChanged();
}

void Form::moveTo(int left, int top) {
    if (left == left_ && top == top_)
        return;
    left_ = left;
    top_ = top;
    if (view_)
        view_->formChanged();
}

void Form::centre() {
    const Rect screen = runtime_.backend().screen();
    moveTo((screen.width - width()) / 2, (screen.height - height()) / 2);
}

void Form::setEnabled(bool enabled) {
    if (enabled == enabled_)
        return;
    enabled_ = enabled;
    if (view_)
        view_->formChanged();
}

void Form::setTopMost(bool on) {
    if (on == topMost_)
        return;
    topMost_ = on;
    if (view_)
        view_->formChanged();
}

void Form::repaint() {
    if (view_)
        view_->paintNow(*this, {});
}

Files& Form::files() { return runtime_.services().files; }

void Form::controlGone(const Control& control) {
    if (focus_ == &control)
        focus_ = nullptr;
}

void Form::setFocus(Control& control) {
    focus_ = &control;
    if (view_)
        view_->takeFocus(control);
}

namespace {

Control* findIn(const Container& container, std::wstring_view name, int index) {
    for (std::size_t slot = 0; slot < container.controlCount(); ++slot) {
        Control& control = container.control(slot);
        if (control.name() == name && control.index() == index)
            return &control;
        if (const Container* inner = control.asContainer())
            if (Control* found = findIn(*inner, name, index))
                return found;
    }
    return nullptr;
}

} // namespace

Control* Form::find(std::wstring_view name, int index) { return findIn(*this, name, index); }

} // namespace klopfmeise
