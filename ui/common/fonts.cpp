#include "fonts.h"

#include <QFontDatabase>

namespace ui {

QFont fontOf(const QStringList& families, const QFont& otherwise) {
    for (const QString& family : families) {
        // Asking for a family that is missing makes the toolkit look through all others.
        if (QFontDatabase::hasFamily(family)) {
            QFont font = otherwise;
            font.setFamily(family);
            return font;
        }
    }
    return otherwise;
}

}  // namespace ui
