#pragma once

#include <QPoint>
#include <QSize>

namespace ui {

/// Window measures are given in twips: 1,440 to the inch, 15 to a pixel at 96 dpi.
inline constexpr int twipsPerPixel = 15;

[[nodiscard]] constexpr int pixels(int twips) {
    return twips / twipsPerPixel;
}
[[nodiscard]] constexpr QPoint pointFromTwips(int left, int top) {
    return {pixels(left), pixels(top)};
}
[[nodiscard]] constexpr QSize sizeFromTwips(int width, int height) {
    return {pixels(width), pixels(height)};
}

}  // namespace ui
