#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QWheelEvent>

#include "amount_field.h"
#include "fake_main_form.h"
#include "frmBuy.h"
#include "frmLeave.h"
#include "frmNew.h"
#include "frmSell.h"
#include "pick.h"
#include "text.h"

using test::FakeMainForm;
using test::find;
using ui::AmountField;

namespace {

TEST(AmountField, TakesDigitsOnlyAndKeepsItsTextWhenOpened) {
    AmountField field(QStringLiteral("cbo"), ui::plain);
    field.setMaximum([] { return game::Currency{100}; });
    int picks = 0;
    QObject::connect(&field, &AmountField::entryPicked, [&] { ++picks; });
    field.setEditText(QStringLiteral("0"));
    field.show();
    QApplication::setActiveWindow(&field);
    QTest::mouseClick(field.lineEdit(), Qt::LeftButton);
    QTest::keyClicks(&field, QStringLiteral("2a-.\u00AD 5,"));
    EXPECT_EQ(field.currentText(), QStringLiteral("25")) << "typing replaced the 0";
    EXPECT_EQ(test::offered(&field).join(u' '), QStringLiteral("0 10 20 30 40 50 60 70 80 90 100"));
    EXPECT_EQ(field.currentText(), QStringLiteral("25"));

    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_PageDown, Qt::Key_Return}) {
        QTest::keyClick(&field, key);
    }
    QWheelEvent wheel({}, {}, {0, 120}, {0, 120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(&field, &wheel);
    QTest::keyClick(&field, Qt::Key_Backspace);
    EXPECT_EQ(field.currentText(), QStringLiteral("2"));
    QTest::keyClicks(&field, QStringLiteral("0\r"));
    EXPECT_EQ(field.currentText(), QStringLiteral("20"));
    EXPECT_EQ(picks, 0) << "a typed text that equals an entry is no pick";
    test::pick(&field, QStringLiteral("100"));
    EXPECT_EQ(field.amount(), 100);
    EXPECT_EQ(picks, 1);
}

TEST(BuyForm, FollowsTypingPastesAndPlaces) {
    FakeMainForm mainForm;
    ui::frmBuy form(mainForm);
    form.show();
    auto* buy = find<QPushButton>(form, "cmdBuy");
    auto* general = find<AmountField>(form, "cboGeneral");
    EXPECT_FALSE(buy->isEnabled());
    QTest::keyClick(general, Qt::Key_5);
    EXPECT_TRUE(buy->isEnabled());
    QTest::keyClick(general, Qt::Key_Backspace);
    EXPECT_FALSE(buy->isEnabled());
    QApplication::clipboard()->setText(QStringLiteral("6 chests"));
    general->lineEdit()->paste();
    EXPECT_TRUE(buy->isEnabled());
    find<QRadioButton>(form, "optWarehouse")->click();
    EXPECT_EQ(general->currentText(), QStringLiteral("0"));
    EXPECT_FALSE(buy->isEnabled());

    QTest::keyClick(&form, Qt::Key_Escape);
    EXPECT_TRUE(form.isVisible());
    form.close();
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(mainForm.refreshes, 1);
}

TEST(BuyForm, BuysOnEnterOrTellsWhyNot) {
    FakeMainForm mainForm;
    ui::frmBuy form(mainForm);
    form.show();
    find<QPushButton>(form, "cmdMaxGeneral")->click();
    EXPECT_EQ(find<AmountField>(form, "cboGeneral")->currentText(), QStringLiteral("60"));
    auto* silk = find<AmountField>(form, "cboSilk");
    QTest::keyClick(silk, Qt::Key_1);
    const game::GameState before = mainForm.record;
    mainForm.fakeDesktop.expect(QStringLiteral("Insufficient Funds   "), QStringLiteral("Sorry"));
    QTest::keyClick(silk, Qt::Key_Return);
    EXPECT_EQ(mainForm.record, before);
    EXPECT_TRUE(form.isVisible());
    QTest::keyClick(silk, Qt::Key_Backspace);
    QTest::keyClick(silk, Qt::Key_Return);
    EXPECT_EQ(mainForm.record.gcurSGeneral, 60);
    EXPECT_EQ(mainForm.report.take(), " - Bought 60 General @ $14 Each\n");
    EXPECT_FALSE(form.isVisible());
}

TEST(SellForm, FillsInStocksAndSellsEverything) {
    FakeMainForm mainForm;
    mainForm.record.gstrLocation = "Manila";
    mainForm.record.gcurSOpium = 2;
    mainForm.record.gcurSArms = 3;
    mainForm.record.gcurHold = 5;
    ui::frmSell form(mainForm);
    form.show();
    EXPECT_FALSE(find<QRadioButton>(form, "optWarehouse")->isEnabled());
    auto* silk = find<AmountField>(form, "cboSilk");
    silk->setEditText(QStringLiteral("5"));
    find<QPushButton>(form, "cmdMaxSilk")->click();
    EXPECT_EQ(silk->currentText(), QStringLiteral("5")) << "no stock, so the text stays";
    mainForm.fakeDesktop.expect(QStringLiteral("Insufficient Cargo   "), QStringLiteral("Sorry"));
    find<QPushButton>(form, "cmdSell")->click();
    find<QPushButton>(form, "cmdSellAll")->click();
    EXPECT_EQ(mainForm.report.take(),
              " - Sold 2 Opium @ $12,000 Each\n - Sold 3 Arms @ $90 Each\n");
    EXPECT_EQ(mainForm.record.gcurHold, 0);
    EXPECT_FALSE(form.isVisible());
}

TEST(NewGameForm, NamesTheFirm) {
    for (const auto& [typed, name] : {std::pair{"   ", "Zhenbao"},
                                      {"  acme trading ", "Acme trading"},
                                      {"mcKay", "McKay"},
                                      {"école", "École"},
                                      {"ßa", "ßa"},
                                      {"𐐨x", "𐐀x"}}) {
        EXPECT_EQ(ui::firmName(QString::fromUtf8(typed)).toStdString(), name);
    }
}

TEST(NewGameForm, StartsAGameAndCannotBeLeftWhenOneIsOver) {
    FakeMainForm mainForm;
    mainForm.record.gblnGameOver = true;
    mainForm.draws.add({0}, 4);
    ui::frmNew form(mainForm);
    form.show();
    EXPECT_FALSE(find<QPushButton>(form, "cmdCancel")->isEnabled());
    QTest::keyClick(&form, Qt::Key_Escape);
    form.close();
    EXPECT_TRUE(form.isVisible());

    auto* firm = find<QLineEdit>(form, "txtFirm");
    QApplication::clipboard()->setText(
        QStringLiteral("a \"great\"\nfirm \u0007of far too many letters"));
    firm->paste();
    QTest::keyClick(firm, Qt::Key_QuoteDbl);
    find<QRadioButton>(form, "optCash")->click();
    QTest::keyClick(firm, Qt::Key_Return);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(mainForm.record.gstrFirm, "A great firm  of far t");
    EXPECT_EQ(mainForm.record.gcurDebt, 5'000);
    EXPECT_TRUE(mainForm.record.gblnGameSaved);
    EXPECT_FALSE(mainForm.record.gblnGameOver);
    EXPECT_EQ(mainForm.report.take(), " - Welcome Captain\n");
}

TEST(LeaveForm, ProposesAPortAndNeverTheOwn) {
    for (const auto& [drawn, proposed] : {std::pair{1, "optShanghai"}, {5, "optManila"}}) {
        FakeMainForm mainForm;
        mainForm.draws.add({test::roll(drawn, 7)});
        ui::frmLeave form(mainForm);
        form.show();
        EXPECT_FALSE(find<QRadioButton>(form, "optHongKong")->isEnabled());
        EXPECT_TRUE(find<QRadioButton>(form, proposed)->isChecked());
        EXPECT_EQ(form.focusWidget(), find<QRadioButton>(form, proposed));
        const game::GameState before = mainForm.record;
        QTest::keyClick(&form, Qt::Key_Escape);
        EXPECT_FALSE(form.isVisible());
        EXPECT_EQ(mainForm.record, before);
        EXPECT_EQ(mainForm.refreshes, 1);
    }
}

}  // namespace
