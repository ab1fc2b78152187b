#include "shipyard.h"

#include <gtest/gtest.h>

#include <array>

#include "games.h"
#include "trading.h"

using game::Currency;
using game::GameState;

namespace {

constexpr Currency half = Currency::fromTenThousandths(5'000);

/// What the yard offers whom it should make sound: the condition, its price, the report of it.
TEST(Shipyard, MendsWhatTheCashPaysForAndNothingWorse) {
    const Currency most = Currency::highest();
    using Row = std::array<Currency, 5>;
    for (const auto& [condition, cash, capacity, offered, price] :
         {Row{80, 5'000, 60, 88, 4'800},
          {80, 599, 60, 80, 0},
          {80, 600, 60, 81, 600},
          {80, 5'000, 0, 80, 0},
          {80, -5'000, 60, 80, 0},
          {99, 5'000, 60, 100, 600},
          {100, 5'000, 60, 100, 0},
          {150, 5'000, 60, 150, 0},
          {99 + half, 5'000, 60, 100, 300},
          {0, most, most, 1, most}}) {
        GameState state = test::newGame();
        state.gcurStatus = condition;
        state.gcurCash = cash;
        state.gcurMaxHold = capacity;
        EXPECT_EQ(game::offeredCondition(state, 100), offered) << game::plainText(cash);
        EXPECT_EQ(game::offeredCondition(state, 0), condition);
        EXPECT_EQ(game::repairPrice(state, offered), price);
        ASSERT_EQ(game::canRepairMax(state), offered != condition);
        if (offered != condition) {
            EXPECT_EQ(game::repairMax(state), " - Repaired " + plainText(offered - condition) +
                                                  "% of Ship for " + moneyText(price));
            EXPECT_EQ(state.gcurStatus, offered);
            EXPECT_EQ(state.gcurCash, cash - price);
        }
    }
}

TEST(Shipyard, RepairsToTheChosenConditionInWholeDollars) {
    GameState state = test::newGame();
    state.gcurStatus = 80;
    state.gcurCash = 601;
    state.gcurMaxHold = Currency{60} + Currency::fromTenThousandths(500);
    GameState expected = state;
    expected.gcurStatus = 81;
    expected.gcurCash = 0;
    expected.gblnGameSaved = false;
    EXPECT_FALSE(game::refuseRepair(state, 81));
    EXPECT_EQ(game::refuseRepair(state, 82), game::insufficientFunds);
    EXPECT_EQ(game::repair(state, 81), " - Repaired 1% of Ship for $601");
    EXPECT_EQ(state, expected);
}

}  // namespace
