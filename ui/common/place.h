#pragma once

#include <QRect>
#include <vector>

namespace ui {

/// The place nearest to `wanted`, on `screen`, where a window covers as little as possible of
/// `figures`. The first figures count most.
[[nodiscard]] QPoint placeBeside(const std::vector<QRect>& figures, const QRect& wanted,
                                 const QRect& screen);

}  // namespace ui
