#pragma once

#include <QRect>
#include <vector>

namespace ui {

/// Where a window that should stand at `wanted` covers as little as it can of `figures`, of which
/// those that come first count most. It moves no further than that takes and stays on `screen`.
[[nodiscard]] QPoint placeBeside(const std::vector<QRect>& figures, const QRect& wanted,
                                 const QRect& screen);

}  // namespace ui
