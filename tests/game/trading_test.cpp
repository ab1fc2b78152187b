#include "trading.h"

#include <gtest/gtest.h>

#include <tuple>

#include "games.h"
#include "purchases.h"

using game::Currency;
using game::GameState;
using game::Good;
using game::Place;

namespace {

TEST(NewGame, ResetsWhatWasAndKeepsPastOffersAndScore) {
    GameState before;
    for (const game::GoodRow& good : game::goods) {
        before.*good.ship = before.*good.warehouse = before.*good.price = 9;
    }
    before.gcurBank = before.gcurDebt = before.gcurCash = before.gcurPayoff = 9;
    before.gcurPCannon = before.gcurPShip = before.gcurRank = before.gcurNetWorth = 9;
    before.gblnMillionaire = before.gblnGameOver = true;

    GameState expected;
    expected.gblnActiveGame = true;
    expected.gdtmDate = game::firstDay;
    expected.gstrFirm = "Heron";
    expected.gstrLocation = "Hong Kong";
    expected.gcurStatus = 100;
    expected.gcurMaxHold = 60;
    expected.gcurPCannon = expected.gcurPShip = expected.gcurRank = 9;
    expected.gcurPOpium = 5'000;
    expected.gcurPSilk = 2'500;
    expected.gcurPArms = 50;
    expected.gcurPGeneral = 25;
    const auto started = [&](game::Scenario scenario) {
        test::ScriptedRandom ends{test::lowestDraw, test::highestDraw, test::lowestDraw,
                                  test::highestDraw};
        GameState state = before;
        game::startGame(state, ends, scenario, "Heron");
        return state;
    };

    GameState cannons = expected;
    cannons.gcurCannons = 5;
    cannons.gcurHold = 50;
    EXPECT_EQ(started(game::Scenario::Cannons), cannons);
    expected.gcurCash = 400;
    expected.gcurDebt = 5'000;
    EXPECT_EQ(started(game::Scenario::CashAndDebt), expected);
}

TEST(Buying, ChecksCashBeforeRoom) {
    using game::insufficientFunds, game::insufficientHold, game::insufficientStorage;
    const auto ship = Place::Ship;
    const auto warehouse = Place::Warehouse;
    using Row = std::tuple<int, game::PerGood, Place, int, int, game::Refusal>;
    for (const auto& [cash, amounts, place, hold, stored, refusal] :
         {Row{13'100, {1, 1, 0, 0}, ship, 0, 0, {}},
          {13'099, {1, 1, 0, 0}, ship, 0, 0, insufficientFunds},
          {1'000, {0, 0, 0, 10}, ship, 50, 0, {}},
          {1'000, {0, 0, 0, 11}, ship, 50, 0, insufficientHold},
          {0, {0, 0, 0, 61}, ship, 0, 0, insufficientFunds},
          {1'000, {0, 0, 0, 10}, warehouse, 60, 9'990, {}},
          {1'000, {0, 0, 0, 11}, warehouse, 0, 9'990, insufficientStorage},
          {1'000, {Currency::highest(), 0, 0, 0}, ship, 0, 0, insufficientFunds}}) {
        GameState state = test::newGame();
        state.gcurCash = cash;
        state.gcurHold = hold;
        state.gcurWSilk = stored;
        EXPECT_EQ(game::refuseBuying(state, {place, amounts}), refusal)
            << cash << " cash, " << hold << " aboard";
    }
}

TEST(Buying, OffersWhatTheOtherGoodsLeave) {
    GameState state = test::newGame();
    state.gcurCash = 25'000;
    state.gcurHold = 50;
    state.gcurWSilk = 9'995;
    const auto most = [&](const game::PerGood& amounts, Good good, Place place = Place::Ship) {
        return game::mostToBuy(state, {place, amounts}, good);
    };
    EXPECT_EQ(most({}, Good::Opium), 2);
    EXPECT_EQ(most({99, 0, 0, 0}, Good::Opium), 2) << "what it asks of itself does not count";
    EXPECT_EQ(most({0, 5, 0, 0}, Good::Opium), 1);
    EXPECT_EQ(most({0, 50, 0, 0}, Good::Opium), 0) << "silk beyond the cash";
    EXPECT_EQ(most({0, 0, 0, 4}, Good::Arms), 6) << "of the room";
    EXPECT_EQ(most({}, Good::Arms, Place::Warehouse), 5);
    state.gcurPOpium = 0;
    EXPECT_EQ(most({}, Good::Opium), 0);
}

TEST(Trading, MovesStockHoldAndCashAndReportsEachGood) {
    GameState state = test::newGame();
    state.gcurCash = 200'000;
    GameState expected = state;

    expected.gcurSOpium = 10;
    expected.gcurSArms = 1;
    expected.gcurHold = 11;
    expected.gcurCash = 200'000 - 10 * 12'000 - 90;
    expected.gblnGameSaved = false;
    EXPECT_EQ(game::buy(state, {Place::Ship, {10, 0, 1, 0}}),
              (std::vector<std::string>{" - Bought 10 Opium @ $12,000 Each",
                                        " - Bought 1 Arms @ $90 Each"}));
    EXPECT_EQ(state, expected);

    state.gcurWSilk = 1;
    expected.gcurCash += 1'100;
    EXPECT_EQ(game::sell(state, {Place::Warehouse, {0, 1, 0, 0}}, {"0", "01", "", "0"}),
              std::vector<std::string>{" - Sold 01 Silk @ $1,100 Each"});
    EXPECT_EQ(state, expected);
}

TEST(Selling, RefusesMoreThanTheSourceHolds) {
    const GameState state = test::newGameWith([](GameState& game) { game.gcurSArms = 5; });
    EXPECT_EQ(game::refuseSelling(state, {Place::Ship, {0, 0, 5, 0}}), std::nullopt);
    EXPECT_EQ(game::refuseSelling(state, {Place::Ship, {1, 0, 6, 0}}), game::insufficientCargo);
    EXPECT_EQ(game::refuseSelling(state, {Place::Warehouse, {0, 0, 1, 0}}),
              game::insufficientCargo);
}

TEST(Purchases, CheckHoldBeforeCashAndGiveWhatWasOffered) {
    GameState state = test::newGame();
    state.gcurPCannon = state.gcurPShip = 1'000;
    state.gcurHold = 51;
    state.gcurCash = 999;
    EXPECT_EQ(game::refuseCannon(state), "Insufficient Hold     ");
    state.gcurHold = 50;
    EXPECT_EQ(game::refuseCannon(state), "Insufficient Funds     ");
    EXPECT_EQ(game::refuseShip(state), "Insufficient Funds     ");
    state.gcurCash = 1'000;
    EXPECT_EQ(game::refuseCannon(state), std::nullopt);
    EXPECT_EQ(game::refuseShip(state), std::nullopt);

    GameState expected = state;
    expected.gcurCash = 0;
    expected.gcurCannons = 1;
    expected.gcurHold = 60;
    EXPECT_EQ(game::buyCannon(state), " - Bought a New Cannon for $1,000");
    EXPECT_EQ(state, expected);

    state.gcurCash = 1'000;
    state.gcurStatus = 40;
    expected.gcurMaxHold = 110;
    EXPECT_EQ(game::buyShip(state), " - Bought a New Ship for $1,000");
    EXPECT_EQ(state, expected) << "undamaged, and still saved if it was";
}

}  // namespace
