#pragma once

#include <QFont>
#include <QStringList>

namespace ui {

/// `otherwise` in the first installed family of the list, or unchanged if none is installed.
[[nodiscard]] QFont fontOf(const QStringList& families, const QFont& otherwise);

}  // namespace ui
