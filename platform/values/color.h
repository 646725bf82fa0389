#pragma once

#include <cstdint>

namespace klopfmeise {

/// A colour of the screen as red, green, blue, 0 to 255 each.
struct Color {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    friend constexpr bool operator==(const Color&, const Color&) = default;
};

constexpr Color RGB(int red, int green, int blue) {
    return {static_cast<std::uint8_t>(red), static_cast<std::uint8_t>(green),
            static_cast<std::uint8_t>(blue)};
}

namespace colors {
inline constexpr Color black = RGB(0, 0, 0);
inline constexpr Color white = RGB(255, 255, 255);
inline constexpr Color red = RGB(255, 0, 0);
/// Judgement: right, or in time.
inline constexpr Color right = RGB(192, 255, 192);
/// Judgement: wrong, or late.
inline constexpr Color wrong = RGB(255, 192, 192);
inline constexpr Color panel = RGB(192, 192, 192);
inline constexpr Color paleGrey = RGB(224, 224, 224);
inline constexpr Color midGrey = RGB(128, 128, 128);
/// Readable grey for text on light ground (contrast 5.7 to 1 on white).
inline constexpr Color textGrey = RGB(102, 102, 102);
inline constexpr Color blush = RGB(236, 207, 200);
inline constexpr Color coral = RGB(204, 102, 102);
} // namespace colors

} // namespace klopfmeise
