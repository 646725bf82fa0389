#include "platform/controls/ranges.h"

#include <algorithm>
#include <utility>

namespace klopfmeise {

RangeControl::RangeControl(Kind kind, Container& parent, std::wstring_view name, const Rect& place, Look look,
                           int index)
    : TypedControl(kind, parent, name, place, std::move(look), index) {
    setValue(value());
}

/// Where the bounds cross, the lower one counts.
int RangeControl::bounded(int value) const { return std::max(min(), std::min(value, max())); }

void RangeControl::setMin(int min) {
    put(&Look::min, min);
    setValue(value());
}

void RangeControl::setMax(int max) {
    put(&Look::max, max);
    setValue(value());
}

void RangeControl::movedTo(int value) {
    if (put(&Look::value, bounded(value)) && look().change)
        look().change();
}

} // namespace klopfmeise
