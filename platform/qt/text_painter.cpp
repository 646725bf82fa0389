#include "platform/qt/text_painter.h"

#include "platform/qt/qt_text.h"

#include <QGlyphRun>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace klopfmeise {

namespace {

/// Height above the baseline of the face the forms were laid out with, as a part of the font's pixel size.
constexpr double ascent = 0.8333;
constexpr std::size_t mostFaces = 24;

double unzoomedPixels(const Font& font) { return std::round(font.points * 96.0 / 72.0); }

QFont monospaced(bool bold) {
    QFont font(QStringLiteral("Liberation Mono"));
    font.setStyleHint(QFont::Monospace);
    font.setFixedPitch(true);
    font.setBold(bold);
    return font;
}

/// The two signs of the picture font, drawn to fit a character cell.
void drawSign(QPainter& painter, wchar_t sign, const QRectF& cell, const QColor& color) {
    const double size = cell.width() * 0.94;
    const QPointF middle = cell.center();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    if (sign == L'\u25CF') {
        painter.drawEllipse(middle, size / 2, size / 2);
    } else {
        const double stem = std::max(1.0, size * 0.13);
        const double x = middle.x() - size / 2;
        QPainterPath arrow(QPointF(x, middle.y()));
        arrow.lineTo(x + size * 0.42, middle.y() - size * 0.36);
        arrow.lineTo(x + size * 0.42, middle.y() - stem / 2);
        arrow.lineTo(x + size, middle.y() - stem / 2);
        arrow.lineTo(x + size, middle.y() + stem / 2);
        arrow.lineTo(x + size * 0.42, middle.y() + stem / 2);
        arrow.lineTo(x + size * 0.42, middle.y() + size * 0.36);
        arrow.closeSubpath();
        painter.drawPath(arrow);
    }
    painter.restore();
}

} // namespace

QFont widgetFont(const Font& font, const Scale& scale) {
    QFont result = monospaced(font.bold);
    result.setPixelSize(
        std::max(1, static_cast<int>(std::lround(unzoomedPixels(font) * scale.zoom / scale.ratio))));
    return result;
}

TextPainter::Face& TextPainter::face(bool bold, double pixels) {
    // 64 steps to the pixel are finer than the eye.
    const std::pair key(bold, static_cast<int>(std::lround(pixels * 64)));
    if (const auto found = faces_.find(key); found != faces_.end())
        return found->second;
    if (faces_.size() >= mostFaces)
        faces_.clear();
    Face face{{}, monospaced(bold)};
    face.font.setPixelSize(std::max(1, static_cast<int>(std::lround(pixels))));
    face.glyphs = QRawFont::fromFont(face.font);
    face.glyphs.setPixelSize(pixels);
    return faces_.emplace(key, std::move(face)).first->second;
}

void TextPainter::draw(QPainter& painter, const Scale& scale, const Rect& place, std::wstring_view text,
                       const TextLook& look) {
    if (text.empty() || place.empty())
        return;
    const FontMetrics metrics = metricsOf(look.font);
    const int noMargin = 1'000'000;
    const auto lines = linesOf(text, look.font, look.wrap ? place.width : noMargin);
    const int height = static_cast<int>(lines.size()) * metrics.lineHeight;
    std::size_t longest = 0;
    for (const auto& line : lines)
        longest = std::max(longest, line.size());
    const bool cut = height > place.height || static_cast<int>(longest) * metrics.charWidth > place.width;
    if (cut) {
        painter.save();
        painter.setClipRect(scale.device(place), Qt::IntersectClip);
    }
    painter.setPen(toQt(look.color));
    int top = place.top + (look.middle ? std::max(0, (place.height - height) / 2) : 0);
    for (const auto& line : lines) {
        const int width = static_cast<int>(line.size()) * metrics.charWidth;
        const int room = std::max(0, place.width - width);
        const int indent = look.align == Align::left ? 0 : look.align == Align::center ? room / 2 : room;
        drawLine(painter, scale, look.font, line, place.left + indent, top);
        top += metrics.lineHeight;
        if (top >= place.bottom())
            break;
    }
    if (cut)
        painter.restore();
}

void TextPainter::drawLine(QPainter& painter, const Scale& scale, const Font& font, std::wstring_view line,
                           int left, int top) {
    const double pixels = unzoomedPixels(font) * scale.zoom;
    const FontMetrics metrics = metricsOf(font);
    const bool signs = font.name == wingdings;
    Face& face = this->face(font.bold, pixels);
    const int baseline = scale.y(top) + static_cast<int>(std::lround(ascent * pixels));
    // A glyph narrower than its cell stands in the middle of it.
    const double inset = (scale.exact(metrics.charWidth) - 0.6 * pixels) / 2;

    QString text;
    text.reserve(static_cast<qsizetype>(line.size()));
    for (const wchar_t sign : line)
        text +=
            sign > 0xFFFF ? QChar(0xFFFD) : QChar(static_cast<char16_t>(signs ? wingdingsSign(sign) : sign));
    const QList<quint32> indexes = face.glyphs.glyphIndexesForString(text);
    const double start = scale.origin.x() + scale.exact(scale.dx + left);
    QList<quint32> glyphs;
    QList<QPointF> positions;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i].isSpace())
            continue;
        const double x = start + static_cast<double>(i) * scale.exact(metrics.charWidth);
        if (signs && (text[i] == u'\u25CF' || text[i] == u'\u2190')) {
            const QRectF cell(x, scale.y(top), scale.exact(metrics.charWidth),
                              scale.exact(metrics.lineHeight));
            drawSign(painter, static_cast<wchar_t>(text[i].unicode()), cell, painter.pen().color());
        } else if (i < indexes.size() && indexes[i] != 0) {
            glyphs.push_back(indexes[i]);
            positions.emplace_back(x + inset, baseline);
        } else {
            painter.setFont(face.font);
            painter.drawText(QPointF(x + inset, baseline), QString(text[i]));
        }
    }
    if (glyphs.isEmpty())
        return;
    QGlyphRun run;
    run.setRawFont(face.glyphs);
    run.setGlyphIndexes(glyphs);
    run.setPositions(positions);
    painter.drawGlyphRun(QPointF(), run);
}

} // namespace klopfmeise
