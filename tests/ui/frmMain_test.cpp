#include "frmMain.h"

#include <QtTest>
#include <QtWidgets>
#include <tuple>

#include "fake_desktop.h"
#include "find.h"
#include "games.h"
#include "modal.h"
#include "standing.h"

using game::GameState;
using test::find;
using test::inNextDialog;

namespace {

constexpr double uneventful = 0.99;
constexpr auto orders =
    "cmdBuy cmdSell cmdLeave cmdVisit cmdMoney cmdTransfer cmdCannon cmdRepair cmdShip";
const std::string noOrders =
    "(Buy Merchandice); (Sell Merchandice); (Leave Port); (Visit Bank); (Money Lender); "
    "(Transfer Cargo); (Buy Cannon); (Repair Ship); (Buy Ship)";

struct MainWindow : testing::Test {
    MainWindow() { mainForm.show(); }

    void trigger(const char* item) { find<QAction>(mainForm, item)->trigger(); }
    void click(const char* order) { find<QPushButton>(mainForm, order)->click(); }
    std::string shown(const char* names) { return test::shown(mainForm, names); }
    QString log() { return find<QPlainTextEdit>(mainForm, "txtLog")->toPlainText(); }

    /// Goes on with a game that is not of the player's making.
    void play(const GameState& state) {
        mainForm.state() = state;
        mainForm.beginGame(" - Welcome Captain");
        mainForm.UpdateMainForm();
    }
    /// Starts a new game from its dialog, prices at their lowest.
    void startInDialog() {
        draws.add({0}, 4);
        inNextDialog([](QDialog& form) { find<QPushButton>(form, "cmdStart")->click(); });
    }

