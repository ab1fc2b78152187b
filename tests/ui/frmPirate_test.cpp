#include "frmPirate.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

#include "fake_main_form.h"
#include "find.h"

using test::find;
using test::roll;

namespace {

const double hit = roll(7, 10);
const double hitTaken = roll(4, 10);
const double theyMiss = roll(3, 10);
const double cannonsSafe = roll(1, 25);

class frmPirateTest : public testing::Test {
protected:
    test::FakeMainForm mainForm;

    frmPirateTest() {
        mainForm.record.gcurCannons = 2;
        mainForm.record.gcurSSilk = 5;
        mainForm.record.gcurHold = 25;
    }

    static std::string text(QWidget& form, const char* name) {
        return find<QLineEdit>(form, name)->text().toStdString();
    }
    static bool enabled(QWidget& form, const char* name) {
        return find<QPushButton>(form, name)->isEnabled();
    }
    static void press(QWidget& form, const char* name) {
        QTest::mouseClick(find<QPushButton>(form, name), Qt::LeftButton);
    }
    static QLabel* picture(QWidget& form, int number) {
        return find<QLabel>(form, qPrintable(QStringLiteral("imgPirate%1").arg(number)));
    }
    /// Exactly the first pictures are to be seen, as many as the report tells.
    static void expectFleetAsReported(QWidget& form) {
        const int ships = find<QLineEdit>(form, "txtEnemy")->text().toInt();
        for (int number = 0; number < 48; ++number) {
            EXPECT_EQ(picture(form, number)->isVisible(), number < ships) << number;
        }
    }
};

}  // namespace

TEST_F(frmPirateTest, OpensAfreshEachTime) {
    mainForm.record.gcurMaxHold = 480;
    mainForm.record.gcurPayoff = 11;
    for (const int cannons : {0, 2}) {
        mainForm.record.gcurCannons = cannons;
        mainForm.draws.add({roll(46, 46)});
        ui::frmPirate form{mainForm};
        form.show();
        EXPECT_EQ(form.windowTitle().toStdString(), "Kwan Tat's Pirates");
        EXPECT_EQ(text(form, "txtEnemy"), "48");
        EXPECT_EQ(text(form, "txtStatus"), "100%");
        EXPECT_EQ(text(form, "txtCannons"), std::to_string(cannons));
        EXPECT_EQ(enabled(form, "cmdFight"), cannons > 0);
        EXPECT_EQ(enabled(form, "cmdDeath"), cannons > 0);
        EXPECT_EQ(form.focusWidget(), find<QPushButton>(form, cannons > 0 ? "cmdFight" : "cmdRun"));
        expectFleetAsReported(form);
        EXPECT_EQ(picture(form, 0)->geometry(), QRect(8, 8, 32, 32));
        EXPECT_EQ(picture(form, 47)->geometry(), QRect(376, 128, 32, 32));
        for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter}) {
            QTest::keyClick(form.focusWidget(), key);
            EXPECT_TRUE(form.isVisible());
        }
        EXPECT_EQ(mainForm.fakeDesktop.waited.count(), 0) << "keys that give no order";
    }
}

TEST_F(frmPirateTest, PlaysAVolleyInWhichNothingElseCanBeOrdered) {
    mainForm.draws.add({roll(1, 4), hit, hit, hitTaken, cannonsSafe});  // one of three is left
    ui::frmPirate form{mainForm};
    form.show();
    std::vector<int> heights;
    mainForm.fakeDesktop.duringWait = [&] {
        expectFleetAsReported(form);
        heights.push_back(picture(form, 2)->height());
        for (const char* order : {"cmdFight", "cmdDeath", "cmdRun", "cmdDump"}) {
            EXPECT_FALSE(enabled(form, order));
            press(form, order);
        }
        for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
            QTest::keyClick(&form, key);
        }
    };
    QTest::keyClick(find<QPushButton>(form, "cmdFight"), Qt::Key_Space);

    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(heights.at(1 + 24), 16);  // half way down
    EXPECT_TRUE(std::is_sorted(heights.rbegin(), heights.rend()));
    EXPECT_EQ(heights.back(), 0);
    EXPECT_EQ(mainForm.fakeDesktop.waited.count(),
              2'000 + 2 * (200 + 48 * 5) + 2'000 + 2'000 + 10 + 200);
    EXPECT_EQ(mainForm.previewed, 99);
    EXPECT_EQ(text(form, "txtStatus"), "99%");
    EXPECT_EQ(text(form, "txtReport"), "Zhenbao, what shall we do?");
    EXPECT_EQ(form.focusWidget(), find<QPushButton>(form, "cmdFight"));
}

TEST_F(frmPirateTest, CloseBoxAsksOnceAndTheBattleGoesOn) {
    mainForm.draws.add(
        {roll(1, 4), roll(8, 8), roll(8, 8), roll(1, 2), theyMiss, theyMiss, cannonsSafe});
    auto& desktop = mainForm.fakeDesktop;
    const QString quit = QStringLiteral("Do you want to quit this game?     ");
    ui::frmPirate form{mainForm};
    form.show();
    desktop.duringBox = [&form] { form.close(); };
    int waits = 0;
    desktop.duringWait = [&] {
        if (++waits == 2) {
            desktop.expect(quit, ui::programName, ui::Answer::No);
            form.close();
        }
    };
    press(form, "cmdRun");
    EXPECT_EQ(desktop.lastBox.onEscape, ui::Answer::No);
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(text(form, "txtEnemy"), "2");

    desktop.expect(quit, ui::programName, ui::Answer::Yes);
    EXPECT_THROW(form.close(), test::ProgramEnded);
}

TEST_F(frmPirateTest, DumpsOnlyOnAPlainYes) {
    mainForm.draws.add({roll(1, 4)});
    ui::frmPirate form{mainForm};
    form.show();
    for (const ui::Answer answer : {ui::Answer::No, ui::Answer::Yes}) {
        EXPECT_EQ(mainForm.record.gcurSSilk, 5);
        EXPECT_TRUE(enabled(form, "cmdDump"));
        mainForm.fakeDesktop.expect(
            QStringLiteral("Are you sure you want to dump all of your cargo.     "),
            QStringLiteral("Dump Cargo"), answer);
        press(form, "cmdDump");
        EXPECT_EQ(mainForm.fakeDesktop.lastBox.onEscape, ui::Answer::No);
    }
    EXPECT_EQ(mainForm.record.gcurSSilk, 0);
    EXPECT_FALSE(enabled(form, "cmdDump"));
    EXPECT_EQ(mainForm.refreshes, 1);
}

TEST_F(frmPirateTest, SinkingEndsTheGameOrTheProgram) {
    for (const ui::Answer again : {ui::Answer::Yes, ui::Answer::No}) {
        mainForm.record.gcurStatus = mainForm.record.gcurCannons = 1;
        mainForm.draws.add({roll(1, 4), roll(1, 10), hitTaken});
        mainForm.fakeDesktop.expect(
            QStringLiteral("Zhenbao, you have sunk.  Would you like to play again?     "),
            QStringLiteral("Game Over"), again);
        ui::frmPirate form{mainForm};
        form.show();
        if (again == ui::Answer::Yes) {
            press(form, "cmdDeath");
            EXPECT_TRUE(mainForm.record.gblnGameOver);
            EXPECT_FALSE(form.isVisible());
            EXPECT_EQ(mainForm.fakeDesktop.lastBox.onEscape, ui::Answer::Yes);
        } else {
            EXPECT_THROW(press(form, "cmdDeath"), test::ProgramEnded);
        }
    }
}
