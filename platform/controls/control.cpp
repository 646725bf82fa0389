#include "platform/controls/control.h"

namespace klopfmeise {

namespace {
/// Room around a control's place that its border may touch, in twips.
constexpr int rim = 2 * twipsPerPixel;
} // namespace

Control::Control(Kind kind, Container& parent, std::wstring_view name, const Rect& place, int index,
                 State state)
    : parent_(parent)
    , name_(name)
    , place_(place)
    , index_(index)
    , kind_(kind)
    , visible_(state.visible)
    , enabled_(state.enabled) {
    parent_.enter(*this);
    // Made while the form is on the screen: shown at the next idle moment, when it stands whole.
    changed();
}

Control::~Control() {
    if (Surface* surface = host().surface())
        surface->controlRemoved(*this);
    host().controlGone(*this);
    parent_.leave(*this);
}

std::wstring Control::fullName() const {
    std::wstring name(name_);
    if (index_ != noIndex)
        name += L"(" + std::to_wstring(index_) + L")";
    return name;
}

Host& Control::host() const { return parent_.host(); }

void Control::setPlace(const Rect& place) {
    if (place == place_)
        return;
    Surface* surface = host().surface();
    if (surface && visible_ && !windowed())
        surface->areaDirty(parent_, place_.grown(rim));
    place_ = place;
    parent_.moved(*this);
    changed();
}

void Control::setVisible(bool visible) {
    if (visible == visible_)
        return;
    // A drawn control tells its area while it is visible, before it goes or after it came.
    if (!visible)
        changed();
    visible_ = visible;
    if (visible)
        changed();
}

void Control::setEnabled(bool enabled) {
    if (enabled == enabled_)
        return;
    enabled_ = enabled;
    changed();
}

bool Control::reachable() const {
    for (const Control* at = this; at; at = at->parent_.asControl())
        if (!at->visible_ || !at->enabled_)
            return false;
    return true;
}

void Control::changed() {
    Surface* surface = host().surface();
    if (!surface)
        return;
    if (windowed())
        surface->controlChanged(*this);
    else if (visible_)
        surface->areaDirty(parent_, place_.grown(rim));
}

void Control::repaint() {
    if (Surface* surface = host().surface())
        surface->paintNow(parent_, place_.grown(rim));
}

void Control::setFocus() { host().setFocus(*this); }

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
        if (control.visible() && !control.windowed() && takesMouse(control.kind()) &&
            control.place().contains(x, y))
            return &control;
    }
    return nullptr;
}

} // namespace klopfmeise
