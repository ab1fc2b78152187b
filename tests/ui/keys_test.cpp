// Keys, clicks and assistive programs in the real windows, where it matters when something happens.

#include "calendar.h"
#include "frmPirate.h"
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

    template <class Control>
    Control* find(const QString& name) const {
        return test::find<Control>(mainForm, name);
    }
    /// Does `first`, then each of `acts` in the window that is on top by then. All have to be
    /// closed in the end.
    void play(const std::function<void()>& first, Acts acts) {
        m_acts = std::move(acts);
        QObject hand;
        reachOut(hand);
        first();
        EXPECT_TRUE(QTest::qWaitFor(
            [this] { return m_acts.isEmpty() && QApplication::activeModalWidget() == nullptr; }));
    }
    /// Presses keys such as "9 Return" in a control of `window`.
    static void pressIn(QWidget& window, const QString& name, const QString& keys) {
        auto* control = test::find<QWidget>(window, name);
        control->setFocus();
        test::press(control, keys.split(' '));
    }
    static void press(QWidget& window, Qt::Key key, bool held = false) {
        QWidget* focus = window.focusWidget() != nullptr ? window.focusWidget() : &window;
        QKeyEvent pressed(QEvent::KeyPress, key, {}, {}, held);
        QCoreApplication::sendEvent(focus, &pressed);
    }

private:
    void reachOut(QObject& hand) {
        QTimer::singleShot(1, &hand, [this, &hand] {  // behind all that was ordered before
            reachOut(hand);  // first, since the act may open another window
            QWidget* top = QApplication::activeModalWidget();
            if (top != nullptr && !top->isActiveWindow()) {
                top->activateWindow();
            } else if (top != nullptr) {
                seen << top->objectName();
                m_acts.isEmpty() ? (void)top->close() : m_acts.takeFirst()(*top);
            }
        });
    }

    Acts m_acts;
};

TEST_F(Keys, GiveOneOrderHoweverLongTheyAreHeld) {
    const auto hold = [](QWidget& window) {
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
            press(window, key, true);
            EXPECT_TRUE(window.isVisible()) << window.objectName().toStdString();
        }
    };
    play([this] { pressIn(mainForm, "cmdVisit", "Return"); },
         {hold, [](QWidget& bank) { pressIn(bank, "cboDeposit", "9 9 9 9 Return"); }, hold,
          [](QWidget& box) { press(box, Qt::Key_Return); }, hold,
          [](QWidget& bank) { press(bank, Qt::Key_Escape); }});
    EXPECT_EQ(seen.join(' '), "frmVisit frmVisit msgBox msgBox frmVisit frmVisit");
    press(mainForm, Qt::Key_Return, true);
    QCoreApplication::processEvents();
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(Keys, PressTheButtonOfABoxThatHasTheFocus) {
    play([this] { find<QAction>("mnuNewItem")->trigger(); },
         {[](QWidget& question) {
              EXPECT_EQ(test::textOf(*question.focusWidget()), "&Yes");
              QTest::keyClick(question.focusWidget(), Qt::Key_Tab);
              EXPECT_EQ(test::textOf(*question.focusWidget()), "&No");
              press(question, Qt::Key_Return);
          },
          [](QWidget& dialog) { press(dialog, Qt::Key_Escape); }});
    EXPECT_EQ(seen.join(' '), "msgBox frmNew");
}

TEST_F(Keys, LeaveTheMenusToWhereTheFocusWas) {
    find<QWidget>("cmdLeave")->setFocus();
    for (const QKeyCombination keys : {Qt::ALT | Qt::Key_F, Qt::ALT | Qt::Key_H,
                                       QKeyCombination(Qt::Key_F10), Qt::ALT | Qt::Key_Alt}) {
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
    const auto click = [](QWidget& bank) {
        auto* field = test::find<QComboBox>(bank, "cboDeposit")->lineEdit();
        QTest::mouseClick(field, Qt::LeftButton, {}, field->rect().center());
        return field->selectedText();
    };
    play([this] { find<QAbstractButton>("cmdVisit")->click(); }, {[click](QWidget& bank) {
             pressIn(bank, "cboDeposit", "1 2 3 4 Ctrl+A");
             EXPECT_EQ(click(bank), "");
             test::find<QWidget>(bank, "cmdCancel")->setFocus();
             EXPECT_EQ(click(bank), "1234");
             EXPECT_EQ(click(bank), "");
             // The click that opens the list is not over when the focus has come.
             test::find<QWidget>(bank, "cmdCancel")->setFocus();
             test::find<QWidget>(bank, "cboDeposit")->setFocus(Qt::MouseFocusReason);
             auto* list = test::find<QComboBox>(bank, "cboDeposit");
             list->showPopup();
             test::press(list->view(), {"End", "Return"});
             click(bank);
             EXPECT_EQ(click(bank), "");
         }});
}

TEST_F(Keys, AnswerBeforeADialogOpensAndOpenOne) {
    const QStringList menus{"mnuNewItem", "mnuLoadItem", "mnuHelpItem", "mnuAboutItem"};
    const QStringList orders{"cmdBuy", "cmdLeave", "cmdVisit", "cmdTransfer"};
    for (const QString& first : menus + orders) {
        seen.clear();
        const auto command = [&](const QString& name) {
            orders.contains(name) ? find<QAbstractButton>(name)->click()
                                  : find<QAction>(name)->trigger();
            EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << "open inside the call";
        };
        const auto all = [&] {
            for (const QString& name : QStringList{first} + menus + orders) {
                command(name);
            }
        };
        play(all, {[](QWidget& dialog) {
                 const auto* box = qobject_cast<QMessageBox*>(&dialog);
                 box != nullptr ? box->button(QMessageBox::Cancel)->click() : (void)dialog.close();
             }});
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
        EXPECT_TRUE(seen.filter("msgBox").isEmpty() && seen.filter("frmNew").isEmpty());
    };
    play([this] { find<QAbstractButton>("cmdLeave")->click(); }, {[](QWidget& leave) {
             auto* depart = test::find<QAbstractButton>(leave, "cmdDepart");
             depart->click();
             depart->click();
             EXPECT_TRUE(leave.isVisible()) << "under way inside the call";
         }});
    EXPECT_GE(waits, 25);
    EXPECT_EQ(game::monthsElapsed(mainForm.state().gdtmDate), 1);
    EXPECT_TRUE(find<QAction>("mnuSaveItem")->isEnabled());
}

TEST_F(Keys, GiveOneOrderAtATimeInABattle) {
    mainForm.state().gcurSSilk = 5;
    ui::frmPirate battle(mainForm);
    play([&battle] { battle.open(); },
         {[](QWidget& pirates) {
              for (const char* order : {"cmdDump", "cmdDump", "cmdRun"}) {
                  test::find<QAbstractButton>(pirates, order)->click();
                  EXPECT_EQ(QApplication::activeModalWidget(), &pirates) << "inside the call";
              }
          },
          [&battle](QWidget& question) {
              test::find<QAbstractButton>(battle, "cmdRun")->click();
              QCoreApplication::sendPostedEvents();
              EXPECT_EQ(QApplication::activeModalWidget(), &question);
              press(question, Qt::Key_Return);
          },
          [](QWidget& pirates) { qobject_cast<QDialog*>(&pirates)->done(0); }});
    EXPECT_EQ(seen.join(' '), "frmPirate msgBox frmPirate");
    EXPECT_EQ(mainForm.state().gcurSSilk, 5);
}

}  // namespace