    test::FakeDesktop desktop;
    test::ScriptedRandom draws;
    ui::frmMain mainForm{desktop, draws};
};

TEST_F(MainWindow, OffersNothingUntilAGameBegins) {
    EXPECT_EQ(mainForm.windowTitle(), "Zhenbao");
    EXPECT_EQ(shown("fraHouse fraPrices fraStatus fraHold prgHold txtDate"),
              "House of Zhenbao, Hong Kong; Prices at Hong Kong; Ship's Status - 100%; "
              "Ship's Hold - 0 of 60; 0; Jan 15, 1860");
    inNextDialog([](QDialog& form) { form.close(); });
    trigger("mnuNewItem");
    EXPECT_EQ(shown(orders), noOrders) << "a cancelled new game begins nothing";
    EXPECT_FALSE(find<QAction>(mainForm, "mnuSaveItem")->isEnabled());
    startInDialog();
    trigger("mnuNewItem");
    EXPECT_EQ(mainForm.windowTitle(), "Zhenbao - Galley Hand [$0]");
    EXPECT_EQ(shown("cmdLeave cmdMoney cmdCannon fraHold prgHold"),
              "Leave Port; Money Lender; (Buy Cannon); Ship's Hold - 50 of 60 ; 50");
}

TEST_F(MainWindow, AsksToSaveWhereAGameWouldBeLost) {
    constexpr auto question = "Do you want to save the current game?   ";
    using Row = std::tuple<const char*, bool, bool>;
    for (const auto& [item, saved, asks] : {Row{"mnuNewItem", true, true},
                                            {"mnuLoadItem", true, false},
                                            {"mnuLoadItem", false, true},
                                            {"mnuExitItem", false, true}}) {
        SCOPED_TRACE(item);
        play(test::newGameWith([=](auto& state) { state.gblnGameSaved = saved; }));
        const GameState before = mainForm.state();
        if (asks) {
            desktop.expect(question, "Zhenbao", ui::Answer::Cancel);
        }
        trigger(item);
        EXPECT_EQ(mainForm.state(), before);
        EXPECT_TRUE(mainForm.isVisible());
    }
    EXPECT_EQ(desktop.lastButtons, "Exclamation: Yes (Enter), No, Cancel (Escape)");
    desktop.expect(question, "Zhenbao", ui::Answer::Yes);
    startInDialog();
    trigger("mnuNewItem");
    EXPECT_EQ(mainForm.state().gcurCannons, 5) << "it goes on although saving was cancelled";
    trigger("mnuExitItem");
    EXPECT_FALSE(mainForm.isVisible()) << "nothing to lose, nothing to ask";
}

TEST_F(MainWindow, TakesNoOrdersWhileTheShipIsAtSea) {
    play(test::newGameWith([](auto& state) { state.gcurStatus = 50; }));
    draws.add({test::roll(2, 7)});
    draws.add({uneventful}, 25);
    draws.add({0, 0, 0, 0, uneventful, uneventful, 0});
    draws.add({test::roll(1, 5), 0, test::roll(2, 12), 0});
    draws.add({uneventful}, 4);
    int waits = 0;
    desktop.duringWait = [&] {
        if (++waits > 25) {
            click("cmdCannon");
        }
        if (waits != 3) {
            return;
        }
        mainForm.UpdateMainForm();
        EXPECT_EQ(shown(orders), noOrders);
        for (const auto key : {Qt::Key_N, Qt::Key_L, Qt::Key_S}) {
            QTest::keyClick(&mainForm, key, Qt::ControlModifier);
        }
        QTest::keyClick(&mainForm, Qt::Key_F1);
        EXPECT_FALSE(mainForm.close());
        EXPECT_EQ(mainForm.cursor().shape(), Qt::BusyCursor);
        EXPECT_TRUE(log().endsWith("Departing Hong Kong..."));
    };
    inNextDialog([](QDialog& form) { find<QPushButton>(form, "cmdDepart")->click(); });
    click("cmdLeave");

    EXPECT_EQ(waits, 26);
    EXPECT_EQ(mainForm.state().gcurCannons, 0) << "bought before the arrival was over";
    EXPECT_EQ(mainForm.cursor().shape(), Qt::ArrowCursor);
    EXPECT_EQ(log().section('\n', 1),
              "Jan 15, 1860 - Departing Hong Kong.........................\n"
              "Feb 15, 1860 - Arriving at Shanghai\n"
              "Feb 15, 1860 - Zhenbao, a ship's cannon is available for $400\n"
              "Feb 15, 1860 - Zhenbao, you can trade in your ship for one with 50 more capacity\n"
              "                        by paying an additional $5,000");
    EXPECT_EQ(shown("fraPrices cmdLeave cmdCannon cmdRepair"),
              "Prices at Shanghai ; Leave Port; Buy Cannon; (Repair Ship)");
    EXPECT_FALSE(mainForm.state().gblnGameSaved);
}

TEST_F(MainWindow, ShowsAnyFirmAndLetsAnOfferStandUntilItIsTaken) {
    const int width = mainForm.minimumSizeHint().width();
    play(test::newGameWith([](auto& state) {
        state.gstrFirm = "Heron & Sons" + std::string(1'000'000, 'M');
        state.gcurPCannon = 1'001;
        state.gcurPShip = 1'000;
    }));
    EXPECT_EQ(shown("fraHouse").find("House of Heron && SonsMMM"), 0U);
    EXPECT_LE(mainForm.minimumSizeHint().width(), width);
    mainForm.setOrderEnabled(game::Order::Cannon, true);
    mainForm.setOrderEnabled(game::Order::Ship, true);
    desktop.expect("Insufficient Funds     ", "Sorry");
    click("cmdCannon");
    click("cmdShip");
    EXPECT_EQ(shown("cmdCannon cmdShip fraHold"),
              "Buy Cannon; (Buy Ship); Ship's Hold - 0 of 110 ");
    EXPECT_TRUE(log().endsWith(" - Bought a New Ship for $1,000"));
}

TEST_F(MainWindow, LeadsFromBankruptcyToOneNewGameOrTheEnd) {
    const auto ruined = test::newGameWith([](auto& state) { state.gcurDebt = game::trillion; });
    for (const ui::Answer answer : {ui::Answer::Yes, ui::Answer::No}) {
        desktop.expect("Zhenbao, you are Bankrupt.  Would you like to play again?   ", "Game Over",
                       answer);
        if (answer == ui::Answer::No) {
            EXPECT_THROW(play(ruined), test::ProgramEnded);
            break;
        }
        startInDialog();
        play(ruined);
        EXPECT_EQ(mainForm.state().gcurCannons, 5);
        EXPECT_EQ(desktop.lastButtons, "Exclamation: Yes (both), No");
    }
}

TEST_F(MainWindow, OpensEveryMenuByItsKeysAndAnnouncesTheFirstMillionOnce) {
    play(test::newGameWith([](auto& state) { state.gcurCash = game::million - 1; }));
    const auto press = [this](Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QApplication::setActiveWindow(&mainForm);
        QWidget* popup = QApplication::activePopupWidget();
        QTest::keyClick(popup != nullptr ? popup : &mainForm, key, modifiers);
    };
    press(Qt::Key_O, Qt::AltModifier), press(Qt::Key_Return);
    EXPECT_TRUE(mainForm.moneyLenderBug());
    const auto expectNext = [](const char* title) {
        inNextDialog([=](QDialog& form) {
            EXPECT_EQ(form.windowTitle(), title);
            QTest::keyClick(&form, Qt::Key_Escape);
        });
    };
    expectNext("About Zhenbao for Windows");
    press(Qt::Key_H, Qt::AltModifier), press(Qt::Key_A);
    expectNext("You are a Millionaire!");
    mainForm.state().gcurCash = game::million;
    mainForm.UpdateMainForm();
    ASSERT_TRUE(mainForm.state().gblnMillionaire);
    mainForm.UpdateMainForm();
    mainForm.state().gblnGameSaved = true;
    press(Qt::Key_F10), press(Qt::Key_Up), press(Qt::Key_Return);
    EXPECT_FALSE(mainForm.isVisible()) << "the last item of the first menu leaves the program";
}

TEST_F(MainWindow, KeepsTheLogAndItsViewTheSame) {
    play(test::newGame());
    std::string expected = "Jan 15, 1860 - Welcome Captain";
    for (int entry = 0; entry < 300; ++entry) {
        mainForm.appendEntry(" - " + std::string(80, 'x'));
        expected += "\r\nJan 15, 1860 - " + std::string(80, 'x');
        mainForm.UpdateMainForm();
        expected = expected.substr(expected.size() < 20'000 ? 0 : expected.size() - 20'000);
        ASSERT_EQ(log().toStdString(), QString(expected.c_str()).remove('\r').toStdString());
    }
}

}  // namespace
