#include "transfer.h"

#include <gtest/gtest.h>

#include "games.h"
#include "trading.h"

using game::GameState;
using game::Good;
using game::Place;

TEST(Transfer, RefusesWhatIsNotThereThenWhatDoesNotFit) {
    struct Case {
        const char* name;
        void (*change)(GameState&);
        game::TransferOrder order;
        game::Refusal refusal;
    };
    const auto silkAshore = [](GameState& state) { state.gcurWSilk = 30; };
    const auto fullShip = [](GameState& state) {
        state.gcurSOpium = state.gcurHold = 60;
        state.gcurWSilk = 10;
    };
    const auto nearlyFullWarehouse = [](GameState& state) {
        state.gcurSOpium = state.gcurHold = 20;
        state.gcurWArms = 9'990;
    };
    const auto overfull = [](GameState& state) {
        state.gcurSOpium = state.gcurHold = 61;
        state.gcurWArms = 10'001;
    };
    using enum game::Good;
    using game::insufficientCargo, game::insufficientHold, game::insufficientStorage;
    const std::string endless(30, '9');
    for (const Case& c : {
             Case{"whole stock", silkAshore, {{Silk, "30"}, {}}, {}},
             Case{"one more", silkAshore, {{Silk, "31"}, {}}, insufficientCargo},
             Case{"other good", silkAshore, {{Arms, "1"}, {}}, insufficientCargo},
             Case{"30 digits", silkAshore, {{}, {Silk, endless}}, insufficientCargo},
             Case{"leaving", fullShip, {{Silk, "10"}, {Opium, "10"}}, insufficientHold},
             Case{"stock first", fullShip, {{Silk, "11"}, {Opium, "61"}}, insufficientCargo},
             Case{"last room", nearlyFullWarehouse, {{}, {Opium, "10"}}, {}},
             Case{"no room", nearlyFullWarehouse, {{}, {Opium, "11"}}, insufficientStorage},
             Case{"overfull", overfull, {{}, {Opium, "1"}}, insufficientHold},
         }) {
        EXPECT_EQ(game::refuseTransfer(test::newGameWith(c.change), c.order), c.refusal) << c.name;
    }
    const GameState state = test::newGameWith(nearlyFullWarehouse);
    EXPECT_EQ(game::mostToTransfer(state, Place::Warehouse, Good::Opium), 10);
    EXPECT_EQ(game::mostToTransfer(state, Place::Ship, Good::Arms), 40);
    EXPECT_EQ(game::mostToTransfer(test::newGameWith(overfull), Place::Warehouse, Good::Opium), -1);
}

TEST(Transfer, MovesAboardFirstAndQuotesTheTypedAmounts) {
    const auto before = [](GameState& state) {
        state.gcurSOpium = state.gcurHold = 10;
        state.gcurWOpium = 5;
    };
    GameState state = test::newGameWith(before);
    EXPECT_EQ(game::transfer(state, {{Good::Opium, "5 "}, {Good::Opium, "010"}}),
              (std::vector<std::string>{" - Transfered 5  Opium to Ship",
                                        " - Transfered 010 Opium to Warehouse"}));
    EXPECT_EQ(state, test::newGameWith([](GameState& moved) {
                  moved.gcurSOpium = moved.gcurHold = 5;
                  moved.gcurWOpium = 10;
                  moved.gblnGameSaved = false;
              }));
    EXPECT_EQ(game::transfer(state, {{Good::Opium, "1"}, {}}).size(), 1U) << "nothing ashore";
    EXPECT_EQ(state.gcurSOpium, 6);
}
