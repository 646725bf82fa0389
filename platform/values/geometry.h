#pragma once

#include <algorithm>

namespace klopfmeise {

/// Twips to the unzoomed pixel (96 dots an inch).
inline constexpr int twipsPerPixel = 15;

/// A place on a form or in a container, in twips.
struct Rect {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    constexpr int right() const { return left + width; }
    constexpr int bottom() const { return top + height; }
    constexpr bool empty() const { return width <= 0 || height <= 0; }
    constexpr bool contains(int x, int y) const {
        return x >= left && x < right() && y >= top && y < bottom();
    }
    constexpr bool intersects(const Rect& o) const {
        return left < o.right() && o.left < right() && top < o.bottom() && o.top < bottom();
    }
    constexpr Rect united(const Rect& o) const {
        if (empty())
            return o;
        if (o.empty())
            return *this;
        const int l = std::min(left, o.left);
        const int t = std::min(top, o.top);
        return {l, t, std::max(right(), o.right()) - l, std::max(bottom(), o.bottom()) - t};
    }
    constexpr Rect intersected(const Rect& o) const {
        const int l = std::max(left, o.left);
        const int t = std::max(top, o.top);
        return {l, t, std::max(0, std::min(right(), o.right()) - l),
                std::max(0, std::min(bottom(), o.bottom()) - t)};
    }
    /// The same place grown by `by` twips on every side.
    constexpr Rect grown(int by) const { return {left - by, top - by, width + 2 * by, height + 2 * by}; }

    friend constexpr bool operator==(const Rect&, const Rect&) = default;
};

} // namespace klopfmeise
