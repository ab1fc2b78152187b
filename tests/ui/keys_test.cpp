// Keys, clicks and assistive programs in the real windows, where it matters when something happens.

#include "calendar.h"
#include "player.h"
#include "qt_desktop.h"
#include "scripted_random.h"

namespace {

/// The real desktop, except that something else may happen while time passes.
struct BusyDesktop final : ui::QtDesktop {
    std::function<void()> meanwhile = [] {};
    void wait(game::Milliseconds /*duration*/) override { meanwhile(); }
};

struct Keys : testing::Test {
    using Acts = QList<std::function<void(QWidget&)>>;

    BusyDesktop desktop;
    test::ScriptedRandom chance{"*"};  // no pirates, no storms
    ui::frmMain mainForm{desktop, chance};
    QStringList seen;  ///< the windows that have opened

    Keys() {
        mainForm.show();
        mainForm.state() = test::newGame("Bank=300");
        mainForm.beginGame(" - Welcome Captain");
        mainForm.UpdateMainForm();
        test::activate(mainForm);
    }
    static void click(QWidget& window, const QString& button) {
        test::find<QAbstractButton>(window, button)->click();
    }
    /// Presses keys such as "9 Return" in a control of `window`.
    static void pressIn(QWidget& window, const QString& name, const QString& keys) {
        auto* control = test::find<QWidget>(window, name);
        control->setFocus();
        test::press(control, keys.split(' '));
    }
    /// Does each of `acts` in the window that is on top by then. All have to be closed in the end.
    void play(Acts acts) {
        QObject hand;
        reachOut(hand, acts);
        EXPECT_TRUE(QTest::qWaitFor(
            [&acts] { return acts.isEmpty() && QApplication::activeModalWidget() == nullptr; }));
    }

private:
    void reachOut(QObject& hand, Acts& acts) {
        QTimer::singleShot(1, &hand, [this, &hand, &acts] {  // after all that was ordered before
            reachOut(hand, acts);  // first, since the act may open another window
            QWidget* top = QApplication::activeModalWidget();
            if (top != nullptr && !top->isActiveWindow()) {
                top->activateWindow();
            } else if (top != nullptr) {
                seen << top->objectName();
                acts.isEmpty() ? (void)top->close() : acts.takeFirst()(*top);
            }
        });
    }
};

TEST_F(Keys, GiveOneOrderHoweverLongTheyAreHeld) {
    const auto hold = [](QWidget& window) {
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
            QKeyEvent held(QEvent::KeyPress, key, {}, {}, true);
            QCoreApplication::sendEvent(window.focusWidget(), &held);
            EXPECT_TRUE(window.isVisible()) << window.objectName().toStdString();
        }
    };
    pressIn(mainForm, "cmdVisit", "Return");
    play({hold, [](QWidget& bank) { pressIn(bank, "cboDeposit", "9 9 9 9 Return"); }, hold,
          [](QWidget& box) { test::press(box.focusWidget(), {"Return"}); }, hold,
          [](QWidget& bank) { test::press(bank.focusWidget(), {"Esc"}); }});
    EXPECT_EQ(seen.join(' '), "frmVisit frmVisit msgBox msgBox frmVisit frmVisit");
    hold(mainForm);
    QCoreApplication::processEvents();
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(Keys, PressTheButtonOfABoxThatHasTheFocus) {
    test::press(&mainForm, {"Ctrl+N"});
    play({[](QWidget& question) {
              test::press(question.focusWidget(), {"Tab"});
              EXPECT_EQ(test::textOf(*question.focusWidget()), "&No");
              test::press(question.focusWidget(), {"Return"});
          },
          [](QWidget& dialog) { test::press(dialog.focusWidget(), {"Esc"}); }});
    EXPECT_EQ(seen.join(' '), "msgBox frmNew");
}

TEST_F(Keys, LeaveTheMenusToWhereTheFocusWas) {
    test::find<QWidget>(mainForm, "cmdLeave")->setFocus();
    for (const QKeyCombination keys :
         {Qt::ALT | Qt::Key_F, QKeyCombination(Qt::Key_F10), Qt::ALT | Qt::Key_Alt}) {
        SCOPED_TRACE(QKeySequence(keys).toString().toStdString());
        test::activate(mainForm);
        QTest::keyClick(mainForm.focusWidget(), keys.key(), keys.keyboardModifiers());
        QWidget* popup = QApplication::activePopupWidget();
        EXPECT_TRUE(popup != nullptr || mainForm.menuBar()->hasFocus());
        QTest::keyClick(popup != nullptr ? popup : mainForm.menuBar(), Qt::Key_Escape);
        QCoreApplication::sendPostedEvents();
        EXPECT_EQ(mainForm.focusWidget()->objectName(), "cmdLeave");
        EXPECT_EQ(mainForm.menuBar()->activeAction(), nullptr);
    }
}

TEST_F(Keys, SelectAnAmountOnlyWithTheClickThatBringsTheFocus) {
    click(mainForm, "cmdVisit");
    play({[](QWidget& bank) {
        auto* list = test::find<QComboBox>(bank, "cboDeposit");
        const auto selectedByClick = [field = list->lineEdit()] {
            QTest::mouseClick(field, Qt::LeftButton, {}, field->rect().center());
            return field->selectedText();
        };
        pressIn(bank, "cboDeposit", "1 2 3 4 Ctrl+A");
        EXPECT_EQ(selectedByClick(), "");
        pressIn(bank, "cmdCancel", "Shift");
        EXPECT_EQ(selectedByClick(), "1234");
        EXPECT_EQ(selectedByClick(), "");
        // The click that opens the list is not over when the focus has come.
        pressIn(bank, "cmdCancel", "Shift");
        list->setFocus(Qt::MouseFocusReason);
        list->showPopup();
        test::press(list->view(), {"End", "Return"});
        selectedByClick();
        EXPECT_EQ(selectedByClick(), "");
    }});
}

TEST_F(Keys, OpenOneDialogAfterTheCallThatAsksForIt) {
    const QStringList menus{"mnuNewItem", "mnuLoadItem", "mnuHelpItem", "mnuAboutItem"};
    const QStringList orders{"cmdBuy", "cmdLeave", "cmdVisit", "cmdTransfer"};
    for (const QString& first : menus + orders) {
        seen.clear();
        for (const QString& name : QStringList{first} + menus + orders) {
            orders.contains(name) ? click(mainForm, name)
                                  : test::find<QAction>(mainForm, name)->trigger();
            EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << "open inside the call";
        }
        play({[](QWidget& dialog) { dialog.close(); }});
        EXPECT_EQ(seen.size(), 1) << first.toStdString();
    }
}

TEST_F(Keys, DoNothingDuringAVoyage) {
    int waits = 0;
    desktop.meanwhile = [&] {
        ++waits;
        for (auto* item : mainForm.findChildren<QAction*>(QRegularExpression("^mnu"))) {
            item->trigger();
            EXPECT_FALSE(item->isChecked());
        }
        for (auto* button : mainForm.findChildren<QAbstractButton*>(QRegularExpression("^cmd"))) {
            button->click();  // in the dialog behind the voyage, too
        }
        EXPECT_FALSE(mainForm.close());
        QCoreApplication::sendPostedEvents();
    };
    click(mainForm, "cmdLeave");
    play({[](QWidget& leave) {
        click(leave, "cmdDepart");
        click(leave, "cmdDepart");
        EXPECT_TRUE(leave.isVisible()) << "under way inside the call";
    }});
    EXPECT_EQ(seen.join(' '), "frmLeave");
    EXPECT_GE(waits, 25);
    EXPECT_EQ(game::monthsElapsed(mainForm.state().gdtmDate), 1);
}

}  // namespace
