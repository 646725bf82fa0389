#include "platform/values/font.h"

#include "platform/values/geometry.h"

#include <algorithm>
#include <cmath>

namespace klopfmeise {

namespace {

/// Calls `line` with each line of `text`; CR LF, CR and LF each end one.
template <class Line>
void forEachLine(std::wstring_view text, Line line) {
    for (;;) {
        const auto end = text.find_first_of(L"\r\n");
        line(text.substr(0, end));
        if (end == std::wstring_view::npos)
            return;
        const bool pair = text[end] == L'\r' && end + 1 < text.size() && text[end + 1] == L'\n';
        text.remove_prefix(end + (pair ? 2 : 1));
    }
}

} // namespace

FontMetrics metricsOf(const Font& font) {
    const double pixels = std::round(font.points * 96.0 / 72.0);
    const auto twips = [](double size) { return static_cast<int>(std::lround(size)) * twipsPerPixel; };
    return {twips(pixels * 0.6), twips(pixels * 1.1328)};
}

TextSize sizeOf(std::wstring_view text, const Font& font) {
    const FontMetrics metrics = metricsOf(font);
    TextSize size;
    forEachLine(text, [&](std::wstring_view line) {
        size.width = std::max(size.width, static_cast<int>(line.size()) * metrics.charWidth);
        size.height += metrics.lineHeight;
    });
    return size;
}

std::vector<std::wstring_view> linesOf(std::wstring_view text, const Font& font, int width) {
    const auto columns =
        static_cast<std::size_t>(std::max(1, width / std::max(1, metricsOf(font).charWidth)));
    std::vector<std::wstring_view> lines;
    forEachLine(text, [&](std::wstring_view line) {
        while (line.size() > columns) {
            // The blank at which a line wraps may hang over the margin.
            const auto cut = line.rfind(L' ', columns);
            const bool broken = cut == std::wstring_view::npos || cut == 0;
            lines.push_back(line.substr(0, broken ? columns : cut));
            line.remove_prefix(broken ? columns : cut + 1);
        }
        lines.push_back(line);
    });
    return lines;
}

int wrappedLines(std::wstring_view text, const Font& font, int width) {
    return static_cast<int>(linesOf(text, font, width).size());
}

wchar_t wingdingsSign(wchar_t letter) {
    switch (letter) {
    case L'l':
        return L'\u25CF';
    case L'ß':
        return L'\u2190';
    default:
        return letter;
    }
}

} // namespace klopfmeise
