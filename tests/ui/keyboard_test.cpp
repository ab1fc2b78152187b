// Every window without a mouse.

#include <gtest/gtest.h>

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

TEST(Focus, IsSeenInEveryWindowLightAndDark) {
    const QPalette light = QApplication::palette();
    for (const QColor& colour : {light.color(QPalette::Window), QColor(0x35, 0x35, 0x35)}) {
        QApplication::setPalette(QPalette(colour));
        const test::EveryWindow all(test::prosperousGame(), [](QWidget& window, const QString&) {
            EXPECT_TRUE(window.testAttribute(Qt::WA_KeyboardFocusChange)) << "seen after Tab only";
            const QList<QWidget*> stops = tabStops(window);
            for (QWidget* stop : stops.mid(stops.size() == 1 ? 1 : 0)) {  // one never loses it
                const auto pictureWithFocusOn = [&](QWidget* focused) {
                    QApplication::setActiveWindow(&window);
                    focused->setFocus(Qt::TabFocusReason);
                    const QRect place(stop->mapTo(&window, QPoint()), stop->size());
                    return window.grab(place).toImage().convertToFormat(QImage::Format_RGB32);
                };
                const QImage with = pictureWithFocusOn(stop);
                const QImage without =
                    pictureWithFocusOn(stop == stops.front() ? stops.back() : stops.front());
                int differing = 0;
                for (int dot = 0; dot < with.width() * with.height(); ++dot) {
                    const QPoint at(dot % with.width(), dot / with.width());
                    differing += with.pixel(at) != without.pixel(at) ? 1 : 0;
                }
                EXPECT_GE(differing, std::max(stop->width(), 20))
                    << stop->objectName().toStdString();
            }
        });
    }
    QApplication::setPalette(light);
}

}  // namespace
