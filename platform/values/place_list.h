#pragma once

#include "platform/values/geometry.h"

#include <cstddef>
#include <vector>

namespace klopfmeise {

/// Places in the order of their slots. Looking for those in an area passes over blocks of slots that lie
/// elsewhere as a whole: running text of 20,000 cells is asked about one cell at every key.
class PlaceList {
public:
    void add(const Rect& place);
    void set(std::size_t slot, const Rect& place);
    /// The slots above move down by one.
    void erase(std::size_t slot);

    /// Calls `visit(slot)` for the places that touch `area`, in the order of their slots. The list must not
    /// change meanwhile.
    template <class Visit>
    void forEachIn(const Rect& area, Visit visit) const {
        for (std::size_t block = 0; block < blocks_.size(); ++block) {
            if (!bounds(block).intersects(area))
                continue;
            for (std::size_t slot = block * blockSize; slot < end(block); ++slot)
                if (places_[slot].intersects(area))
                    visit(slot);
        }
    }

private:
    static constexpr std::size_t blockSize = 64;

    struct Block {
        Rect bounds;
        bool stale = true;
    };

    std::size_t end(std::size_t block) const;
    const Rect& bounds(std::size_t block) const;

    std::vector<Rect> places_;
    /// Bounds are reckoned at the first question after a change, as scrolling moves every cell.
    mutable std::vector<Block> blocks_;
};

} // namespace klopfmeise
