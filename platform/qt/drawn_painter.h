#pragma once

#include "platform/controls/drawn.h"
#include "platform/qt/picture_cache.h"
#include "platform/qt/scale.h"
#include "platform/qt/text_painter.h"

class QPainter;
class QWidget;

namespace klopfmeise {

class Files;

/// Where and by what means a container paints. `painter` counts device pixels of the form.
struct Canvas {
    QPainter& painter;
    Scale scale;
    TextPainter& texts;
    HeldPictures& pictures;
    Files& files;
};

/// Makes `painter`, just begun on `widget`, count device pixels of the form, on which the widget's corner
/// lies at `corner` (logical pixels).
void countDevicePixels(QPainter& painter, const QWidget& widget, const QPoint& corner);

/// Paints the drawn controls of `container` that touch `dirty` (twips), lowest first.
void paintDrawn(const Canvas& canvas, const Container& container, const Rect& dirty);
void paintPicture(const Canvas& canvas, const QRect& place, const void* owner, const PictureSource& source,
                  int revision = 0, double ownSizeZoom = 0);
/// A line of `width` device pixels along the inside of `place`.
void paintInnerLine(QPainter& painter, const QRect& place, int width, const QColor& color);

} // namespace klopfmeise
