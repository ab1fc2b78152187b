#pragma once

#include <QColor>
#include <initializer_list>

namespace ui {

/// How well one colour stands out from another: the ratio of their luminances, from 1 to 21.
[[nodiscard]] double contrast(const QColor& one, const QColor& other);

/// The least contrast of enabled text.
inline constexpr double leastContrast = 4.5;
/// The least contrast of the focus mark with the pixels on either side.
inline constexpr double leastContrastOfMark = 3;
/// The contrast of the mark with the plain colours of a palette, which styles shade a little.
inline constexpr double contrastOfMark = 4;

/// `colour`, made darker or lighter just enough to have the contrast `least` with all `others`, or
/// the closest possible colour.
[[nodiscard]] QColor readable(const QColor& colour, std::initializer_list<QColor> others,
                              double least = leastContrast);

}  // namespace ui
