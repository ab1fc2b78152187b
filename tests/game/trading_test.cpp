#include "trading.h"

#include <gtest/gtest.h>

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
    for (const auto scenario : {game::Scenario::Cannons, game::Scenario::CashAndDebt}) {
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
        const bool armed = scenario == game::Scenario::Cannons;
        (armed ? expected.gcurCannons : expected.gcurCash) = armed ? 5 : 400;
        (armed ? expected.gcurHold : expected.gcurDebt) = armed ? 50 : 5'000;
        test::ScriptedRandom ends{test::lowestDraw, test::highestDraw, test::lowestDraw,
                                  test::highestDraw};
        GameState state = before;
        game::startGame(state, ends, scenario, "Heron");
        EXPECT_EQ(state, expected);
    }
}

TEST(Buying, ChecksCashBeforeRoomAndOffersWhatTheOtherGoodsLeave) {
    using game::insufficientFunds, game::insufficientHold, game::insufficientStorage;
    const auto ashore = Place::Warehouse;
    GameState state = test::newGame();
    state.gcurHold = 50;
    state.gcurWSilk = 9'995;
    const auto refuse = [&](const game::PerGood& amounts, Place place = Place::Ship) {
        return game::refuseBuying(state, {place, amounts});
    };
    const auto most = [&](const game::PerGood& amounts, Good good, Place place = Place::Ship) {
        return game::mostToBuy(state, {place, amounts}, good);
    };
    EXPECT_EQ(refuse({0, 0, 5, 5}), std::nullopt);
    EXPECT_EQ(refuse({0, 0, 5, 6}), insufficientHold);
    EXPECT_EQ(refuse({0, 0, 0, 72}), insufficientFunds);
    EXPECT_EQ(refuse({0, 0, 2, 3}, ashore), std::nullopt);
    EXPECT_EQ(refuse({0, 0, 3, 3}, ashore), insufficientStorage);
    EXPECT_EQ(refuse({Currency::highest(), 0, 0, 0}), insufficientFunds);
    state.gcurCash = 24'000;
    EXPECT_EQ(refuse({2, 0, 0, 0}), std::nullopt) << "to the last dollar";
    EXPECT_EQ(most({99, 0, 0, 0}, Good::Opium), 2) << "what it asks of itself does not count";
    EXPECT_EQ(most({0, 5, 0, 0}, Good::Opium), 1);
    EXPECT_EQ(most({0, 50, 0, 0}, Good::Opium), 0) << "silk beyond the cash";
    EXPECT_EQ(most({0, 0, 0, 4}, Good::Arms), 6) << "of the room";
    EXPECT_EQ(most({}, Good::Arms, ashore), 5);
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
    EXPECT_EQ(game::refuseSelling(state, {Place::Ship, {1, 0, 5, 0}}), game::insufficientCargo);
}

TEST(Purchases, CheckHoldBeforeCashAndGiveWhatWasOffered) {
    GameState state = test::newGame();
    state.gcurPCannon = state.gcurPShip = 1'001;
    state.gcurHold = 51;
    EXPECT_EQ(game::refuseCannon(state), "Insufficient Hold     ");
    state.gcurHold = 50;
    EXPECT_EQ(game::refuseCannon(state), "Insufficient Funds     ");
    EXPECT_EQ(game::refuseShip(state), "Insufficient Funds     ");
    state.gcurCash = 1'001;
    EXPECT_EQ(game::refuseCannon(state), std::nullopt);
    EXPECT_EQ(game::refuseShip(state), std::nullopt);

    GameState expected = state;
    expected.gcurCash = -1'001;
    expected.gcurCannons = 1;
    expected.gcurHold = 60;
    expected.gcurMaxHold = 110;
    state.gcurStatus = 40;
    EXPECT_EQ(game::buyCannon(state), " - Bought a New Cannon for $1,001");
    EXPECT_EQ(game::buyShip(state), " - Bought a New Ship for $1,001");
    EXPECT_EQ(state, expected) << "undamaged, and still saved if it was";
}

}  // namespace
