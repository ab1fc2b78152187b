#include "frmStats.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <tuple>

#include "fake_main_form.h"
#include "find.h"
#include "standing.h"

namespace {

using Occasion = ui::frmStats::Occasion;

constexpr game::Currency trillion = game::trillion;
constexpr auto question = "Do you really want to quit this game?   ";

TEST(frmStats, OpensInThreeWays) {
    using Row = std::tuple<game::Currency, Occasion, const char*, bool, bool>;
    for (const auto& [netWorth, occasion, title, mayRetire, mayGoOn] :
         {Row{999'999, Occasion::Menu, "Current Statistics", false, true},
          {1'000'000, Occasion::Menu, "Current Statistics", true, true},
          {1'000'000, Occasion::Millionaire, "You are a Millionaire!", true, true},
          {trillion, Occasion::Trillionaire, "You are a Trillionaire!", true, false}}) {
        SCOPED_TRACE(title);
        test::FakeMainForm mainForm;
        mainForm.record.gcurNetWorth = netWorth;
        const game::GameState before = mainForm.record;
        ui::frmStats form{mainForm, occasion};
        form.show();
        EXPECT_EQ(form.windowTitle(), title);
        EXPECT_EQ(test::find<QPushButton>(form, "cmdRetire")->isEnabled(), mayRetire);
        EXPECT_EQ(test::find<QPushButton>(form, "cmdOK")->isEnabled(), mayGoOn);

        QTest::keyClick(form.focusWidget(), Qt::Key_Space);
        QTest::keyClick(test::find<QPushButton>(form, "cmdRetire"), Qt::Key_Return);
        EXPECT_EQ(form.isVisible(), !mayGoOn) << "only OK, where there is one, takes keys";
        QTest::keyClick(&form, Qt::Key_Escape);
        EXPECT_FALSE(form.isVisible());
        EXPECT_EQ(mainForm.record, before);
        EXPECT_EQ(mainForm.refreshes, 0);
    }
}

TEST(frmStats, ShowsTheStanding) {
    for (const auto& [month, time] :
         {std::pair{1U, "0 Months"}, {2U, "1 Month"}, {3U, "2 Months"}}) {
        test::FakeMainForm mainForm;
        mainForm.record.gdtmDate = {game::firstDay.year(), std::chrono::month{month},
                                    game::firstDay.day()};
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
