#include "shipyard.h"

#include <gtest/gtest.h>

#include "games.h"
#include "trading.h"

using game::Currency;
using game::GameState;

namespace {

GameState damaged(Currency condition, Currency cash, Currency capacity = 60) {
    return test::newGameWith([&](GameState& state) {
        state.gcurStatus = condition;
        state.gcurCash = cash;
        state.gcurMaxHold = capacity;
    });
}

constexpr Currency half = Currency::fromTenThousandths(5'000);

}  // namespace

TEST(Shipyard, OffersWhatTheCashPaysForAndNothingWorse) {
    struct Case {
        Currency condition, cash, capacity, wanted, offered, price;
    };
    for (const Case& c :
         {Case{80, 5'000, 60, 100, 88, 4'800},
          {80, 5'000, 60, 85, 85, 3'000},
          {80, 5'000, 60, 20, 80, 0},
          {80, 599, 60, 100, 80, 0},
          {80, 600, 60, 100, 81, 600},
          {80, 5'000, 110, 100, 84, 4'400},
          {80, 5'000, 0, 100, 80, 0},
          {80, 5'000, -60, 100, 80, 0},
          {80, -5'000, 60, 100, 80, 0},
          {150, 5'000, 60, 100, 150, 0},
          {80 + half, 900, 60, 82, Currency{81} + half, 600},
          {0, Currency::highest(), Currency::highest(), 100, 1, Currency::highest()}}) {
        const GameState state = damaged(c.condition, c.cash, c.capacity);
        const Currency offered = game::offeredCondition(state, c.wanted);
        EXPECT_EQ(offered, c.offered) << game::plainText(offered);
        EXPECT_EQ(game::repairPrice(state, offered), c.price);
    }
}

TEST(Shipyard, RepairsToTheChosenConditionInWholeDollars) {
    GameState state = damaged(80, 5'000);
    EXPECT_FALSE(game::refuseRepair(state, 88));
    EXPECT_EQ(game::refuseRepair(state, 89), game::insufficientFunds);
    EXPECT_EQ(game::repair(state, 88), " - Repaired 8% of Ship for $4,800");
    EXPECT_EQ(state.gcurStatus, 88);
    EXPECT_EQ(state.gcurCash, 200);
    EXPECT_FALSE(state.gblnGameSaved);

    state = damaged(80, 1'000, Currency{60} + Currency::fromTenThousandths(500));
    EXPECT_EQ(game::repair(state, 81), " - Repaired 1% of Ship for $601");
    EXPECT_EQ(state.gcurCash, 399);
}

TEST(Shipyard, RepairMaxStopsAtTheCashOrASoundShip) {
    struct Case {
        Currency condition, cash, capacity, repaired, left;
    };
    for (const Case& c : {Case{80, 5'000, 60, 88, 200},
                          {95, 100'000, 60, 100, 97'000},
                          {80, 599, 60, 80, 599},
                          {80, 5'000, 0, 80, 5'000},
                          {150, 5'000, 60, 150, 5'000},
                          {99 + half, 5'000, 60, 100, 4'700}}) {
        GameState state = damaged(c.condition, c.cash, c.capacity);
        if (game::canRepairMax(state)) {
            EXPECT_EQ(game::repairMax(state),
                      " - Repaired " + game::plainText(c.repaired - c.condition) +
                          "% of Ship for " + game::moneyText(c.cash - c.left));
        }
        EXPECT_EQ(state.gcurStatus, c.repaired);
        EXPECT_EQ(state.gcurCash, c.left);
    }
}
