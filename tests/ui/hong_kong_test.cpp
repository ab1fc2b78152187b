#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QTest>

#include "amount_field.h"
#include "fake_main_form.h"
#include "frmMoney.h"
#include "frmRepair.h"
#include "frmTransfer.h"
#include "frmVisit.h"
#include "pick.h"

using test::find;

namespace {

/// A main window in Hong Kong and a dialog of one of its houses, opened.
template <class Dialog>
struct Visit {
    explicit Visit(void (*change)(game::GameState&) = [](game::GameState&) {}) {
        change(mainForm.record);
        before = mainForm.record;
        dialog.emplace(mainForm);
        dialog->show();
    }

    QWidget* focused(const char* name) {
        auto* widget = find<QWidget>(*dialog, name);
        widget->setFocus();
        return widget;
    }
    void type(const char* name, const QString& keys) { QTest::keyClicks(focused(name), keys); }
    void press(const char* name, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(focused(name), key, modifiers);
    }
    void click(const char* button) {
        QTest::mouseClick(find<QPushButton>(*dialog, button), Qt::LeftButton);
    }
    bool enabled(const char* name) { return find<QWidget>(*dialog, name)->isEnabled(); }
    QString text(const char* display) { return find<QLineEdit>(*dialog, display)->text(); }

    test::FakeMainForm mainForm;
    game::GameState before;
    std::optional<Dialog> dialog;
};

void rich(game::GameState& state) {
    state.gcurBank = 300;
    state.gcurDebt = 5'000;
}

void damaged(game::GameState& state) {
    state.gcurStatus = 80;
    state.gcurCash = 5'000;
}

}  // namespace

TEST(TwoSides, OneSideAtATimeUntilZeroIsPicked) {
    Visit<ui::frmMoney> visit(rich);
    EXPECT_EQ(test::offered(find<QComboBox>(*visit.dialog, "cboRepay")).back(), "$1,000");
    EXPECT_FALSE(visit.enabled("cboBorrow"));
    EXPECT_FALSE(visit.enabled("lblBorrow"));
    test::pick(*visit.dialog, "cboRepay", "$500");
    EXPECT_FALSE(visit.enabled("cboBorrow"));
    test::pick(*visit.dialog, "cboRepay", "$0");
    EXPECT_TRUE(visit.enabled("lblBorrow"));

    visit.type("cboBorrow", "0");
    visit.press("cboBorrow", Qt::Key_Tab);  // leaves a text that equals an entry: no pick
    EXPECT_FALSE(visit.enabled("cboRepay"));
    test::pick(*visit.dialog, "cboBorrow", "$0");
    EXPECT_TRUE(visit.enabled("cboRepay"));
}

TEST(TwoSides, KeysThatTypeNothingAndTheMouseLeaveBothSidesOn) {
    Visit<ui::frmVisit> visit(rich);
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Left, Qt::Key_Down, Qt::Key_X, Qt::Key_Minus}) {
        visit.press("cboDeposit", key);
    }
    visit.press("cboDeposit", Qt::Key_A, Qt::ControlModifier);
    visit.press("cboDeposit", Qt::Key_1, Qt::ControlModifier);
    QGuiApplication::clipboard()->setText("1,500");
    find<ui::AmountField>(*visit.dialog, "cboDeposit")->lineEdit()->paste();
    EXPECT_EQ(find<ui::AmountField>(*visit.dialog, "cboDeposit")->amount(), 1'500);
    EXPECT_TRUE(visit.enabled("cboWithdraw"));
    visit.press("cboDeposit", Qt::Key_V, Qt::ControlModifier);
    EXPECT_FALSE(visit.enabled("cboWithdraw"));
    visit.press("cboDeposit", Qt::Key_Escape);
    EXPECT_FALSE(visit.dialog->isVisible());
    EXPECT_EQ(visit.mainForm.record, visit.before);
    EXPECT_EQ(visit.mainForm.refreshes, 1);
}

