#include "platform/controls/control.h"

#include "platform/forms/form.h"

namespace klopfmeise {

namespace {
/// Room around a control's place that its border may touch, in twips.
constexpr int rim = 2 * twipsPerPixel;
} // namespace

Control::Control(Container& parent, std::wstring_view name, const Rect& place, int index)
    : parent_(parent)
    , name_(name)
    , index_(index)
    , place_(place) {
    parent_.enter(*this);
}

Control::~Control() {
    if (FormView* view = form().view())
        view->controlRemoved(*this);
    parent_.leave(*this);
}

std::wstring Control::fullName() const {
    std::wstring name(name_);
    if (index_ != noIndex)
        name += L"(" + std::to_wstring(index_) + L")";
    return name;
}

Form& Control::form() const { return parent_.ownerForm(); }

void Control::setPlace(const Rect& place) {
    if (place == place_)
        return;
    FormView* view = form().view();
    if (view && visible_ && !windowed())
        view->areaDirty(parent_, place_.grown(rim));
    place_ = place;
    parent_.moved(*this);
    changed();
}

void Control::setVisible(bool visible) {
    if (visible == visible_)
        return;
    visible_ = visible;
    FormView* view = form().view();
    if (!view)
        return;
    if (windowed())
        view->controlChanged(*this);
    else
        view->areaDirty(parent_, place_.grown(rim));
}

void Control::setEnabled(bool enabled) {
    if (enabled == enabled_)
        return;
    enabled_ = enabled;
    changed();
}

void Control::setPointer(Pointer pointer) {
    if (pointer == pointer_)
        return;
    pointer_ = pointer;
    changed();
}

void Control::changed() {
    FormView* view = form().view();
    if (!view)
        return;
    if (windowed())
        view->controlChanged(*this);
    else if (visible_)
        view->areaDirty(parent_, place_.grown(rim));
}

void Control::repaint() {
    if (FormView* view = form().view())
        view->paintNow(parent_, place_.grown(rim));
}

void Control::setFocus() { form().setFocus(*this); }

void Container::enter(Control& control) {
    control.slot_ = controls_.size();
    controls_.push_back(&control);
    places_.add(control.place().grown(rim));
}

void Container::leave(Control& control) {
    controls_.erase(controls_.begin() + static_cast<std::ptrdiff_t>(control.slot_));
    places_.erase(control.slot_);
    for (std::size_t slot = control.slot_; slot < controls_.size(); ++slot)
        controls_[slot]->slot_ = slot;
}

void Container::moved(const Control& control) { places_.set(control.slot_, control.place().grown(rim)); }

Control* Container::drawnControlAt(int x, int y) const {
    for (std::size_t slot = controls_.size(); slot-- > 0;) {
        Control& control = *controls_[slot];
        if (control.visible() && !control.windowed() && control.takesMouse() &&
            control.place().contains(x, y))
            return &control;
    }
    return nullptr;
}

} // namespace klopfmeise
