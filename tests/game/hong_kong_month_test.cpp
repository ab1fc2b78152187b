#include <gtest/gtest.h>

#include <array>

#include "bank.h"
#include "games.h"
#include "money_lender.h"
#include "shipyard.h"
#include "trading.h"
#include "transcript.h"
#include "transfer.h"
#include "voyage.h"

namespace {

using game::Good;

/// Draws of a quiet month: no pirates, the four prices, no wind off course, the storm's die (and
/// its damage), the tribute counter and six events that do not happen.
void scriptMonth(test::ScriptedRandom& draws, std::array<int, 4> prices, bool storm) {
    draws.add({test::roll(1, 110)}, game::passageSteps);
    for (const int price : prices) {
        draws.add({test::roll(price, 21)});
    }
    draws.add({test::roll(2, 25), test::roll(storm ? 5 : 1, 50)});
    if (storm) {
        draws.add({test::roll(10, 50)});
    }
    draws.add({test::roll(1, 2)});
    draws.add({test::roll(2, 5), test::roll(1, 12), test::roll(1, 25), test::roll(1, 25),
               test::roll(1, 25), test::roll(2, 25)});
}

}  // namespace

TEST(HongKong, AMonthOfBusinessAddsUp) {
    game::GameState state = test::newGame();
    test::ScriptedRandom draws;
    test::TranscriptScene scene;
    const auto enter = [&scene](const std::vector<std::string>& messages) {
        for (const std::string& message : messages) {
            scene.appendEntry(message);
        }
    };
    const auto figures = [&state, &scene] {
        scene.transcript.line("cash " + moneyText(state.gcurCash) + ", bank " +
                              moneyText(state.gcurBank) + ", debt " + moneyText(state.gcurDebt) +
                              ", hold " + plainText(state.gcurHold) + ", arms " +
                              plainText(state.gcurSArms) + " and " + plainText(state.gcurWArms) +
                              ", status " + plainText(state.gcurStatus) + "%");
    };

    enter({game::borrow(state, 2'000)});
    enter(game::buy(state, {.amounts = {0, 0, 25, 0}}));
    enter(game::transfer(state, {.toWarehouse = {Good::Arms, "5"}}));
    enter({game::deposit(state, 600)});
    figures();
    scriptMonth(draws, {1, 1, 21, 1}, true);
    game::sail(state, draws, scene, "Manila");
    enter(game::sell(state, {.amounts = {0, 0, 20, 0}}, {"", "", "20", ""}));
    figures();
    scriptMonth(draws, {1, 1, 1, 1}, false);
    game::sail(state, draws, scene, "Hong Kong");
    figures();
    enter({game::withdraw(state, 606)});
    enter({game::repay(state, 2'420)});
    enter({game::repairMax(state)});
    figures();

    const std::string leaving =
        "disable Buy\ndisable Sell\ndisable Leave\ndisable Visit\ndisable Money\n"
        "disable Transfer\ndisable Repair\ndisable Cannon\ndisable Ship\n - Departing ";
    EXPECT_EQ(scene.transcript.take(),
              " - Borrowed $2,000\n"
              " - Bought 25 Arms @ $90 Each\n"
              " - Transfered 5 Arms to Warehouse\n"
              " - Deposited $600\n"
              "cash $150, bank $600, debt $2,000, hold 20, arms 20 and 5, status 100%\n" +
                  leaving +
                  "Hong Kong\n"
                  "at sea.........................\nin port\n"
                  " - Zhenbao!, we have received 10% Damage from a storm\nflash red\n"
                  " - Arriving at Manila\n"
                  " - Sold 20 Arms @ $250 Each\n"
                  "cash $5,150, bank $603, debt $2,200, hold 0, arms 0 and 5, status 90%\n" +
                  leaving +
                  "Manila\n"
                  "at sea.........................\nin port\n"
                  " - Arriving at Hong Kong\nenable Money\n"
                  " - Zhenbao, Dunmore from the Hong Kong Shipyards has arrived!  He says,\n"
                  "|  'I see ye've a wee bit of damage to yer ship.  I can repair your ship'\n"
                  "cash $5,150, bank $606, debt $2,420, hold 0, arms 0 and 5, status 90%\n"
                  " - Withdrew $606\n"
                  " - Repayed $2,420\n"
                  " - Repaired 5% of Ship for $3,000\n"
                  "cash $336, bank $0, debt $0, hold 0, arms 0 and 5, status 95%\n");
    EXPECT_EQ(scene.waited, 2 * game::passageSteps * game::pace::passageStep);
}
