#include "fonts.h"

#include <QFontDatabase>

namespace ui {

QFont fontOf(const QStringList& families, const QFont& otherwise) {
    // The list is at hand; asking for one family by name makes the toolkit search for substitutes.
    const QStringList installed = QFontDatabase::families();
    for (const QString& family : families) {
        if (installed.contains(family, Qt::CaseInsensitive)) {
            QFont font = otherwise;
            font.setFamily(family);
            // On whole pixels: crisp at small sizes, and each letter is drawn once for all its
            // places.
            font.setHintingPreference(QFont::PreferFullHinting);
            return font;
        }
    }
    return otherwise;
}

}  // namespace ui
