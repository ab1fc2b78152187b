#include <QtWidgets>

#include "amount_field.h"
#include "frmBuy.h"
#include "frmNew.h"
#include "frmSell.h"
#include "opened.h"
#include "text.h"

using test::FakeMainForm;
using test::Opened;
using ui::AmountField;

namespace {

TEST(AmountField, TakesDigitsOnlyAndKeepsItsTextWhenOpened) {
    AmountField field("cbo", ui::plain);
    field.setMaximum([] { return game::Currency{100}; });
    int picks = 0;
    QObject::connect(&field, &AmountField::entryPicked, [&] { ++picks; });
    field.setEditText("0");
    field.show();
    QApplication::setActiveWindow(&field);
    QTest::mouseClick(field.lineEdit(), Qt::LeftButton);
    QTest::keyClicks(&field, QStringLiteral("2a-.\u00AD 5,"));
    EXPECT_EQ(field.currentText(), "25") << "typing replaced the 0";
    EXPECT_EQ(test::offered(&field).join(u' '), "0 10 20 30 40 50 60 70 80 90 100");
    EXPECT_EQ(field.currentText(), "25");

    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_PageDown, Qt::Key_Return}) {
        QTest::keyClick(&field, key);
    }
    QWheelEvent wheel({}, {}, {0, 120}, {0, 120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(&field, &wheel);
    QTest::keyClick(&field, Qt::Key_Backspace);
    EXPECT_EQ(field.currentText(), "2");
    QTest::keyClicks(&field, "0\r");
    EXPECT_EQ(field.currentText(), "20");
    EXPECT_EQ(picks, 0) << "a typed text that equals an entry is no pick";
    test::pick(&field, "100");
    EXPECT_EQ(field.amount(), 100);
    EXPECT_EQ(picks, 1);
}

TEST(BuyForm, BuysOnEnterOrTellsWhyNot) {
    Opened<ui::frmBuy> visit;
    QApplication::clipboard()->setText("6 chests");
    visit.find<AmountField>("cboOpium")->lineEdit()->paste();
    EXPECT_EQ(visit.shown("cboOpium cmdBuy"), "06 chests; Buy");
    visit.find<QRadioButton>("optWarehouse")->click();
    EXPECT_EQ(visit.shown("cboOpium cmdBuy"), "0; (Buy)");
    visit.find<QRadioButton>("optShip")->click();
    visit.click("cmdMaxGeneral");
    visit.type("cboSilk", "1");
    visit.fakeDesktop.expect("Insufficient Funds   ", "Sorry");
    visit.press("cboSilk", {Qt::Key_Return, Qt::Key_Escape});
    EXPECT_EQ(visit.record, visit.before);
    EXPECT_TRUE(visit.dialog().isVisible());
    visit.press("cboSilk", {Qt::Key_Backspace, Qt::Key_Backspace, Qt::Key_Return});
    EXPECT_EQ(visit.report.take(), " - Bought 60 General @ $14 Each\n");
    EXPECT_FALSE(visit.dialog().isVisible());
}

TEST(SellForm, FillsInStocksAndSellsEverything) {
    Opened<ui::frmSell> visit([](FakeMainForm& form) {
        form.record.gstrLocation = "Manila";
        form.record.gcurSOpium = 2;
        form.record.gcurSArms = 3;
        form.record.gcurHold = 5;
    });
    visit.find<AmountField>("cboSilk")->setEditText("5");
    visit.click("cmdMaxSilk");
    visit.click("cmdMaxArms");
    EXPECT_EQ(visit.shown("optShip optWarehouse cboSilk cboArms"), "Ship; (Warehouse); 5; 3")
        << "no stock of silk, so the text stays";
    visit.fakeDesktop.expect("Insufficient Cargo   ", "Sorry");
    visit.click("cmdSell");
    visit.click("cmdSellAll");
    EXPECT_EQ(visit.report.take(), " - Sold 2 Opium @ $12,000 Each\n - Sold 3 Arms @ $90 Each\n");
    EXPECT_FALSE(visit.dialog().isVisible());
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
    Opened<ui::frmNew> visit([](FakeMainForm& form) { form.record.gblnGameOver = true; });
    EXPECT_EQ(visit.shown("cmdStart cmdCancel"), "Start Game; (Cancel)");
    visit.press("txtFirm", {Qt::Key_Escape});
    visit.dialog().close();
    EXPECT_TRUE(visit.dialog().isVisible());

    QApplication::clipboard()->setText("a \"great\"\nfirm \u0007of far too many letters");
    visit.find<QLineEdit>("txtFirm")->paste();
    visit.press("txtFirm", {Qt::Key_QuoteDbl});
    visit.find<QRadioButton>("optCash")->click();
    visit.draws.add({0}, 4);
    visit.press("txtFirm", {Qt::Key_Return});
    EXPECT_FALSE(visit.dialog().isVisible());
    EXPECT_EQ(visit.record.gstrFirm, "A great firm  of far t");
    EXPECT_EQ(visit.record.gcurDebt, 5'000);
    EXPECT_TRUE(visit.record.gblnGameSaved);
    EXPECT_EQ(visit.report.take(), " - Welcome Captain\n");
}

}  // namespace
