#include "shipyard.h"

#include <gtest/gtest.h>

#include <array>

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
    const Currency most = Currency::highest();
    using Row = std::array<Currency, 6>;
    for (const auto& [condition, cash, capacity, wanted, offered, price] :
         {Row{80, 5'000, 60, 100, 88, 4'800},
          {80, 5'000, 60, 20, 80, 0},
          {80, 599, 60, 100, 80, 0},
          {80, 600, 60, 100, 81, 600},
          {80, 5'000, 110, 100, 84, 4'400},
          {80, 5'000, 0, 100, 80, 0},
          {80, 5'000, -60, 100, 80, 0},
          {80, -5'000, 60, 100, 80, 0},
          {150, 5'000, 60, 100, 150, 0},
          {80 + half, 900, 60, 82, Currency{81} + half, 600},
          {0, most, most, 100, 1, most}}) {
        const GameState state = damaged(condition, cash, capacity);
        EXPECT_EQ(game::offeredCondition(state, wanted), offered) << game::plainText(cash);
        EXPECT_EQ(game::repairPrice(state, offered), price);
    }
}

TEST(Shipyard, RepairsToTheChosenConditionInWholeDollars) {
    GameState state = damaged(80, 601, Currency{60} + Currency::fromTenThousandths(500));
    GameState expected = state;
    expected.gcurStatus = 81;
    expected.gcurCash = 0;
    expected.gblnGameSaved = false;
    EXPECT_FALSE(game::refuseRepair(state, 81));
    EXPECT_EQ(game::refuseRepair(state, 82), game::insufficientFunds);
    EXPECT_EQ(game::repair(state, 81), " - Repaired 1% of Ship for $601");
    EXPECT_EQ(state, expected);
}

TEST(Shipyard, RepairMaxStopsAtTheCashOrASoundShip) {
    using Row = std::array<Currency, 5>;
    for (const auto& [condition, cash, capacity, repaired, left] :
         {Row{80, 5'000, 60, 88, 200},
          {95, 100'000, 60, 100, 97'000},
          {80, 599, 60, 80, 599},
          {80, 600, 60, 81, 0},
          {100, 5'000, 60, 100, 5'000},
          {80, 5'000, 0, 80, 5'000},
          {150, 5'000, 60, 150, 5'000},
          {99 + half, 5'000, 60, 100, 4'700}}) {
        GameState state = damaged(condition, cash, capacity);
        ASSERT_EQ(game::canRepairMax(state), repaired != condition);
        if (repaired != condition) {
            EXPECT_EQ(game::repairMax(state), " - Repaired " +
                                                  game::plainText(repaired - condition) +
                                                  "% of Ship for " + game::moneyText(cash - left));
        }
        EXPECT_EQ(state.gcurStatus, repaired);
        EXPECT_EQ(state.gcurCash, left);
    }
}
