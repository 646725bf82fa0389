#include "platform/qt/picture_file.h"

#include <QBuffer>
#include <QByteArray>
#include <QImageReader>

#include <algorithm>
#include <cmath>

namespace klopfmeise {

namespace {

/// The name tells the format, and the content is not asked: of the other formats some follow references or
/// unpack without end.
constexpr const char* bitmap = "bmp";

QImage decoded(std::string_view file) {
    if (file.size() > longestPictureFile)
        return {};
    QByteArray bytes = QByteArray::fromRawData(file.data(), static_cast<qsizetype>(file.size()));
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, bitmap);
    reader.setDecideFormatFromContent(false);
    // What the head tells, before a pixel is made.
    const QSize told = reader.size();
    if (!told.isValid() || told.isEmpty() || qint64{told.width()} * told.height() > mostPicturePixels)
        return {};
    return reader.read();
}

} // namespace

QImage pictureIn(std::string_view file, const QSize& size, double ownSizeZoom) {
    QImage image = decoded(file);
    if (image.isNull() || size.isEmpty())
        return {};
    QSize wanted = size;
    if (ownSizeZoom > 0) {
        // No pixel is made that is cut off again.
        const auto least = [&](int shown, int own) {
            return std::min(own, static_cast<int>(std::ceil(shown / ownSizeZoom)));
        };
        const QRect seen(0, 0, least(size.width(), image.width()), least(size.height(), image.height()));
        if (seen != image.rect())
            image = image.copy(seen);
        wanted = (QSizeF(image.size()) * ownSizeZoom).toSize().expandedTo({1, 1});
    }
    if (image.size() != wanted) {
        // Pictures with a palette are not averaged.
        image.convertTo(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
        image = image.scaled(wanted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }
    const QRect shown = image.rect() & QRect(QPoint(), size);
    return shown == image.rect() ? image : image.copy(shown);
}

} // namespace klopfmeise
