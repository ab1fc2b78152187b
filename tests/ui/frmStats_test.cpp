#include "frmStats.h"

#include <gtest/gtest.h>

#include <tuple>

#include "opened.h"
#include "standing.h"

namespace {

using Occasion = ui::frmStats::Occasion;

constexpr game::Currency trillion = game::trillion;

TEST(frmStats, OpensInThreeWays) {
    using Row = std::tuple<game::Currency, Occasion, const char*, const char*>;
    for (const auto& [netWorth, occasion, title, buttons] :
         {Row{999'999, Occasion::Menu, "Current Statistics", "(Retire); OK"},
          {1'000'000, Occasion::Menu, "Current Statistics", "Retire; OK"},
          {1'000'000, Occasion::Millionaire, "You are a Millionaire!", "Retire; OK"},
          {trillion, Occasion::Trillionaire, "You are a Trillionaire!", "Retire; (OK)"}}) {
        SCOPED_TRACE(title);
        test::FakeMainForm mainForm;
        mainForm.record.gcurNetWorth = netWorth;
        const game::GameState before = mainForm.record;
        ui::frmStats form{mainForm, occasion};
        form.show();
        EXPECT_EQ(form.windowTitle(), title);
        EXPECT_EQ(test::shown(form, "cmdRetire cmdOK"), buttons);
        QTest::keyClick(form.focusWidget(), Qt::Key_Space);
        QTest::keyClick(test::find<QPushButton>(form, "cmdRetire"), Qt::Key_Return);
        EXPECT_EQ(form.isVisible(), occasion == Occasion::Trillionaire) << "only OK takes keys";
        QTest::keyClick(&form, Qt::Key_Escape);
        EXPECT_FALSE(form.isVisible());
        EXPECT_EQ(mainForm.record, before);
        EXPECT_EQ(mainForm.refreshes, 0);
    }
}

TEST(frmStats, CountsMonths) {
    for (const auto& [month, time] :
         {std::pair{1U, "0 Months"}, {2U, "1 Month"}, {3U, "2 Months"}}) {
        test::FakeMainForm form;
        form.record.gdtmDate = {game::firstDay.year(), std::chrono::month{month},
                                game::firstDay.day()};
        ui::frmStats stats{form, Occasion::Menu};
        EXPECT_EQ(test::shown(stats, "lblTimeValue"), time);
    }
}

TEST(frmStats, RetiresAtOnceFromATrillionOnAndElseWhenSure) {
    test::Opened<ui::frmStats> visit(
        [](test::FakeMainForm& form) { form.record.gcurNetWorth = trillion - 1; }, Occasion::Menu);
    constexpr auto question = "Do you really want to quit this game?   ";
    visit.fakeDesktop.expect(question, "Zhenbao", ui::Answer::No);
    visit.click("cmdRetire");
    EXPECT_EQ(visit.fakeDesktop.lastButtons, "Question: Yes, No (both)");
    visit.fakeDesktop.expect(question, "Zhenbao", ui::Answer::Yes);
    EXPECT_THROW(visit.click("cmdRetire"), test::ProgramEnded);
    visit.record.gcurNetWorth = trillion;
    EXPECT_THROW(visit.click("cmdRetire"), test::ProgramEnded);
}

}  // namespace