TEST(TwoSides, TheFirstHalfStandsWhereTheSecondIsRefused) {
    Visit<ui::frmVisit> visit(rich);
    find<QComboBox>(*visit.dialog, "cboDeposit")->setEditText("$1,000");
    find<QComboBox>(*visit.dialog, "cboWithdraw")->setEditText("1,301");
    visit.mainForm.fakeDesktop.expect("Insufficient Funds   ", "Sorry");
    visit.press("cboWithdraw", Qt::Key_Return);
    EXPECT_TRUE(visit.dialog->isVisible());
    EXPECT_EQ(visit.mainForm.report.take(), " - Deposited $1,000\n");
    EXPECT_EQ(visit.mainForm.record.gcurBank, 1'300);

    Visit<ui::frmVisit> idle;
    idle.press("cboDeposit", Qt::Key_Return);
    EXPECT_FALSE(idle.dialog->isVisible());
    EXPECT_FALSE(idle.mainForm.record.gblnGameSaved) << "OK counts as a change";
}

TEST(MoneyLender, LendsOnceAVisitAndKnowsTheOption) {
    Visit<ui::frmMoney> visit(rich);
    visit.type("cboBorrow", "2001");  // the list was never opened
    visit.mainForm.fakeDesktop.expect("Maximum Loan Exceeded (2 x Cash or 100 Million Maximum)   ",
                                      "Sorry");
    visit.click("cmdOK");
    EXPECT_EQ(visit.mainForm.record, visit.before);
    EXPECT_TRUE(visit.mainForm.orders.empty());
    visit.press("cboBorrow", Qt::Key_Backspace);
    visit.click("cmdOK");
    EXPECT_EQ(visit.mainForm.report.take(), " - Borrowed $200\n");
    EXPECT_EQ(visit.mainForm.orders, (std::map<game::Order, bool>{{game::Order::Money, false}}));

    const auto owedByTheLender = [](game::GameState& state) { state.gcurDebt = -210; };
    Visit<ui::frmMoney> again(owedByTheLender);
    test::pick(*again.dialog, "cboRepay", "-$210");
    again.mainForm.fakeDesktop.expect("Over Payment   ", "Sorry");
    again.click("cmdOK");
    again.mainForm.lenderBug = true;
    again.click("cmdOK");
    EXPECT_EQ(again.mainForm.record.gcurDebt, -420);
    EXPECT_TRUE(again.mainForm.orders.empty());
}

TEST(Transfer, TheButtonFollowsTypedPastedAndPickedAmounts) {
    Visit<ui::frmTransfer> visit([](game::GameState& state) {
        state.gcurSSilk = state.gcurHold = 20;
        state.gcurWGeneral = 10'001;
    });
    EXPECT_FALSE(visit.enabled("cmdTransfer"));
    visit.type("cboSAmount", "5");
    EXPECT_TRUE(visit.enabled("cmdTransfer"));
    visit.press("cboSAmount", Qt::Key_Backspace);
    EXPECT_FALSE(visit.enabled("cmdTransfer"));
    find<QComboBox>(*visit.dialog, "cboWAmount")->lineEdit()->insert("7");
    EXPECT_TRUE(visit.enabled("cmdTransfer")) << "pasted";
    test::pick(*visit.dialog, "cboWarehouse", "General");
    test::pick(*visit.dialog, "cboWAmount", "0");
    EXPECT_FALSE(visit.enabled("cmdTransfer"));
    test::pick(*visit.dialog, "cboShip", "Silk");
    test::pick(*visit.dialog, "cboSAmount", "-1");  // reads as 1, and still finds no room
    visit.mainForm.fakeDesktop.expect(
        "Insufficient Storage Space, Warehouse Limited to 10,000 units   ", "Sorry");
    visit.click("cmdTransfer");
    EXPECT_EQ(visit.mainForm.record, visit.before);

    visit.mainForm.record.gcurWGeneral = 30;
    test::pick(*visit.dialog, "cboWAmount", "30");
    visit.click("cmdTransfer");
    EXPECT_EQ(visit.mainForm.report.take(),
              " - Transfered 30 General to Ship\n - Transfered -1 Silk to Warehouse\n");
    EXPECT_EQ(visit.mainForm.record.gcurHold, 49);
    EXPECT_FALSE(visit.dialog->isVisible());
}

TEST(Repair, TheSliderStaysBetweenTheConditionAndWhatTheCashPaysFor) {
    Visit<ui::frmRepair> visit(damaged);
    auto* slider = find<QSlider>(*visit.dialog, "sldRepair");
    const auto shows = [&](int condition, const char* price) {
        EXPECT_EQ(slider->sliderPosition(), condition);
        EXPECT_EQ(visit.text("txtStatus"), QString::number(condition) + "%");
        EXPECT_EQ(visit.text("txtPrice"), price);
        EXPECT_EQ(visit.enabled("cmdRepair"), condition > 80);
        EXPECT_EQ(visit.mainForm.previewed.value_or(80), condition);
    };
    EXPECT_EQ(visit.mainForm.previewed, std::nullopt) << "nothing was moved";
    shows(80, "$0");
    visit.press("sldRepair", Qt::Key_Right);
    shows(81, "$600");
    visit.press("sldRepair", Qt::Key_PageUp);
    shows(86, "$3,600");
    visit.press("sldRepair", Qt::Key_End);
    shows(88, "$4,800");
    visit.press("sldRepair", Qt::Key_Home);
    shows(80, "$0");
    slider->setSliderDown(true);
    slider->setSliderPosition(96);
    shows(88, "$4,800");
    slider->setSliderPosition(3);
    shows(80, "$0");
    visit.press("sldRepair", Qt::Key_Return);  // nothing chosen, nothing to press
    visit.dialog->close();
    EXPECT_EQ(visit.mainForm.refreshes, 1);  // which puts the main window right again
    EXPECT_EQ(visit.mainForm.record, visit.before);
}

TEST(Repair, PaysForTheChosenConditionOrAllThatCashAllows) {
    Visit<ui::frmRepair> visit(damaged);
    visit.press("sldRepair", Qt::Key_PageUp);
    visit.press("sldRepair", Qt::Key_Return);
    EXPECT_EQ(visit.mainForm.report.take(), " - Repaired 5% of Ship for $3,000\n");

    Visit<ui::frmRepair> most(damaged);
    most.click("cmdRepairMax");
    EXPECT_EQ(most.mainForm.report.take(), " - Repaired 8% of Ship for $4,800\n");

    Visit<ui::frmRepair> unsound(
        [](game::GameState& state) { state.gcurStatus = 150, state.gcurMaxHold = -60; });
    unsound.press("sldRepair", Qt::Key_PageDown);
    EXPECT_EQ(unsound.mainForm.previewed, 150);
    EXPECT_FALSE(unsound.enabled("cmdRepair"));
    unsound.click("cmdRepairMax");
    EXPECT_EQ(unsound.mainForm.record, unsound.before);
    EXPECT_FALSE(unsound.dialog->isVisible());
}
