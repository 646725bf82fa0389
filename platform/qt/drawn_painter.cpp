#include "platform/qt/drawn_painter.h"

#include "platform/qt/qt_text.h"

#include <QPainter>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace klopfmeise {

namespace {

/// Thickness of a line told in unzoomed pixels; never thinner than that.
int thickness(const Scale& scale, int pixels) {
    return std::max(pixels, static_cast<int>(std::lround(scale.zoom * pixels)));
}

void paint(const Canvas& canvas, const Label& label) {
    const QRect place = canvas.scale.device(label.place());
    if (label.back())
        canvas.painter.fillRect(place, toQt(*label.back()));
    // A line keeps clear of its border; a text of several has its room reckoned to the character.
    const int clearance = label.border() && !label.wrap() ? 3 * twipsPerPixel : 0;
    Rect room = label.place();
    room.left += clearance;
    room.width -= 2 * clearance;
    canvas.texts.draw(
        canvas.painter, canvas.scale, room, label.caption(),
        {.font = label.shownFont(), .color = label.fore(), .align = label.align(), .wrap = label.wrap()});
    if (label.border())
        paintInnerLine(canvas.painter, place, thickness(canvas.scale, 1), toQt(look::ink));
}

void paint(const Canvas& canvas, const Picture& picture) {
    const QRect place = canvas.scale.device(picture.place());
    paintPicture(canvas, place, &picture, picture.picture(), picture.revision(),
                 picture.stretch() ? 0 : canvas.scale.zoom);
    if (picture.border())
        paintInnerLine(canvas.painter, place, thickness(canvas.scale, 3), toQt(look::ink));
}

void paint(const Canvas& canvas, const Shape& shape) {
    QPainter& painter = canvas.painter;
    const QRect place = canvas.scale.device(shape.place());
    const int line = thickness(canvas.scale, 1);
    if (shape.shapeKind() == ShapeKind::rectangle) {
        if (shape.fill())
            painter.fillRect(place, toQt(*shape.fill()));
        if (shape.outline())
            paintInnerLine(painter, place, line, toQt(*shape.outline()));
        return;
    }
    const double inset = shape.outline() ? line / 2.0 : 0.0;
    const double radius = std::min(place.width(), place.height()) / 2.0 - inset;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(shape.fill() ? QBrush(toQt(*shape.fill())) : QBrush(Qt::NoBrush));
    painter.setPen(shape.outline() ? QPen(toQt(*shape.outline()), line) : QPen(Qt::NoPen));
    painter.drawEllipse(QRectF(place).center(), radius, radius);
    painter.restore();
}

void paint(const Canvas& canvas, const Line& line) {
    const LinePlace& ends = line.ends();
    const Scale& scale = canvas.scale;
    const int width = thickness(scale, line.lineWidth());
    const int x1 = scale.x(ends.x1);
    const int y1 = scale.y(ends.y1);
    const int x2 = scale.x(ends.x2);
    const int y2 = scale.y(ends.y2);
    if (x1 == x2 || y1 == y2) {
        // Along the pixel grid, both end pixels included.
        const int left = std::min(x1, x2) - (x1 == x2 ? (width - 1) / 2 : 0);
        const int top = std::min(y1, y2) - (y1 == y2 ? (width - 1) / 2 : 0);
        const QSize size =
            x1 == x2 ? QSize(width, std::abs(y2 - y1) + 1) : QSize(std::abs(x2 - x1) + 1, width);
        canvas.painter.fillRect(QRect(QPoint(left, top), size), toQt(line.color()));
        return;
    }
    canvas.painter.save();
    canvas.painter.setRenderHint(QPainter::Antialiasing);
    canvas.painter.setPen(QPen(toQt(line.color()), width, Qt::SolidLine, Qt::FlatCap));
    canvas.painter.drawLine(QPointF(x1 + 0.5, y1 + 0.5), QPointF(x2 + 0.5, y2 + 0.5));
    canvas.painter.restore();
}

} // namespace

void countDevicePixels(QPainter& painter, const QWidget& widget, const QPoint& corner) {
    const double ratio = widget.devicePixelRatioF();
    painter.translate(-corner);
    if (ratio != 1)
        painter.scale(1 / ratio, 1 / ratio);
}

void paintDrawn(const Canvas& canvas, const Container& container, const Rect& dirty) {
    container.forEachIn(dirty, [&](const Control& control) {
        switch (control.kind()) {
        case Kind::label:
            return paint(canvas, static_cast<const Label&>(control));
        case Kind::picture:
            return paint(canvas, static_cast<const Picture&>(control));
        case Kind::shape:
            return paint(canvas, static_cast<const Shape&>(control));
        case Kind::line:
            return paint(canvas, static_cast<const Line&>(control));
        case Kind::frame:
        case Kind::pictureBox:
        case Kind::button:
        case Kind::textBox:
        case Kind::richTextBox:
        case Kind::fileList:
        case Kind::folderList:
        case Kind::scrollBar:
        case Kind::slider:
        case Kind::optionButton:
        case Kind::checkBox:
            return;
        }
    });
}

void paintPicture(const Canvas& canvas, const QRect& place, const void* owner, const PictureSource& source,
                  int revision, double ownSizeZoom) {
    if (const Image image =
            canvas.pictures.picture(owner, source, revision, place.size(), ownSizeZoom, canvas.files))
        canvas.painter.drawImage(place.topLeft(), *image);
}

void paintInnerLine(QPainter& painter, const QRect& place, int width, const QColor& color) {
    const int w = std::min({width, place.width(), place.height()});
    if (w <= 0)
        return;
    painter.fillRect(place.x(), place.y(), place.width(), w, color);
    painter.fillRect(place.x(), place.y() + place.height() - w, place.width(), w, color);
    painter.fillRect(place.x(), place.y(), w, place.height(), color);
    painter.fillRect(place.x() + place.width() - w, place.y(), w, place.height(), color);
}

} // namespace klopfmeise
