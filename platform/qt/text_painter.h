#pragma once

#include "platform/controls/drawn.h"
#include "platform/qt/scale.h"

#include <QFont>
#include <QRawFont>

#include <map>
#include <string_view>
#include <utility>
#include <vector>

class QPainter;

namespace klopfmeise {

/// How a text lies in its place.
struct TextLook {
    Font font = {};
    Color color = colors::black;
    Align align = Align::left;
    bool wrap = true;
    /// In the middle of the place's height instead of at its top.
    bool middle = false;
};

/// The font for a toolkit widget that shows `font`; its size in logical pixels.
QFont widgetFont(const Font& font, const Scale& scale);

/// Draws text character by character on the grid that metricsOf() tells, whatever the widths of the machine's
/// fonts are.
class TextPainter {
public:
    /// `painter` counts device pixels of the window. The text is cut off at the edges of `place` (twips).
    void draw(QPainter& painter, const Scale& scale, const Rect& place, std::wstring_view text,
              const TextLook& look);

private:
    struct Face {
        QRawFont glyphs;
        QFont font;
    };
    Face& face(bool bold, double pixels);
    void drawLine(QPainter& painter, const Scale& scale, const Font& font, std::wstring_view line, int left,
                  int top);

    std::map<std::pair<bool, int>, Face> faces_;
};

} // namespace klopfmeise
