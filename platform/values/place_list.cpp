#include "platform/values/place_list.h"

#include <algorithm>

namespace klopfmeise {

void PlaceList::add(const Rect& place) {
    if (places_.size() % blockSize == 0)
        blocks_.emplace_back();
    places_.push_back(place);
    blocks_.back().stale = true;
}

void PlaceList::set(std::size_t slot, const Rect& place) {
    places_[slot] = place;
    blocks_[slot / blockSize].stale = true;
}

void PlaceList::erase(std::size_t slot) {
    places_.erase(places_.begin() + static_cast<std::ptrdiff_t>(slot));
    blocks_.resize((places_.size() + blockSize - 1) / blockSize);
    for (std::size_t block = slot / blockSize; block < blocks_.size(); ++block)
        blocks_[block].stale = true;
}

std::size_t PlaceList::end(std::size_t block) const {
    return std::min(places_.size(), (block + 1) * blockSize);
}

const Rect& PlaceList::bounds(std::size_t block) const {
    Block& asked = blocks_[block];
    if (asked.stale) {
        asked = {{}, false};
        for (std::size_t slot = block * blockSize; slot < end(block); ++slot)
            asked.bounds = asked.bounds.united(places_[slot]);
    }
    return asked.bounds;
}

} // namespace klopfmeise
