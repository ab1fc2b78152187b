#include "frmStats.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "fake_main_form.h"
#include "find.h"
#include "standing.h"

namespace {

using Occasion = ui::frmStats::Occasion;

constexpr game::Currency trillion = game::trillion;
constexpr auto question = "Do you really want to quit this game?   ";

struct Standing {
    game::Currency netWorth;
    Occasion occasion;
    const char* title;
    bool mayRetire;
    bool mayGoOn;
};

TEST(frmStats, OpensInThreeWays) {
    const Standing cases[] = {
        {999'999, Occasion::Menu, "Current Statistics", false, true},
        {1'000'000, Occasion::Menu, "Current Statistics", true, true},
        {trillion, Occasion::Menu, "Current Statistics", true, true},
        {1'000'000, Occasion::Millionaire, "You are a Millionaire!", true, true},
        {trillion - 1, Occasion::Millionaire, "You are a Millionaire!", true, true},
        {trillion, Occasion::Trillionaire, "You are a Trillionaire!", true, false},
    };
    for (const Standing& expected : cases) {
        SCOPED_TRACE(game::moneyText(expected.netWorth) + " " + expected.title);
        test::FakeMainForm mainForm;
        mainForm.record.gcurNetWorth = expected.netWorth;
        const game::GameState before = mainForm.record;
        ui::frmStats form{mainForm, expected.occasion};
        form.show();
        EXPECT_EQ(form.windowTitle(), expected.title);
        EXPECT_EQ(test::find<QPushButton>(form, "cmdRetire")->isEnabled(), expected.mayRetire);
        EXPECT_EQ(test::find<QPushButton>(form, "cmdOK")->isEnabled(), expected.mayGoOn);

        QTest::keyClick(form.focusWidget(), Qt::Key_Space);
        QTest::keyClick(test::find<QPushButton>(form, "cmdRetire"), Qt::Key_Return);
        EXPECT_EQ(form.isVisible(), !expected.mayGoOn) << "only OK, where there is one, takes keys";
        QTest::keyClick(&form, Qt::Key_Escape);
        EXPECT_FALSE(form.isVisible());
        EXPECT_EQ(mainForm.record, before);
        EXPECT_EQ(mainForm.refreshes, 0);
    }
}

TEST(frmStats, ShowsTheStanding) {
    const std::pair<std::chrono::month, const char*> times[] = {
        {std::chrono::January, "0 Months"},
        {std::chrono::February, "1 Month"},
        {std::chrono::March, "2 Months"},
    };
    for (const auto& [month, time] : times) {
        test::FakeMainForm mainForm;
        mainForm.record.gdtmDate = {game::firstDay.year(), month, game::firstDay.day()};
        mainForm.record.gcurMaxHold = 1'060;
        mainForm.record.gcurCannons = 12;
        mainForm.record.gcurNetWorth = -4'600;
        mainForm.record.gcurRank = 1'234;
        mainForm.record.gstrRank = "Zhenbao";
        ui::frmStats form{mainForm, Occasion::Menu};
        QStringList shown;
        for (const char* name : {"lblNetValue", "lblShipValue", "lblCannonsValue", "lblTimeValue",
                                 "lblTotalValue", "lblRankValue"}) {
            shown << test::find<QLabel>(form, name)->text();
        }
        EXPECT_EQ(shown, (QStringList{"-$4,600", "1060", "12", time, "1234", "Zhenbao"}));
    }
}

TEST(frmStats, RetiresAtOnceFromATrillionOnAndElseWhenSure) {
    test::FakeMainForm mainForm;
    mainForm.record.gcurNetWorth = trillion - 1;
    const auto retire = [&mainForm] {
        ui::frmStats form{mainForm, Occasion::Menu};
        form.show();
        test::find<QPushButton>(form, "cmdRetire")->click();
        EXPECT_TRUE(form.isVisible());
    };
    mainForm.fakeDesktop.expect(question, "Zhenbao", ui::Answer::No);
    retire();
    EXPECT_EQ(mainForm.fakeDesktop.lastBox.icon, ui::Icon::Question);
    EXPECT_EQ(mainForm.fakeDesktop.lastBox.onEscape, ui::Answer::No);

    mainForm.fakeDesktop.expect(question, "Zhenbao", ui::Answer::Yes);
    EXPECT_THROW(retire(), test::ProgramEnded);
    mainForm.record.gcurNetWorth = trillion;
    EXPECT_THROW(retire(), test::ProgramEnded);
}

}  // namespace
