#pragma once

#include <QProxyStyle>

namespace klopfmeise {

/// The style of the toolkit's own controls (check boxes, scroll bars, sliders, lists): calm, in the program's
/// colours, and as large as the zoom asks for.
class ZoomStyle final : public QProxyStyle {
public:
    ZoomStyle();
    /// Logical pixels to the unzoomed pixel.
    double zoom() const { return zoom_; }
    void setZoom(double zoom) { zoom_ = zoom; }
    static QPalette palette();

    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override;

    /// Property of a line edit: the sign shown for each character of a password, as a number.
    static constexpr const char* passwordSign = "passwordSign";

private:
    double zoom_ = 0;
};

} // namespace klopfmeise
