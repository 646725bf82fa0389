#include "platform/qt/scale.h"

#include <algorithm>
#include <cmath>

namespace klopfmeise {

namespace {

int rounded(double value) { return static_cast<int>(std::lround(value)); }
int below(double value) { return static_cast<int>(std::floor(value + 1e-6)); }
int above(double value) { return static_cast<int>(std::ceil(value - 1e-6)); }

} // namespace

int Scale::length(int twips) const { return rounded(exact(twips)); }
int Scale::x(int twips) const { return origin.x() + rounded(exact(dx + twips)); }
int Scale::y(int twips) const { return origin.y() + rounded(exact(dy + twips)); }

QRect Scale::device(const Rect& place) const {
    const int left = x(place.left);
    const int top = y(place.top);
    return {left, top, x(place.right()) - left, y(place.bottom()) - top};
}

QRect Scale::logical(const QRect& device, bool outwards) const {
    const auto low = [&](int edge) { return outwards ? below(edge / ratio) : rounded(edge / ratio); };
    const auto high = [&](int edge) { return outwards ? above(edge / ratio) : rounded(edge / ratio); };
    const int left = low(device.x());
    const int top = low(device.y());
    return {left, top, high(device.x() + device.width()) - left, high(device.y() + device.height()) - top};
}

Rect Scale::twips(const QRect& logical) const {
    const auto back = [&](int edge, int from) { return (edge * ratio - from) * twipsPerPixel / zoom; };
    const int left = below(back(logical.x(), origin.x())) - dx;
    const int top = below(back(logical.y(), origin.y())) - dy;
    const int right = above(back(logical.x() + logical.width(), origin.x())) - dx;
    const int bottom = above(back(logical.y() + logical.height(), origin.y())) - dy;
    return {left, top, right - left, bottom - top};
}

QPoint Scale::twipsAt(const QPointF& logical) const {
    const auto back = [&](double at, int from) {
        return (std::floor(at * ratio + 1e-6) + 0.5 - from) * twipsPerPixel / zoom;
    };
    return {static_cast<int>(std::floor(back(logical.x(), origin.x()))) - dx,
            static_cast<int>(std::floor(back(logical.y(), origin.y()))) - dy};
}

Scale Scale::within(const Rect& place) const {
    Scale inner = *this;
    inner.dx += place.left;
    inner.dy += place.top;
    return inner;
}

double zoomToFit(const Rect& form, const QSize& room) {
    return std::min(room.width() * double{twipsPerPixel} / std::max(1, form.width),
                    room.height() * double{twipsPerPixel} / std::max(1, form.height));
}

} // namespace klopfmeise
