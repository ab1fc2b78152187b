#pragma once

#include <QPixmap>
#include <QSize>

namespace ui {

/// A picture of the program, `size` in pixels at 96 dpi, sharp on a screen with `ratio` dots to
/// each of them. Its file is `name`.png, and `name`@2x.png with twice the dots.
[[nodiscard]] QPixmap picture(const QString& name, QSize size, qreal ratio);

}  // namespace ui
