#include "transfer.h"

#include <gtest/gtest.h>

#include "games.h"
#include "trading.h"

using game::GameState;
using game::Place;
using enum game::Good;

TEST(Transfer, RefusesWhatIsNotThereThenWhatDoesNotFit) {
    using game::insufficientCargo, game::insufficientHold, game::insufficientStorage;
    GameState state = test::newGame();
    const auto refuse = [&state](game::Load toShip, game::Load toWarehouse) {
        return game::refuseTransfer(state, {std::move(toShip), std::move(toWarehouse)});
    };
    const std::string endless(30, '9');
    state.gcurWSilk = 30;
    EXPECT_EQ(refuse({Silk, "30"}, {}), std::nullopt);
    EXPECT_EQ(refuse({Silk, "31"}, {}), insufficientCargo);
    EXPECT_EQ(refuse({Arms, "1"}, {Silk, endless}), insufficientCargo);
    state.gcurSOpium = state.gcurHold = 51;
    EXPECT_EQ(refuse({Silk, "10"}, {Opium, "10"}), insufficientHold) << "as things stand before";
    EXPECT_EQ(refuse({Silk, "31"}, {}), insufficientCargo);
    state.gcurWArms = 9'960;
    EXPECT_EQ(refuse({}, {Opium, "10"}), std::nullopt);
    EXPECT_EQ(refuse({}, {Opium, "11"}), insufficientStorage);
    EXPECT_EQ(game::mostToTransfer(state, Place::Warehouse, Opium), 10);
    EXPECT_EQ(game::mostToTransfer(state, Place::Ship, Arms), 9);
    state.gcurHold = 61;
    EXPECT_EQ(refuse({}, {Opium, "1"}), insufficientHold) << "nothing does not fit, either";
    EXPECT_EQ(game::mostToTransfer(state, Place::Ship, Arms), -1);
}

TEST(Transfer, MovesAboardFirstAndQuotesTheTypedAmounts) {
    const auto lying = [](int aboard, int ashore) {
        return test::newGameWith([=](GameState& state) {
            state.gcurSOpium = state.gcurHold = aboard;
            state.gcurWOpium = ashore;
            state.gblnGameSaved = false;
        });
    };
    GameState state = lying(10, 5);
    state.gblnGameSaved = true;
    EXPECT_EQ(game::transfer(state, {{Opium, "5 "}, {Opium, "010"}}),
              (std::vector<std::string>{" - Transfered 5  Opium to Ship",
                                        " - Transfered 010 Opium to Warehouse"}));
    EXPECT_EQ(state, lying(5, 10));
    EXPECT_EQ(game::transfer(state, {{Opium, "1"}, {}}),
              std::vector<std::string>{" - Transfered 1 Opium to Ship"});
}
