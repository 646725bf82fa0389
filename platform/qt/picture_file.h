#pragma once

#include <QImage>
#include <QSize>

#include <string_view>

namespace klopfmeise {

/// A larger file is no picture, nor is one with more pixels. They are the most that a page can show by far,
/// and keep what a made or altered file can cost below 64 MiB and a second.
inline constexpr std::size_t longestPictureFile = 16U * 1024U * 1024U;
inline constexpr qint64 mostPicturePixels = 4 * 1024 * 1024;

/// The picture in the bytes of a bitmap file, as large as it is shown; null if there is none. Without a zoom
/// it is stretched to `size` device pixels, else it keeps its own size, in unzoomed pixels, and what lies
/// beyond `size` is cut off.
QImage pictureIn(std::string_view file, const QSize& size, double ownSizeZoom);

} // namespace klopfmeise
