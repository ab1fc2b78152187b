// What the dialogs do beyond their orders, which the rules and the restless player know.

#include <tuple>

#include "amount_field.h"
#include "frmAbout.h"
#include "frmBuy.h"
#include "frmHelp.h"
#include "frmMoney.h"
#include "frmNew.h"
#include "frmPirate.h"
#include "frmSell.h"
#include "frmStats.h"
#include "frmTransfer.h"
#include "frmVisit.h"
#include "player.h"
#include "standing.h"

using game::GameState;
using test::Opened;
using test::roll;

namespace {

void rich(GameState& state) {
    state.gcurBank = 300;
    state.gcurDebt = 5'000;
}

TEST(AmountField, TakesDigitsOnlyAndKeepsItsTextWhenOpened) {
    Opened<ui::frmSell> visit([](GameState& state) { state.gcurSArms = 100; });
    auto* field = visit.find<ui::AmountField>("cboArms");
    QSignalSpy picks(field, &ui::AmountField::entryPicked);
    QTest::mouseClick(field->lineEdit(), Qt::LeftButton);
    EXPECT_EQ(visit.after("type cboArms 2a-.\u00AD5,", "cboArms"), "25") << "replaces the 0";
    field->showPopup();
    QStringList offered;
    for (int row = 0; row < field->count(); ++row) {
        offered.append(field->itemText(row));
    }
    EXPECT_EQ(offered.join(' '), "0 10 20 30 40 50 60 70 80 90 100");
    QTest::keyClick(field->view(), Qt::Key_Escape);
    QWheelEvent wheel({}, {}, {0, 120}, {0, 120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(field, &wheel);
    EXPECT_EQ(visit.after("press cboArms Down Up PgDown Backspace 0", "cboArms"), "20");
    EXPECT_EQ(picks.count(), 0) << "a typed text that equals an entry is no pick";
    EXPECT_EQ(visit.after("pick cboArms 100", "cboArms"), "100");
    EXPECT_EQ(picks.count(), 1);
}

TEST(Trade, StaysOpenUntilTheOrderCanBeCarriedOut) {
    Opened<ui::frmBuy> buying;
    EXPECT_EQ(buying.after("paste cboOpium 6 chests", "cboOpium cmdBuy"), "6 chests; Buy");
    EXPECT_EQ(buying.after("click optWarehouse", "cboOpium cmdBuy"), "0; (Buy)");
    buying.act("click optShip");
    buying.act("press cboSilk 5");
    EXPECT_EQ(buying.after("click optShip", "cboSilk cmdBuy"), "0; (Buy)") << "chosen already";
    buying.act("click cmdMaxGeneral");
    buying.desktop.expect("Insufficient Funds   ");
    buying.act("press cboSilk 1 Return Esc");
    buying.act("press cboSilk Backspace Return");
    EXPECT_EQ(buying.told(), "\n - Bought 60 General @ $14 Each");
    EXPECT_FALSE(buying.dialog->isVisible());

    Opened<ui::frmSell> selling([](GameState& state) {
        state.gstrLocation = "Manila";
        state.gcurSOpium = 2;
        state.gcurSArms = 3;
    });
    selling.act("type cboSilk 5");
    selling.act("click cmdMaxSilk");
    EXPECT_EQ(selling.after("click cmdMaxArms", "optWarehouse cboSilk cboArms"),
              "(Warehouse); 5; 3")
        << "no stock of silk, so the text stays";
    selling.act("click cmdSellAll");
    EXPECT_EQ(selling.told(), "\n - Sold 2 Opium @ $12,000 Each\n - Sold 3 Arms @ $90 Each");
}

TEST(TwoSides, OneAtATimeUntilZeroIsPicked) {
    Opened<ui::frmMoney> visit(rich);
    EXPECT_EQ(visit.after("pick cboRepay $500", "lblBorrow cboBorrow"), "(Borrow:); ()");
    EXPECT_EQ(visit.after("pick cboRepay $0", "lblBorrow cboBorrow"), "Borrow:; ");
    EXPECT_EQ(visit.after("press cboBorrow 0 Tab", "cboRepay"), "($0)") << "typed, not picked";
    EXPECT_EQ(visit.after("pick cboBorrow $0", "cboRepay"), "$0");
}

TEST(TwoSides, StayOpenToKeysThatTypeNothingAndToTheMouse) {
    Opened<ui::frmVisit> visit(rich);
    visit.act("press cboDeposit Tab Left Down X - Ctrl+A Ctrl+1");
    EXPECT_EQ(visit.after("paste cboDeposit 1,500", "cboDeposit cboWithdraw"), "1,500; ");
    EXPECT_EQ(visit.after("press cboDeposit Ctrl+V", "cboWithdraw"), "()");
    visit.act("press cboDeposit Esc");
    EXPECT_FALSE(visit.dialog->isVisible());
    EXPECT_TRUE(visit.record.gblnGameSaved && visit.told().empty());
}

TEST(TwoSides, TheFirstStandsWhereTheSecondIsRefusedAndOkIsAChange) {
    Opened<ui::frmVisit> visit(rich);
    visit.find<QComboBox>("cboDeposit")->setEditText("$1,000");
    visit.find<QComboBox>("cboWithdraw")->setEditText("1,301");
    visit.mainForm.appendEntry(std::string(100, '\n'));
    auto* report = test::find<QPlainTextEdit>(visit.mainForm, "txtLog");
    report->moveCursor(QTextCursor::Start);
    visit.told();
    visit.desktop.expect("Insufficient Funds   ");
    visit.act("press cboWithdraw Return");
    EXPECT_TRUE(visit.dialog->isVisible() && report->textCursor().atEnd());
    EXPECT_EQ(visit.told(), "\n - Deposited $1,000");
    Opened<ui::frmVisit> idle;
    idle.act("press cboDeposit Return");
    EXPECT_FALSE(idle.record.gblnGameSaved || idle.dialog->isVisible());
}

TEST(MoneyLender, LendsOnceAVisitAndKnowsTheOption) {
    Opened<ui::frmMoney> visit([](GameState& state) { state.gcurDebt = -210; });
    visit.act("pick cboRepay -$210");
    visit.desktop.expect("Over Payment   ");
    visit.act("click cmdOK");
    test::find<QAction>(visit.mainForm, "mnuMoneyItem")->toggle();
    visit.act("click cmdOK");
    EXPECT_EQ(visit.record.gcurDebt, -420);
    EXPECT_EQ(test::shown(visit.mainForm, "cmdMoney"), "Money Lender");
    Opened<ui::frmMoney> borrowing;
    borrowing.act("press cboBorrow 2 0 0 Return");
    EXPECT_EQ(borrowing.told(), "\n - Borrowed $200");
    EXPECT_EQ(test::shown(borrowing.mainForm, "cmdMoney"), "(Money Lender)");
}

TEST(Transfer, TakesTheNegativeEntryOfACrowdedWarehouseForItsDigits) {
    Opened<ui::frmTransfer> visit([](GameState& state) {
        state.gcurSSilk = state.gcurHold = 20;
        state.gcurWGeneral = 10'001;
    });
    EXPECT_EQ(visit.after("press cboShip S Space Down", "cboShip"), "Silk") << "by Down alone";
    EXPECT_EQ(visit.after("paste cboWAmount 7", "cmdTransfer"), "Transfer");
    visit.act("pick cboWarehouse General");
    visit.act("pick cboShip Silk");
    EXPECT_EQ(visit.after("pick cboWAmount 0", "cmdTransfer"), "(Transfer)");
    visit.act("pick cboSAmount -1");
    visit.desktop.expect("Insufficient Storage Space, Warehouse Limited to 10,000 units   ");
    visit.act("click cmdTransfer");
    visit.record.gcurWGeneral = 30;
    visit.act("pick cboWAmount 30");
    visit.act("click cmdTransfer");
    EXPECT_EQ(visit.told(),
              "\n - Transfered 30 General to Ship\n - Transfered -1 Silk to Warehouse");
}

TEST(NewGame, NamesTheFirmAndCannotBeLeftWhenOneIsOver) {
    for (const auto& [typed, name] : {std::pair{"   ", "Zhenbao"},
                                      {"  acme trading ", "Acme trading"},
                                      {"école", "École"},
                                      {"ßa", "ßa"},
                                      {"𐐨x", "𐐀x"}}) {
        EXPECT_EQ(ui::firmName(QString::fromUtf8(typed)).toStdString(), name);
    }
    Opened<ui::frmNew> visit([](GameState& state) {
        state.gblnActiveGame = false;
        state.gblnGameOver = true;
    });
    visit.act("press txtFirm Esc");
    visit.dialog->close();
    EXPECT_TRUE(visit.dialog->isVisible());
    visit.act("paste txtFirm a \"great\"\nfirm \u0007of far too many letters");
    visit.act("type txtFirm \"");
    visit.draws.add({0}, 4);
    visit.act("press txtFirm Return");
    EXPECT_EQ(visit.record.gstrFirm, "A great firm  of far t");
    EXPECT_TRUE(visit.record.gblnGameSaved);
}

TEST(Battle, ShowsTheLargestFleetAndTakesNoKeyForAnOrder) {
    Opened<ui::frmPirate> visit([](GameState& state) { state.gcurMaxHold = 480; }, {roll(46, 46)});
    visit.act("press cmdRun Esc Return Enter");
    EXPECT_EQ(visit.shown("txtEnemy txtStatus txtCannons"), "48; 100%; 0");
    EXPECT_EQ(visit.dialog->focusWidget()->objectName(), "cmdRun");
    EXPECT_EQ(visit.find<QLabel>("imgPirate0")->geometry(), QRect(8, 8, 32, 32));
    EXPECT_EQ(visit.find<QLabel>("imgPirate47")->geometry(), QRect(376, 128, 32, 32));
    EXPECT_TRUE(visit.dialog->isVisible() && visit.desktop.waited.count() == 0);
}

TEST(Battle, SinksShipsLineByLineWhileNothingElseCanBeOrdered) {
    Opened<ui::frmPirate> visit([](GameState& state) { state.gcurCannons = 2; }, {roll(1, 4)});
    const double hit = roll(7, 10);
    visit.draws.add({hit, hit, roll(4, 10), roll(1, 25)});  // one of three is left
    auto* third = visit.find<QLabel>("imgPirate2");
    std::vector<int> heights;
    visit.desktop.duringWait = [&] {
        EXPECT_EQ(third->isVisible(), visit.shown("txtEnemy") == "3");
        heights.push_back(third->height());
        visit.act("press cmdRun Esc Return Space");
    };
    visit.act("press cmdFight Space");
    EXPECT_TRUE(visit.dialog->isVisible());
    EXPECT_EQ(heights.at(1 + 24), 16) << "half way down";
    EXPECT_TRUE(std::is_sorted(heights.rbegin(), heights.rend()) && heights.back() == 0);
    EXPECT_EQ(visit.desktop.waited.count(), 2'000 + 2 * (200 + 48 * 5) + 2'000 + 2'000 + 10 + 200);
    EXPECT_EQ(visit.shown("txtStatus txtReport"), "99%; Zhenbao, what shall we do?");
    EXPECT_EQ(visit.dialog->focusWidget()->objectName(), "cmdFight");
}

TEST(Statistics, CanBeLeftByItsButtonOnlyFromATrillionOn) {
    using Occasion = ui::frmStats::Occasion;
    for (const auto& [occasion, leaves] : {std::pair{Occasion::Menu, true},
                                           {Occasion::Millionaire, true},
                                           {Occasion::Trillionaire, false}}) {
        Opened<ui::frmStats> visit(
            [](GameState& state) {
                state.gdtmDate = game::firstDay + std::chrono::months{1};
                state.gcurCash = game::trillion - 1;
                state.gblnMillionaire = true;
            },
            {}, occasion);
        EXPECT_EQ(visit.shown("lblTimeValue cmdOK"), leaves ? "1 Month; OK" : "1 Month; (OK)");
        visit.act("press cmdRetire Return");
        EXPECT_EQ(visit.dialog->isVisible(), !leaves) << "Enter is for OK";
        visit.desktop.expect("Do you really want to quit this game?   ", ui::Answer::No);
        visit.act("click cmdRetire");
        visit.record.gcurNetWorth = game::trillion;
        EXPECT_THROW(visit.act("click cmdRetire"), test::ProgramEnded);
    }
}

TEST(Help, ShowsFourTextsToBeReadAndDrawsItsInstructionsIn40Columns) {
    Opened<ui::frmHelp> visit;
    auto* display = visit.find<QPlainTextEdit>("txtDisplay");
    for (const auto& [button, frame, begins, ends] :
         {std::tuple{"cmdIntroduction", "Introduction ", "The theme of Zhenbao", "secrets away."},
          {"cmdHints", "Hints ", "Start with 5 cannons instead of cash.  It ", " offered.\n\n\n\n"},
          {"cmdMoney", "Money Lender Bug ", "The money lender bug is a mistake", "options menu."},
          {"cmdIntructions", "Original Instuctions ", "II<=", "INTERESTING TIMES!'    \n"}}) {
        const std::string click = std::string{"click "} + button;
        EXPECT_EQ(visit.after(click.c_str(), "fraContent"), frame);
        const QString text = display->toPlainText();
        EXPECT_TRUE(text.startsWith(begins) && text.endsWith(ends)) << button;
        visit.act("press txtDisplay Return X Del");
        visit.act(click.c_str());
        EXPECT_EQ(display->toPlainText(), text);
    }
    const QStringList lines = display->toPlainText().chopped(1).split('\n');
    EXPECT_EQ(lines.size(), 261);
    EXPECT_TRUE(std::all_of(lines.begin(), lines.end(), [](const QString& line) {
        return line.size() == 40 && line == line.toUpper();
    }));
    EXPECT_TRUE(QFontInfo(display->font()).fixedPitch());
    EXPECT_EQ(display->horizontalScrollBar()->maximum(), 0);
}

TEST(About, NamesItsVersionAndLeadsToItsPages) {
    Opened<ui::frmAbout> visit;
    EXPECT_EQ(visit.shown("lblVersion").find("Zhenbao for Windows v1.11\n"), 0U);
    EXPECT_EQ(visit.find<QLabel>("PicShip")->pixmap().size(), QSize(200, 160));
    for (const char* link : {"lblHomepage", "lblContact"}) {
        auto* label = visit.find<QLabel>(link);
        QTest::mouseClick(label, Qt::LeftButton, {}, QPoint(20, label->height() / 2));
    }
    EXPECT_EQ(visit.desktop.openedLinks, (QList<QUrl>{{"https://zhenbao.example/"},
                                                      {"mailto:support@zhenbao.example?subject="
                                                       "Zhenbao%20for%20Windows%20v1.10"}}));
    visit.act("press lblHomepage Enter");
    EXPECT_FALSE(visit.dialog->isVisible());
}

}  // namespace
