#include "platform/qt/picture_cache.h"

#include "platform/machine/services.h"
#include "platform/qt/picture_file.h"
#include "platform/qt/qt_text.h"

#include <QPainter>
#include <QSvgRenderer>

#include <algorithm>
#include <utility>

namespace klopfmeise {

namespace {

/// Bytes of pictures kept although no form shows them.
constexpr qsizetype sparePictures = 4 * 1024 * 1024;

bool opaque(const QImage& image) {
    for (int y = 0; y < image.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        if (!std::all_of(line, line + image.width(), [](QRgb pixel) { return qAlpha(pixel) == 255; }))
            return false;
    }
    return true;
}

Image finished(QImage image) {
    if (image.isNull())
        return {};
    if (image.hasAlphaChannel()) {
        image.convertTo(QImage::Format_ARGB32_Premultiplied);
        // Copied to the screen without blending from then on.
        if (opaque(image))
            image.reinterpretAsFormat(QImage::Format_RGB32);
    } else {
        image.convertTo(QImage::Format_RGB32);
    }
    return std::make_shared<const QImage>(std::move(image));
}

Image rendered(const std::wstring& name, const QSize& size) {
    const QString path = QStringLiteral(":/bilder/%1.svg").arg(toQt(name));
    QSvgRenderer renderer(path);
    if (!renderer.isValid())
        return {};
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return {};
    image.fill(Qt::transparent);
    renderer.setAspectRatioMode(Qt::IgnoreAspectRatio);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    renderer.render(&painter, QRectF(QPointF(), size));
    painter.end();
    return finished(std::move(image));
}

Image read(const std::wstring& path, const QSize& size, double ownSizeZoom, Files& files) {
    // One byte more than is taken tells a file that is too long.
    const auto bytes = files.readAll(path, longestPictureFile + 1);
    return bytes ? finished(pictureIn(*bytes, size, ownSizeZoom)) : Image();
}

} // namespace

void PictureCache::prepare(const std::wstring& name, const QSize& size) {
    Entry& entry = entries_[{name, size.width(), size.height()}];
    if (entry.lastUse == 0 && !entry.pending.valid())
        entry.pending = std::async(std::launch::async, rendered, name, size);
}

Image PictureCache::drawing(const std::wstring& name, const QSize& size) {
    Entry& entry = entries_[{name, size.width(), size.height()}];
    if (entry.lastUse == 0)
        entry.image = entry.pending.valid() ? entry.pending.get() : rendered(name, size);
    entry.lastUse = ++uses_;
    Image image = entry.image;
    trim();
    return image;
}

void PictureCache::trim() {
    const auto spare = [](const auto& item) {
        return item.second.image && item.second.image.use_count() == 1;
    };
    for (;;) {
        qsizetype bytes = 0;
        auto oldest = entries_.end();
        for (auto item = entries_.begin(); item != entries_.end(); ++item) {
            if (!spare(*item))
                continue;
            bytes += item->second.image->sizeInBytes();
            if (oldest == entries_.end() || item->second.lastUse < oldest->second.lastUse)
                oldest = item;
        }
        if (bytes <= sparePictures)
            return;
        entries_.erase(oldest);
    }
}

Image HeldPictures::picture(const void* owner, const PictureSource& source, int revision, const QSize& size,
                            double ownSizeZoom, Files& files) {
    if (source.empty() || size.isEmpty()) {
        held_.erase(owner);
        return {};
    }
    const auto found = held_.find(owner);
    if (found != held_.end() && found->second.source == source && found->second.revision == revision &&
        found->second.size == size && found->second.ownSizeZoom == ownSizeZoom)
        return found->second.image;
    held_.erase(owner);
    Image image =
        source.file ? read(source.name, size, ownSizeZoom, files) : cache_.drawing(source.name, size);
    held_.insert_or_assign(owner, Held{source, revision, size, ownSizeZoom, image});
    return image;
}

} // namespace klopfmeise
