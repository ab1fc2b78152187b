#include <tuple>

#include "player.h"

using game::GameState;
using test::inNextDialog;
using test::shown;

namespace {

struct MainWindow : testing::Test, test::Playing {
    void choose(const char* item) { test::find<QAction>(mainForm, item)->trigger(); }
};

TEST_F(MainWindow, OffersNothingUntilAGameBegins) {
    EXPECT_TRUE(mainForm.close()) << "nothing to lose, nothing to ask";
    EXPECT_EQ(mainForm.windowTitle(), "Zhenbao");
    EXPECT_EQ(shown(mainForm, "fraHouse fraPrices fraStatus fraHold prgHold txtDate"),
              "House of Zhenbao, Hong Kong; Prices at Hong Kong; Ship's Status - 100%; "
              "Ship's Hold - 0 of 60; 0; Jan 15, 1860");
    inNextDialog("click cmdCancel");
    choose("mnuNewItem");
    EXPECT_EQ(shown(mainForm, "cmdBuy cmdLeave cmdMoney"),
              "(Buy Merchandice); (Leave Port); (Money Lender)");
    EXPECT_FALSE(test::find<QAction>(mainForm, "mnuSaveItem")->isEnabled());
    draws.add({0}, 4);
    inNextDialog("click cmdStart");
    choose("mnuNewItem");
    EXPECT_EQ(mainForm.windowTitle(), "Zhenbao - Galley Hand [$0]");
    EXPECT_EQ(shown(mainForm, "cmdLeave cmdMoney cmdCannon fraHold prgHold"),
              "Leave Port; Money Lender; (Buy Cannon); Ship's Hold - 50 of 60 ; 50");
}

TEST_F(MainWindow, AsksToSaveWhereAGameWouldBeLost) {
    constexpr auto question = "Do you want to save the current game?   ";
    using Row = std::tuple<const char*, bool, bool>;
    for (const auto& [item, saved, asks] : {Row{"mnuNewItem", true, true},
                                            {"mnuLoadItem", true, false},
                                            {"mnuLoadItem", false, true},
                                            {"mnuExitItem", false, true}}) {
        go(test::newGame());
        record.gblnGameSaved = saved;
        const GameState before = record;
        if (asks) {
            desktop.expect(question, ui::Answer::Cancel);
        }
        choose(item);
        EXPECT_TRUE(record == before && mainForm.isVisible()) << item;
    }
    desktop.expect(question, ui::Answer::Yes);
    draws.add({0}, 4);
    inNextDialog("click cmdStart");
    choose("mnuNewItem");
    EXPECT_EQ(record.gcurCannons, 5) << "it goes on although saving was cancelled";
    choose("mnuExitItem");
    EXPECT_FALSE(mainForm.isVisible()) << "nothing to lose, nothing to ask";
}

TEST_F(MainWindow, TakesNoOrdersWhileTheShipIsAtSea) {
    constexpr double uneventful = 0.99;
    go(test::newGameWith([](GameState& state) { state.gcurStatus = 50; }));
    draws.add({test::roll(2, 7)});
    draws.add({uneventful}, 25);
    draws.add({0, 0, 0, 0, uneventful, uneventful, 0});
    draws.add({test::roll(1, 5), 0, test::roll(2, 12), 0});
    draws.add({uneventful}, 4);
    int waits = 0;
    desktop.duringWait = [&] {
        test::find<QPushButton>(mainForm, ++waits > 25 ? "cmdCannon" : "cmdBuy")->click();
        if (waits == 3) {
            mainForm.UpdateMainForm();
            for (const auto key : {Qt::Key_N, Qt::Key_L, Qt::Key_S}) {
                QTest::keyClick(&mainForm, key, Qt::ControlModifier);
            }
            EXPECT_FALSE(mainForm.close());
            EXPECT_EQ(shown(mainForm, "cmdBuy cmdLeave"), "(Buy Merchandice); (Leave Port)");
            EXPECT_EQ(mainForm.cursor().shape(), Qt::BusyCursor);
            EXPECT_EQ(told(), "\n - Departing Hong Kong...");
        }
    };
    inNextDialog("click cmdDepart");
    test::act(mainForm, "click cmdLeave");
    EXPECT_EQ(waits, 26);
    EXPECT_EQ(record.gcurCannons, 0) << "bought before the arrival was over";
    EXPECT_EQ(mainForm.cursor().shape(), Qt::ArrowCursor);
    EXPECT_EQ(told(),
              "......................\n"
              " - Arriving at Shanghai\n"
              " - Zhenbao, a ship's cannon is available for $400\n"
              " - Zhenbao, you can trade in your ship for one with 50 more capacity\n"
              "                        by paying an additional $5,000");
    EXPECT_EQ(shown(mainForm, "fraPrices cmdLeave cmdCannon cmdRepair"),
              "Prices at Shanghai ; Leave Port; Buy Cannon; (Repair Ship)");
}

TEST_F(MainWindow, ShowsAnyFirmAndLetsAnOfferStandUntilItIsTaken) {
    const int width = mainForm.minimumSizeHint().width();
    go(test::newGameWith([](GameState& state) {
        state.gstrFirm = "Heron & Sons" + std::string(1'000'000, 'M');
        state.gcurPCannon = 1'001;
        state.gcurPShip = 1'000;
    }));
    EXPECT_EQ(shown(mainForm, "fraHouse").find("House of Heron && SonsMMM"), 0U);
    EXPECT_LE(mainForm.minimumSizeHint().width(), width);
    mainForm.setOrderEnabled(game::Order::Cannon, true);
    mainForm.setOrderEnabled(game::Order::Ship, true);
    desktop.expect("Insufficient Funds     ");
    test::act(mainForm, "click cmdCannon");
    test::act(mainForm, "click cmdShip");
    EXPECT_EQ(shown(mainForm, "cmdCannon cmdShip fraHold"),
              "Buy Cannon; (Buy Ship); Ship's Hold - 0 of 110 ");
}

TEST_F(MainWindow, KeepsTheReportAndItsViewTheSame) {
    go(test::newGame());
    std::string expected = "Jan 15, 1860 - Welcome Captain";
    for (int entry = 0; entry < 300; ++entry) {
        mainForm.appendEntry(" - " + std::string(80, 'x'));
        expected += "\r\nJan 15, 1860 - " + std::string(80, 'x');
        mainForm.UpdateMainForm();
        expected = expected.substr(expected.size() < 20'000 ? 0 : expected.size() - 20'000);
        ASSERT_EQ(shown(mainForm, "txtLog"), QString(expected.c_str()).remove('\r').toStdString());
    }
}

}  // namespace
