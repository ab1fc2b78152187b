#pragma once

#include <QColor>
#include <initializer_list>

namespace ui {

/// How well one colour stands out from another: the ratio of their luminances, from 1 to 21.
[[nodiscard]] double contrast(const QColor& one, const QColor& other);

/// The least contrast of any text that can be read or chosen.
inline constexpr double leastContrast = 4.5;
/// The least contrast of the mark of the focus with what is on either side of it.
inline constexpr double leastContrastOfMark = 3;
/// What the mark has with the plain colours of a palette, which styles shade a little.
inline constexpr double contrastOfMark = 4;

/// `colour`, made darker or lighter as little as it takes to stand out from all `others`; where
/// that cannot be, the colour that comes closest to it.
[[nodiscard]] QColor readable(const QColor& colour, std::initializer_list<QColor> others,
                              double least = leastContrast);

}  // namespace ui
