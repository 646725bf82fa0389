#pragma once

#include "platform/values/color.h"

#include <QColor>
#include <QString>

#include <string>
#include <string_view>

namespace klopfmeise {

inline QString toQt(std::wstring_view text) {
    return QString::fromWCharArray(text.data(), static_cast<qsizetype>(text.size()));
}
inline std::wstring fromQt(const QString& text) { return text.toStdWString(); }
inline QColor toQt(Color color) { return {color.red, color.green, color.blue}; }

/// The colours of controls that the forms leave open.
namespace look {
inline constexpr Color ink = RGB(0x2b, 0x3a, 0x4a);
inline constexpr Color coral = RGB(0xcc, 0x66, 0x66);
inline constexpr Color blue = RGB(0x3d, 0x7e, 0xa6);
inline constexpr Color button = RGB(0xf4, 0xf7, 0xf9);
inline constexpr Color rim = RGB(0x8a, 0x9b, 0xa8);
inline constexpr Color paleInk = RGB(0x75, 0x82, 0x8e);
} // namespace look

} // namespace klopfmeise
