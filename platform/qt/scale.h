#pragma once

#include "platform/values/geometry.h"

#include <QPoint>
#include <QPointF>
#include <QRect>
#include <QSize>

namespace klopfmeise {

/// How the twips of one container lie on the pixels of its window. Everything is computed in the screen's own
/// pixels
/// ("device"), counted from the window's upper left corner, so that a fractional ratio of the desktop blurs
/// nothing. Edges are rounded one by one from their distance to the form's corner: neighbours share an edge
/// at any zoom.
struct Scale {
    /// Device pixels to the unzoomed pixel.
    double zoom = 1;
    /// Device pixels to the toolkit's own, "logical" pixel.
    double ratio = 1;
    /// Where the form's corner lies, in device pixels.
    QPoint origin;
    /// Where the container's corner lies on the form, in twips.
    int dx = 0;
    int dy = 0;

    double exact(double twips) const { return twips * zoom / twipsPerPixel; }
    /// A length in device pixels; for places use x and y.
    int length(int twips) const;
    int x(int twips) const;
    int y(int twips) const;
    QRect device(const Rect& place) const;
    /// The logical pixels that cover a device rectangle: rounded outwards, or each edge to the nearest.
    QRect logical(const QRect& device, bool outwards) const;
    /// The twips that touch a logical rectangle of the window.
    Rect twips(const QRect& logical) const;
    /// The twips in the middle of the device pixel at a logical point of the window.
    QPoint twipsAt(const QPointF& logical) const;
    /// The scale of a container at this place.
    Scale within(const Rect& place) const;

    friend bool operator==(const Scale&, const Scale&) = default;
};

/// The zoom at which `form` (twips) fills `room` (device pixels) without leaving it.
double zoomToFit(const Rect& form, const QSize& room);

} // namespace klopfmeise
