#pragma once

#include <QPoint>
#include <QSize>

namespace ui {

/// Window measures are given in twips: 1,440 to the inch, 15 to a pixel at 96 dpi.
inline constexpr int twipsPerPixel = 15;

/// To the nearest pixel; `twips` is not negative.
[[nodiscard]] constexpr int pixels(int twips) {
    return (twips + twipsPerPixel / 2) / twipsPerPixel;
}
static_assert(pixels(0) == 0 && pixels(7) == 0 && pixels(8) == 1 && pixels(15) == 1);
static_assert(pixels(3'400) == 227 && pixels(1'180) == 79 && pixels(100) == 7);

[[nodiscard]] constexpr QPoint pointFromTwips(int left, int top) {
    return {pixels(left), pixels(top)};
}
[[nodiscard]] constexpr QSize sizeFromTwips(int width, int height) {
    return {pixels(width), pixels(height)};
}

}  // namespace ui
