#include "place.h"

#include <algorithm>

namespace ui {

namespace {

/// `start` of a stretch as long as `length`, pushed between `low` and `high` where it fits.
int pushedWithin(int start, int length, int low, int high) {
    return std::max(low, std::min(start, high - length + 1));
}

/// Better places have smaller costs: the areas covered, and at last the way.
std::vector<int> cost(const std::vector<QRect>& figures, const QRect& place, const QRect& wanted) {
    std::vector<int> parts;
    for (const QRect& figure : figures) {
        const QSize covered = figure.intersected(place).size();
        parts.push_back(covered.isEmpty() ? 0 : covered.width() * covered.height());
    }
    parts.push_back((place.topLeft() - wanted.topLeft()).manhattanLength());
    return parts;
}

}  // namespace

QPoint placeBeside(const std::vector<QRect>& figures, const QRect& wanted, const QRect& screen) {
    std::vector<int> lefts{wanted.left()};
    std::vector<int> tops{wanted.top()};
    for (const QRect& figure : figures) {
        lefts.insert(lefts.end(), {figure.left() - wanted.width(), figure.right() + 1});
        tops.insert(tops.end(), {figure.top() - wanted.height(), figure.bottom() + 1});
    }
    std::vector<QRect> places;
    for (const int left : lefts) {
        for (const int top : tops) {
            places.emplace_back(
                QPoint(pushedWithin(left, wanted.width(), screen.left(), screen.right()),
                       pushedWithin(top, wanted.height(), screen.top(), screen.bottom())),
                wanted.size());
        }
    }
    const auto costsLess = [&](const QRect& one, const QRect& other) {
        return cost(figures, one, wanted) < cost(figures, other, wanted);
    };
    return std::min_element(places.begin(), places.end(), costsLess)->topLeft();
}

}  // namespace ui
