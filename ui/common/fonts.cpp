#include "fonts.h"

#include <QFontDatabase>

namespace ui {

QFont fontOf(const QStringList& families, const QFont& otherwise) {
    // Looking a missing family up by name would make the toolkit search for substitutes.
    const QStringList installed = QFontDatabase::families();
    for (const QString& family : families) {
        if (installed.contains(family, Qt::CaseInsensitive)) {
            QFont font = otherwise;
            font.setFamily(family);
            // Whole pixels are crisp at small sizes, and each letter is rendered once.
            font.setHintingPreference(QFont::PreferFullHinting);
            return font;
        }
    }
    return otherwise;
}

}  // namespace ui
