#include "contrast.h"

#include <QApplication>
#include <QPalette>
#include <algorithm>
#include <cmath>

namespace ui {

namespace {

/// From 0 for black to 1 for white, as the eye weighs the colours of a screen.
double luminance(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

/// `colour` on its way to `end`, `percent` of it.
QColor mixed(const QColor& colour, const QColor& end, int percent) {
    const auto part = [percent](int from, int to) { return from + (to - from) * percent / 100; };
    return {part(colour.red(), end.red()), part(colour.green(), end.green()),
            part(colour.blue(), end.blue())};
}

}  // namespace

double contrast(const QColor& text, const QColor& background) {
    const auto [darker, lighter] = std::minmax({luminance(text), luminance(background)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor readable(const QColor& colour, const QColor& background) {
    const QColor end = contrast(Qt::black, background) > contrast(Qt::white, background)
                           ? QColor{Qt::black}
                           : QColor{Qt::white};
    int percent = 0;
    while (percent < 100 && contrast(mixed(colour, end, percent), background) < leastContrast) {
        ++percent;
    }
    return mixed(colour, end, percent);
}

void makeSelectionReadable() {
    QPalette palette = QApplication::palette();
    palette.setColor(QPalette::Highlight, readable(palette.color(QPalette::Highlight),
                                                   palette.color(QPalette::HighlightedText)));
    QApplication::setPalette(palette);
}

}  // namespace ui
