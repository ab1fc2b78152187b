#include <gtest/gtest.h>

#include <QtWidgets>

#include "amount_field.h"
#include "frmMoney.h"
#include "frmRepair.h"
#include "frmTransfer.h"
#include "frmVisit.h"
#include "opened.h"

using test::FakeMainForm;
using test::Opened;

namespace {

void rich(FakeMainForm& form) {
    form.record.gcurBank = 300;
    form.record.gcurDebt = 5'000;
}

void damaged(FakeMainForm& form) {
    form.record.gcurStatus = 80;
    form.record.gcurCash = 5'000;
}

TEST(TwoSides, OneSideAtATimeUntilZeroIsPicked) {
    Opened<ui::frmMoney> visit(rich);
    EXPECT_EQ(test::offered(visit.find<QComboBox>("cboRepay")).back(), "$1,000");
    EXPECT_EQ(visit.shown("lblBorrow cboBorrow lblRepay"), "(Borrow:); (); Repay:");
    visit.pick("cboRepay", "$500");
    EXPECT_EQ(visit.shown("cboBorrow"), "()");
    visit.pick("cboRepay", "$0");
    EXPECT_EQ(visit.shown("lblBorrow cboBorrow"), "Borrow:; ");

    visit.type("cboBorrow", "0");
    visit.press("cboBorrow", {Qt::Key_Tab});  // leaves a text that equals an entry: no pick
    EXPECT_EQ(visit.shown("cboRepay"), "($0)");
    visit.pick("cboBorrow", "$0");
    EXPECT_EQ(visit.shown("cboRepay"), "$0");
}

TEST(TwoSides, KeysThatTypeNothingAndTheMouseLeaveBothSidesOn) {
    Opened<ui::frmVisit> visit(rich);
    visit.press("cboDeposit", {Qt::Key_Tab, Qt::Key_Left, Qt::Key_Down, Qt::Key_X, Qt::Key_Minus});
    visit.press("cboDeposit", {Qt::Key_A, Qt::Key_1}, Qt::ControlModifier);
    QGuiApplication::clipboard()->setText("1,500");
    visit.find<ui::AmountField>("cboDeposit")->lineEdit()->paste();
    EXPECT_EQ(visit.shown("cboDeposit cboWithdraw"), "1,500; ");
    visit.press("cboDeposit", {Qt::Key_V}, Qt::ControlModifier);
    EXPECT_EQ(visit.shown("cboWithdraw"), "()");
    visit.press("cboDeposit", {Qt::Key_Escape});
    EXPECT_FALSE(visit.dialog().isVisible());
    EXPECT_EQ(visit.record, visit.before);
    EXPECT_EQ(visit.refreshes, 1);
}

TEST(TwoSides, TheFirstHalfStandsWhereTheSecondIsRefused) {
    Opened<ui::frmVisit> visit(rich);
    visit.find<QComboBox>("cboDeposit")->setEditText("$1,000");
    visit.find<QComboBox>("cboWithdraw")->setEditText("1,301");
    visit.fakeDesktop.expect("Insufficient Funds   ", "Sorry");
    visit.press("cboWithdraw", {Qt::Key_Return});
    EXPECT_TRUE(visit.dialog().isVisible());
    EXPECT_EQ(visit.report.take(), " - Deposited $1,000\n");

    Opened<ui::frmVisit> idle;
    idle.press("cboDeposit", {Qt::Key_Return});
    EXPECT_FALSE(idle.dialog().isVisible());
    EXPECT_FALSE(idle.record.gblnGameSaved) << "OK counts as a change";
}

TEST(MoneyLender, LendsOnceAVisitAndKnowsTheOption) {
    Opened<ui::frmMoney> visit([](FakeMainForm& form) { form.record.gcurDebt = -210; });
    visit.pick("cboRepay", "-$210");
    visit.fakeDesktop.expect("Over Payment   ", "Sorry");
    visit.click("cmdOK");
    EXPECT_EQ(visit.record, visit.before);
    visit.lenderBug = true;
    visit.click("cmdOK");
    EXPECT_EQ(visit.record.gcurDebt, -420);
    EXPECT_TRUE(visit.orders.empty());

    Opened<ui::frmMoney> borrowing;
    borrowing.type("cboBorrow", "200");  // the list was never opened
    borrowing.press("cboBorrow", {Qt::Key_Return});
    EXPECT_EQ(borrowing.report.take(), " - Borrowed $200\n");
    EXPECT_EQ(borrowing.orders, (std::map<game::Order, bool>{{game::Order::Money, false}}));
}

TEST(Transfer, TakesTheNegativeEntryOfACrowdedWarehouseForItsDigits) {
    Opened<ui::frmTransfer> visit([](FakeMainForm& form) {
        form.record.gcurSSilk = form.record.gcurHold = 20;
        form.record.gcurWGeneral = 10'001;
    });
    visit.find<QComboBox>("cboWAmount")->lineEdit()->insert("7");
    EXPECT_EQ(visit.shown("cmdTransfer"), "Transfer") << "pasted";
    visit.pick("cboWarehouse", "General");
    visit.pick("cboShip", "Silk");
    visit.pick("cboWAmount", "0");
    EXPECT_EQ(visit.shown("cmdTransfer"), "(Transfer)");
    visit.pick("cboSAmount", "-1");
    visit.fakeDesktop.expect("Insufficient Storage Space, Warehouse Limited to 10,000 units   ",
                             "Sorry");
    visit.click("cmdTransfer");
    EXPECT_EQ(visit.record, visit.before);
    visit.record.gcurWGeneral = 30;
    visit.pick("cboWAmount", "30");
    visit.click("cmdTransfer");
    EXPECT_EQ(visit.report.take(),
              " - Transfered 30 General to Ship\n - Transfered -1 Silk to Warehouse\n");
}

TEST(Repair, StaysBetweenTheConditionAndWhatTheCashPaysFor) {
    Opened<ui::frmRepair> visit(damaged);
    for (const auto& [key, expected] : {std::pair{Qt::Key_PageUp, "85; 85%; $3,000; Repair"},
                                        {Qt::Key_End, "88; 88%; $4,800; Repair"},
                                        {Qt::Key_Home, "80; 80%; $0; (Repair)"},
                                        {Qt::Key_Right, "81; 81%; $600; Repair"}}) {
        visit.press("sldRepair", {key});
        EXPECT_EQ(visit.shown("sldRepair txtStatus txtPrice cmdRepair"), expected);
    }
    EXPECT_EQ(visit.previewed, 81);
    visit.find<QSlider>("sldRepair")->setSliderDown(true);
    visit.find<QSlider>("sldRepair")->setSliderPosition(96);
    EXPECT_EQ(visit.find<QSlider>("sldRepair")->sliderPosition(), 88);
    visit.press("sldRepair", {Qt::Key_Return});
    EXPECT_EQ(visit.report.take(), " - Repaired 8% of Ship for $4,800\n");

    Opened<ui::frmRepair> unsound([](FakeMainForm& form) {
        form.record.gcurStatus = 150;
        form.record.gcurMaxHold = -60;
    });
    unsound.press("sldRepair", {Qt::Key_PageDown});
    EXPECT_EQ(unsound.previewed, 150);
    unsound.click("cmdRepairMax");
    EXPECT_EQ(unsound.record, unsound.before);
}

}  // namespace
