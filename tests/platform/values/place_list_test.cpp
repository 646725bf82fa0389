#include "platform/values/place_list.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

using namespace klopfmeise;

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
    for (int step = 0; step < 3000 || !places.empty(); ++step) {
        const int what = step < 3000 ? number(8) : 6;
        const auto slot = places.empty() ? 0 : random() % places.size();
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
        std::vector<std::size_t> found;
        list.forEachIn(area, [&](std::size_t at) { found.push_back(at); });
        std::vector<std::size_t> looked;
        for (std::size_t i = 0; i < places.size(); ++i)
            if (places[i].intersects(area))
                looked.push_back(i);
        ASSERT_EQ(found, looked) << "step " << step << ", " << places.size();
    }
}
