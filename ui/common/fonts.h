#pragma once

#include <QFont>
#include <QStringList>

namespace ui {

/// The first installed family of the list, or else `otherwise`, whose size and weight it keeps.
[[nodiscard]] QFont fontOf(const QStringList& families, const QFont& otherwise);

/// For columns of figures: `font` if its digits are all of a width, or else
/// the desktop's family in its size.
[[nodiscard]] QFont figuresFont(const QFont& font);

}  // namespace ui
