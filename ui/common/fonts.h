#pragma once

#include <QFont>
#include <QStringList>

namespace ui {

/// The first installed family of the list, or else `otherwise`, whose size and weight it keeps.
[[nodiscard]] QFont fontOf(const QStringList& families, const QFont& otherwise);

}  // namespace ui
