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
    for (const Case& c : {
             Case{"the whole stock", silkAshore, {.toShip = {Good::Silk, "30"}}, {}},
             Case{"one unit more",
                  silkAshore,
                  {.toShip = {Good::Silk, "31"}},
                  game::insufficientCargo},
             Case{"another good",
                  silkAshore,
                  {.toShip = {Good::Arms, "1"}},
                  game::insufficientCargo},
             Case{"more digits than an amount holds",
                  silkAshore,
                  {.toWarehouse = {Good::Silk, "999999999999999999999999999999"}},
                  game::insufficientCargo},
             Case{"goods that leave make no room",
                  fullShip,
                  {{Good::Silk, "10"}, {Good::Opium, "10"}},
                  game::insufficientHold},
             Case{"stock before room",
                  fullShip,
                  {{Good::Silk, "11"}, {Good::Opium, "61"}},
                  game::insufficientCargo},
             Case{"the last room ashore",
                  nearlyFullWarehouse,
                  {.toWarehouse = {Good::Opium, "10"}},
                  {}},
             Case{"one unit too many ashore",
                  nearlyFullWarehouse,
                  {.toWarehouse = {Good::Opium, "11"}},
                  game::insufficientStorage},
             Case{"an overfull hold refuses all",
                  overfull,
                  {.toWarehouse = {Good::Opium, "1"}},
                  game::insufficientHold},
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
}
