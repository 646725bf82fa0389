#include "platform/values/place_list.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

using namespace klopfmeise;

namespace {

std::vector<std::size_t> found(const PlaceList& list, const Rect& area) {
    std::vector<std::size_t> slots;
    list.forEachIn(area, [&](std::size_t slot) { slots.push_back(slot); });
    return slots;
}

std::vector<std::size_t> looked(const std::vector<Rect>& places, const Rect& area) {
    std::vector<std::size_t> slots;
    for (std::size_t slot = 0; slot < places.size(); ++slot)
        if (places[slot].intersects(area))
            slots.push_back(slot);
    return slots;
}

} // namespace

// Cells come, move and go in any order, until none is left; what is found is what looking at each of them
// would find.
TEST(PlaceList, FindsWhatLookingAtEachFinds) {
    std::mt19937 random(7);
    const auto number = [&](std::size_t below) { return static_cast<int>(random() % below); };
    const auto place = [&] {
        return Rect{number(12000) - 500, number(60000), 1 + number(300), 1 + number(300)};
    };
    PlaceList list;
    std::vector<Rect> places;
    for (int step = 0; step < 2000 || !places.empty(); ++step) {
        const int what = step < 2000 ? number(8) : 6;
        const auto slot = static_cast<std::size_t>(number(std::max<std::size_t>(places.size(), 1)));
        if (places.empty() || what < 4) {
            places.push_back(place());
            list.add(places.back());
        } else if (what < 6) {
            places[slot] = place();
            list.set(slot, places[slot]);
        } else if (what == 6) {
            places.erase(places.begin() + static_cast<std::ptrdiff_t>(slot));
            list.erase(slot);
        }
        const Rect area = number(10) == 0 ? Rect{0, 0, 12000, 60000} : place().grown(number(1500));
        ASSERT_EQ(found(list, area), looked(places, area)) << "step " << step << ", " << places.size();
    }
}
