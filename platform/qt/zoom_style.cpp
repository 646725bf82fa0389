#include "platform/qt/zoom_style.h"

#include "platform/qt/qt_text.h"

#include <QPalette>
#include <QVariant>
#include <QWidget>

#include <cmath>

namespace klopfmeise {

ZoomStyle::ZoomStyle()
    : QProxyStyle(QStringLiteral("Fusion")) {}

QPalette ZoomStyle::palette() {
    QPalette palette(toQt(look::button), toQt(colors::paleGrey));
    palette.setColor(QPalette::Base, Qt::white);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, toQt(look::ink));
        palette.setColor(QPalette::Disabled, role, toQt(look::paleInk));
    }
    palette.setColor(QPalette::Highlight, toQt(look::blue));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::ToolTipBase, Qt::white);
    palette.setColor(QPalette::ToolTipText, toQt(look::ink));
    return palette;
}

int ZoomStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    const int size = QProxyStyle::pixelMetric(metric, option, widget);
    switch (metric) {
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
    case PM_CheckBoxLabelSpacing:
    case PM_RadioButtonLabelSpacing:
    case PM_ScrollBarExtent:
    case PM_ScrollBarSliderMin:
    case PM_SliderThickness:
    case PM_SliderControlThickness:
    case PM_SliderLength:
    case PM_TitleBarHeight:
    case PM_MdiSubWindowFrameWidth:
        return static_cast<int>(std::lround(size * zoom_));
    case PM_TextCursorWidth:
        return std::max(1, static_cast<int>(std::lround(zoom_)));
    default:
        return size;
    }
}

int ZoomStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* data) const {
    if (hint == SH_LineEdit_PasswordCharacter && widget)
        if (const QVariant sign = widget->property(passwordSign); sign.isValid())
            return sign.toInt();
    return QProxyStyle::styleHint(hint, option, widget, data);
}

} // namespace klopfmeise
