#include "platform/controls/checks.h"

#include <utility>

namespace klopfmeise {

CheckControl::CheckControl(Kind kind, Container& parent, std::wstring_view name, const Rect& place, Look look,
                           int index)
    : TypedControl(kind, parent, name, place, std::move(look), index) {
    setValue(value());
}

void CheckControl::setValue(int value) {
    const bool on = value == 1;
    put(&Look::value, on ? 1 : 0);
    if (!on || kind() != Kind::optionButton)
        return;
    for (std::size_t slot = 0; slot < parent().controlCount(); ++slot)
        if (Control& other = parent().control(slot); other.kind() == Kind::optionButton && &other != this)
            static_cast<OptionButton&>(other).put(&Look::value, 0);
}

void CheckControl::pressed() {
    setValue(kind() == Kind::optionButton || value() == 0 ? 1 : 0);
    if (look().click)
        look().click();
}

} // namespace klopfmeise
