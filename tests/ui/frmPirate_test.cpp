#include "frmPirate.h"

#include <gtest/gtest.h>

#include <QLabel>

#include "opened.h"

using test::Opened;
using test::roll;
using ui::frmPirate;

namespace {

const double hit = roll(7, 10);
const double hitTaken = roll(4, 10);
const double theyMiss = roll(3, 10);
const double cannonsSafe = roll(1, 25);
constexpr auto orders = "cmdFight cmdDeath cmdRun cmdDump";

/// Three ships against two cannons and some silk.
void meet(test::FakeMainForm& form) {
    form.record.gcurCannons = 2;
    form.record.gcurSSilk = 5;
    form.record.gcurHold = 25;
    form.draws.add({roll(1, 4)});
}

QLabel* picture(QWidget& form, int number) {
    return test::find<QLabel>(form, qPrintable(QString("imgPirate%1").arg(number)));
}

TEST(frmPirate, OpensWithTheLargestFleetAndKeysThatGiveNoOrder) {
    Opened<frmPirate> visit([](test::FakeMainForm& form) {
        form.record.gcurMaxHold = 480;
        form.record.gcurPayoff = 11;
        form.draws.add({roll(46, 46)});
    });
    EXPECT_EQ(visit.dialog().windowTitle(), "Kwan Tat's Pirates");
    EXPECT_EQ(visit.shown(orders), "(Fight); (Fight to Death); Run; (Dump Cargo)");
    EXPECT_EQ(visit.shown("txtEnemy txtStatus txtCannons"), "48; 100%; 0");
    EXPECT_EQ(visit.dialog().focusWidget()->objectName(), "cmdRun");
    EXPECT_EQ(picture(visit.dialog(), 0)->geometry(), QRect(8, 8, 32, 32));
    EXPECT_EQ(picture(visit.dialog(), 47)->geometry(), QRect(376, 128, 32, 32));
    visit.press("cmdRun", {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter});
    EXPECT_TRUE(visit.dialog().isVisible());
    EXPECT_EQ(visit.fakeDesktop.waited.count(), 0);
}

TEST(frmPirate, PlaysAVolleyInWhichNothingElseCanBeOrdered) {
    Opened<frmPirate> visit(meet);
    visit.draws.add({hit, hit, hitTaken, cannonsSafe});  // one of three is left
    std::vector<int> heights;
    visit.fakeDesktop.duringWait = [&] {
        EXPECT_EQ(picture(visit.dialog(), 2)->isVisible(), visit.shown("txtEnemy") == "3");
        heights.push_back(picture(visit.dialog(), 2)->height());
        EXPECT_EQ(visit.shown(orders), "(Fight); (Fight to Death); (Run); (Dump Cargo)");
        visit.click("cmdRun");
        for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
            QTest::keyClick(&visit.dialog(), key);
        }
    };
    visit.press("cmdFight", {Qt::Key_Space});

    EXPECT_TRUE(visit.dialog().isVisible());
    EXPECT_EQ(heights.at(1 + 24), 16);  // half way down
    EXPECT_TRUE(std::is_sorted(heights.rbegin(), heights.rend()));
    EXPECT_EQ(heights.back(), 0);
    EXPECT_EQ(visit.fakeDesktop.waited.count(),
              2'000 + 2 * (200 + 48 * 5) + 2'000 + 2'000 + 10 + 200);
    EXPECT_EQ(visit.previewed, 99);
    EXPECT_EQ(visit.shown("txtStatus txtReport"), "99%; Zhenbao, what shall we do?");
    EXPECT_EQ(visit.dialog().focusWidget()->objectName(), "cmdFight");
}

TEST(frmPirate, CloseBoxAsksOnceAndTheBattleGoesOn) {
    Opened<frmPirate> visit(meet);
    visit.draws.add({roll(8, 8), roll(8, 8), roll(1, 2), theyMiss, theyMiss, cannonsSafe});
    auto& desktop = visit.fakeDesktop;
    constexpr auto quit = "Do you want to quit this game?     ";
    desktop.duringBox = [&] { visit.dialog().close(); };
    int waits = 0;
    desktop.duringWait = [&] {
        if (++waits == 2) {
            desktop.expect(quit, "Zhenbao", ui::Answer::No);
            visit.dialog().close();
        }
    };
    visit.click("cmdRun");
    EXPECT_EQ(desktop.lastButtons, "Question: Yes, No (both)");
    EXPECT_TRUE(visit.dialog().isVisible());
    EXPECT_EQ(visit.shown("txtEnemy"), "2");

    desktop.expect(quit, "Zhenbao", ui::Answer::Yes);
    EXPECT_THROW(visit.dialog().close(), test::ProgramEnded);
}

TEST(frmPirate, DumpsOnlyOnAPlainYesAndSinkingEndsTheGameOrTheProgram) {
    using ui::Answer;
    for (const Answer answer : {Answer::No, Answer::Yes}) {
        Opened<frmPirate> visit(meet);
        auto& desktop = visit.fakeDesktop;
        desktop.expect("Are you sure you want to dump all of your cargo.     ", "Dump Cargo",
                       answer);
        visit.click("cmdDump");
        EXPECT_EQ(desktop.lastButtons, "Question: Yes, No (both)");
        EXPECT_EQ(visit.record.gcurSSilk, answer == Answer::Yes ? 0 : 5);

        visit.record.gcurStatus = visit.record.gcurCannons = 1;
        visit.draws.add({roll(1, 10), hitTaken});
        desktop.expect("Zhenbao, you have sunk.  Would you like to play again?     ", "Game Over",
                       answer);
        if (answer == Answer::Yes) {
            visit.click("cmdDeath");
            EXPECT_EQ(desktop.lastButtons, "Exclamation: Yes (both), No");
            EXPECT_TRUE(visit.record.gblnGameOver && !visit.dialog().isVisible());
        } else {
            EXPECT_THROW(visit.click("cmdDeath"), test::ProgramEnded);
        }
    }
}

}  // namespace
