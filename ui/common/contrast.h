#pragma once

#include <QColor>

namespace ui {

/// How well text reads on a background: the ratio of their luminances, from 1 to 21.
[[nodiscard]] double contrast(const QColor& text, const QColor& background);

/// The least contrast of any text that can be read or chosen.
inline constexpr double leastContrast = 4.5;

/// `colour`, made darker or lighter as far as it takes to read as text on `background`, or to be
/// the background of that text.
[[nodiscard]] QColor readable(const QColor& colour, const QColor& background);

/// Lets selected text stand out on any desktop: some select in a colour too close to that of the
/// text.
void makeSelectionReadable();

}  // namespace ui
