#include "picture.h"

namespace ui {

QPixmap picture(const QString& name, QSize size, qreal ratio) {
    const QString file =
        ratio > 1 ? QStringLiteral(":/%1@2x.png").arg(name) : QStringLiteral(":/%1.png").arg(name);
    QPixmap fitted =
        QPixmap(file).scaled(size * ratio, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    fitted.setDevicePixelRatio(ratio);
    return fitted;
}

}  // namespace ui
