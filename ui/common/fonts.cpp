#include "fonts.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QGuiApplication>

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

QFont figuresFont(const QFont& font) {
    const QFontMetricsF metrics(font);
    for (char16_t digit = u'1'; digit <= u'9'; ++digit) {
        if (metrics.horizontalAdvance(QChar{digit}) != metrics.horizontalAdvance(u'0')) {
            QFont figures = font;
            figures.setFamily(QGuiApplication::font().family());
            figures.setHintingPreference(QFont::PreferDefaultHinting);  // as everywhere else
            return figures;
        }
    }
    return font;
}

}  // namespace ui
