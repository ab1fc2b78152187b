#include "contrast.h"

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

double contrast(const QColor& one, const QColor& other) {
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor readable(const QColor& colour, std::initializer_list<QColor> others, double least) {
    const auto worst = [&others](const QColor& candidate) {
        double lowest = contrast(Qt::black, Qt::white);
        for (const QColor& other : others) {
            lowest = std::min(lowest, contrast(candidate, other));
        }
        return lowest;
    };
    QColor best = colour;
    double reached = worst(best);
    for (int percent = 1; percent <= 100 && reached < least; ++percent) {
        for (const QColor& end : {QColor{Qt::black}, QColor{Qt::white}}) {
            const QColor candidate = mixed(colour, end, percent);
            if (const double lowest = worst(candidate); lowest > reached) {
                best = candidate;
                reached = lowest;
            }
        }
    }
    return best;
}

}  // namespace ui
