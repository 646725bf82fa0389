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

// Cells come, move and go in any order; what is found is what looking at each of them would find.
TEST(PlaceList, FindsWhatLookingAtEachFinds) {
    std::mt19937 random(7);
    const auto number = [&](int below) { return static_cast<int>(random() % static_cast<unsigned>(below)); };
    const auto place = [&] {
        return Rect{number(12000) - 500, number(60000), 1 + number(300), 1 + number(300)};
    };
    PlaceList list;
    std::vector<Rect> places;
    for (int step = 0; step < 4000; ++step) {
        const int what = number(8);
        const auto slot =
            places.empty() ? 0 : static_cast<std::size_t>(number(static_cast<int>(places.size())));
        if (what < 4 || places.empty()) {
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
    ASSERT_GT(places.size(), 500U);
    while (!places.empty()) {
        places.pop_back();
        list.erase(places.size());
        ASSERT_EQ(found(list, {0, 0, 12000, 60000}), looked(places, {0, 0, 12000, 60000}));
    }
}
