#pragma once

#include "platform/values/geometry.h"

namespace klopfmeise {

// Two games count in pixels of a form of 800 by 600. Their places are kept in twips, whole ones.

/// The nearest whole twip to a number of pixels; half a twip goes away from zero.
constexpr int pixel(double zahl) {
    const double twips = zahl * twipsPerPixel;
    return static_cast<int>(twips < 0 ? twips - 0.5 : twips + 0.5);
}

constexpr Rect inPixeln(double links, double oben, double breite, double höhe) {
    return {pixel(links), pixel(oben), pixel(breite), pixel(höhe)};
}

constexpr double pixelAus(int twips) { return static_cast<double>(twips) / twipsPerPixel; }

} // namespace klopfmeise
