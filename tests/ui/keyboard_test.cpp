// The whole game without a mouse.

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QPainter>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>

#include "every_window.h"

using test::inNextDialog;
using test::roll;

namespace {

constexpr double uneventful = 0.99;

/// A player who has nothing but a keyboard, and looks where the focus is.
class Keyboard : public testing::Test {
protected:
    Keyboard() {
        mainForm.show();
        qApp->installEventFilter(&m_mice);
    }
    ~Keyboard() override { EXPECT_EQ(m_mice.seen, 0); }

    QWidget* focus() {
        if (QWidget* popup = QApplication::activePopupWidget()) {
            return popup->focusWidget() != nullptr ? popup->focusWidget() : popup;
        }
        QWidget* modal = QApplication::activeModalWidget();
        QWidget* window = modal != nullptr ? modal : &mainForm;
        QApplication::setActiveWindow(window);  // as any window manager does
        return window->focusWidget() != nullptr ? window->focusWidget() : window;
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(focus(), key, modifiers);
    }
    void press(std::initializer_list<Qt::Key> keys) {
        for (const Qt::Key key : keys) {
            press(key);
        }
    }
    void type(const QString& text) { QTest::keyClicks(focus(), text); }
    void tabTo(const char* control) {
        for (int tabs = 0; focus()->objectName() != QString::fromLatin1(control); ++tabs) {
            ASSERT_LT(tabs, 20) << "the Tab key does not come to " << control;
            press(Qt::Key_Tab);
        }
    }
    void give(const char* order) {
        tabTo(order);
        press(Qt::Key_Space);
    }
    /// Opens a dialog with `open` and does in it what `inside` says.
    void open(const std::function<void()>& opening, const std::function<void()>& inside) {
        inNextDialog([inside](QDialog&) { inside(); });
        opening();
    }
    void open(const char* order, const std::function<void()>& inside) {
        open([&] { give(order); }, inside);
    }
    void expectLog(const char* end) {
        const QString log = test::find<QPlainTextEdit>(mainForm, "txtLog")->toPlainText();
        EXPECT_TRUE(log.endsWith(QString::fromLatin1(end))) << log.toStdString();
    }

    test::FakeDesktop desktop;
    test::ScriptedRandom draws;
    ui::frmMain mainForm{desktop, draws};

private:
    struct Mice final : QObject {
        int seen = 0;
        bool eventFilter(QObject* /*watched*/, QEvent* event) override {
            seen += event->type() == QEvent::MouseButtonPress ? 1 : 0;
            return false;
        }
    } m_mice;
};

TEST_F(Keyboard, PlaysTwoMonthsWithEveryOrder) {
    const QTemporaryDir folder;
    desktop.fileToSave = desktop.fileToLoad = folder.filePath("month.zhb");

    draws.add({roll(8, 21), roll(7, 21), roll(5, 21), roll(10, 21)});
    open([&] { press(Qt::Key_F, Qt::AltModifier), press(Qt::Key_N); },
         [&] {
             type("heron"), press(Qt::Key_Tab, Qt::ShiftModifier);
             press({Qt::Key_Up, Qt::Key_Return});
         });
    EXPECT_EQ(mainForm.state().gstrFirm, "Heron");
    press(Qt::Key_O, Qt::AltModifier), press(Qt::Key_Return);
    EXPECT_TRUE(mainForm.moneyLenderBug());

    open("cmdBuy", [&] { tabTo("cboGeneral"), type("10"), press(Qt::Key_Return); });
    expectLog("Bought 10 General @ $14 Each");
    open("cmdTransfer", [&] { press({Qt::Key_G, Qt::Key_Tab, Qt::Key_4, Qt::Key_Return}); });
    expectLog("Transfered 4 General to Warehouse");
    open("cmdMoney", [&] { type("520"), press(Qt::Key_Return); });
    expectLog("Borrowed $520");
    open("cmdVisit", [&] {
        press(Qt::Key_Down, Qt::AltModifier), press({Qt::Key_Down, Qt::Key_Return});
        press(Qt::Key_Return);
    });
    expectLog("Deposited $100");
    EXPECT_EQ(mainForm.state().gcurCash, 680);

    const auto passage = [&](std::initializer_list<double> battle) {
        draws.add({roll(5, 110)});
        draws.add(battle);
        draws.add({uneventful}, 24);
        draws.add({0, 0, 0, 0, uneventful, uneventful, 0});
    };
    draws.add({roll(2, 7)});
    passage({0, 0});  // three ships, and away
    draws.add({roll(1, 5), 0, roll(2, 12), 0, uneventful, uneventful, uneventful, uneventful});
    desktop.expect("Are you sure you want to dump all of your cargo.     ", "Dump Cargo",
                   ui::Answer::No);
    open("cmdLeave", [&] {
        press({Qt::Key_Down, Qt::Key_Down, Qt::Key_Up});
        open([&] { press(Qt::Key_Return); }, [&] { give("cmdDump"), give("cmdRun"); });
    });
    EXPECT_EQ(mainForm.state().gstrLocation, "Nagasaki");
    give("cmdCannon");
    expectLog("Bought a New Cannon for $400");
    desktop.expect("Insufficient Funds     ", "Sorry");
    give("cmdShip");
    open("cmdSell", [&] { give("cmdSellAll"); });
    expectLog("Sold 6 General @ $5 Each");

    const double hit = roll(7, 10);
    const double miss = roll(1, 10);
    draws.add({roll(1, 7)});
    passage({0, hit, hit, miss, uneventful, hit, miss, uneventful, hit, 0});
    draws.add({uneventful}, 6);
    desktop.expect("You got some booty worth $900     ", "Zhenbao");
    open("cmdLeave", [&] {
        open([&] { press(Qt::Key_Return); }, [&] { give("cmdFight"), give("cmdDeath"); });
    });
    EXPECT_EQ(mainForm.state().gstrLocation, "Hong Kong");
    EXPECT_EQ(mainForm.state().gcurCash, 280 + 30 + 900);
    open("cmdRepair", [&] { press({Qt::Key_Right, Qt::Key_Return}); });
    expectLog("Repaired 1% of Ship for $600");

    press(Qt::Key_S, Qt::ControlModifier);
    expectLog("Game Saved Successfully");
    const game::GameState saved = mainForm.state();
    press({Qt::Key_F10, Qt::Key_Down, Qt::Key_Return});
    expectLog("Game Loaded Successfully");
    EXPECT_EQ(mainForm.state(), saved);
    open(
        [&] {
            press(Qt::Key_O, Qt::AltModifier), press({Qt::Key_Down, Qt::Key_Return});
        },
        [&] { press(Qt::Key_Return); });
    open([&] { press(Qt::Key_F1); }, [&] { give("cmdHints"), press(Qt::Key_Escape); });
    open([&] { press(Qt::Key_H, Qt::AltModifier), press(Qt::Key_A); },
         [&] {
             press({Qt::Key_Tab, Qt::Key_Return, Qt::Key_Escape});
         });
    EXPECT_EQ(desktop.openedLinks.size(), 1);
    press(Qt::Key_F, Qt::AltModifier), press(Qt::Key_X);
    EXPECT_FALSE(mainForm.isVisible());
}

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
