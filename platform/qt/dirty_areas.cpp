#include "platform/qt/dirty_areas.h"

#include <cstdint>
#include <limits>

namespace klopfmeise {

namespace {

constexpr std::size_t mostAreas = 16;

std::int64_t size(const QRect& area) { return std::int64_t{area.width()} * area.height(); }

} // namespace

void DirtyAreas::add(const QRect& area) {
    if (area.isEmpty())
        return;
    std::size_t best = 0;
    auto leastWaste = std::numeric_limits<std::int64_t>::max();
    for (std::size_t i = 0; i < areas_.size(); ++i) {
        if (areas_[i].contains(area))
            return;
        const std::int64_t waste = size(areas_[i].united(area)) - size(areas_[i]) - size(area);
        if (waste < leastWaste) {
            leastWaste = waste;
            best = i;
        }
    }
    // Neighbours that overlap or touch become one at once; others only when the list is full.
    if (areas_.size() < mostAreas && leastWaste > 0)
        areas_.push_back(area);
    else
        areas_[best] = areas_[best].united(area);
}

QRegion DirtyAreas::take() {
    QRegion region;
    for (const QRect& area : areas_)
        region += area;
    areas_.clear();
    return region;
}

} // namespace klopfmeise
