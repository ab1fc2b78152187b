// What the Tab key comes to, and that one sees where.

#include <gtest/gtest.h>

#include <QPainter>
#include <QTest>
#include <algorithm>

#include "every_window.h"

namespace {

/// The controls that the Tab key should come to.
QList<QWidget*> tabStops(QWidget& window) {
    QList<QWidget*> stops;
    for (QWidget* control : window.findChildren<QWidget*>()) {
        if ((control->focusPolicy() & Qt::TabFocus) != 0 && control->isVisible() &&
            control->isEnabled() && control->focusProxy() == nullptr) {
            stops.append(control);
        }
    }
    return stops;
}

/// Whether one reads `a` before `b`. Of the panels or controls in which they part, the left one
/// comes first where they stand side by side, and else the upper one.
bool readsBefore(QWidget* a, QWidget* b) {
    const auto part = [](QWidget* control, QWidget* other) {
        while (!control->parentWidget()->isAncestorOf(other)) {
            control = control->parentWidget();
        }
        return control->geometry();
    };
    const QRect first = part(a, b);
    const QRect second = part(b, a);
    const bool sideBySide = first.top() < second.bottom() && second.top() < first.bottom();
    return sideBySide ? first.left() < second.left() : first.top() < second.top();
}

TEST(TabKey, VisitsEveryControlInReadingOrderAndGoesBack) {
    const test::EveryWindow all(test::prosperousGame(), [](QWidget& window, const QString&) {
        QList<QWidget*> expected = tabStops(window);
        std::sort(expected.begin(), expected.end(), readsBefore);
        if (expected.isEmpty()) {
            return;  // while a battle runs its course
        }
        for (const bool forward : {true, false}) {
            QApplication::setActiveWindow(&window);
            expected.front()->setFocus();
            for (qsizetype stop = 0; stop <= expected.size(); ++stop) {
                const qsizetype at = forward ? stop : expected.size() - stop;
                EXPECT_EQ(window.focusWidget(), expected.at(at % expected.size()))
                    << window.focusWidget()->objectName().toStdString();
                QTest::keyClick(window.focusWidget(), forward ? Qt::Key_Tab : Qt::Key_Backtab);
            }
        }
    });
}

/// Dots of the control, and of a rim around it, that look different in two pictures of its window.
int differences(const QImage& before, const QImage& after) {
    int differing = 0;
    for (int y = 0; y < before.height(); ++y) {
        for (int x = 0; x < before.width(); ++x) {
            differing += before.pixel(x, y) != after.pixel(x, y) ? 1 : 0;
        }
    }
    return differing;
}

TEST(Focus, IsSeenInEveryWindowLightAndDark) {
    const QPalette light = QApplication::palette();
    for (const QColor& colour : {light.color(QPalette::Window), QColor(0x35, 0x35, 0x35)}) {
        QApplication::setPalette(QPalette(colour));
        const test::EveryWindow all(test::prosperousGame(), [](QWidget& window, const QString&) {
            EXPECT_TRUE(window.testAttribute(Qt::WA_KeyboardFocusChange)) << "seen after Tab only";
            const QList<QWidget*> stops = tabStops(window);
            for (QWidget* stop : stops) {
                if (stops.size() == 1) {
                    return;  // the button of a box, which never loses the focus
                }
                const auto picture = [&] {
                    const QPoint corner = stop->mapTo(&window, QPoint(0, 0));
                    return window.grab({corner, stop->size()}).toImage();
                };
                QApplication::setActiveWindow(&window);
                stop->setFocus(Qt::TabFocusReason);
                const QImage focused = picture();
                (stop == stops.front() ? stops.back() : stops.front())
                    ->setFocus(Qt::TabFocusReason);
                EXPECT_GE(differences(focused, picture()), std::max(stop->width(), 20))
                    << stop->objectName().toStdString();
            }
        });
    }
    QApplication::setPalette(light);
}

}  // namespace
