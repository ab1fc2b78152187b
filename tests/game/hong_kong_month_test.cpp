#include <gtest/gtest.h>

#include "games.h"
#include "transcript.h"
#include "voyage.h"

TEST(HongKong, AMonthHomeAddsUp) {
    constexpr double uneventful = 0.99;
    test::ScriptedRandom draws;
    draws.add({uneventful}, game::passageSteps);
    draws.add({test::roll(11, 21)}, 4);                                               // prices
    draws.add({uneventful, test::roll(5, 50), test::roll(1, 50), test::roll(1, 2)});  // a storm
    draws.add({uneventful}, 6);                                                       // events
    test::TranscriptScene scene;
    game::GameState state = test::newGame();
    state.gstrLocation = "Manila";
    state.gcurBank = 1'999;
    state.gcurDebt = 1'009;
    game::GameState expected = state;
    expected.gdtmDate = game::oneMonthLater(game::firstDay);
    expected.gstrLocation = "Hong Kong";
    expected.gcurStatus = 99;
    expected.gcurPOpium = 15'000;
    expected.gcurPSilk = 1'500;
    expected.gcurPArms = 150;
    expected.gcurPGeneral = 15;
    expected.gcurBank = 2'008;
    expected.gcurDebt = 1'109;
    expected.gcurPayoff = 1;
    expected.gblnGameSaved = false;

    game::sail(state, draws, scene, "Hong Kong");

    EXPECT_EQ(state, expected);
    EXPECT_EQ(scene.transcript.take(),
              "disable Buy\ndisable Sell\ndisable Leave\ndisable Visit\ndisable Money\n"
              "disable Transfer\ndisable Repair\ndisable Cannon\ndisable Ship\n"
              " - Departing Manila\nat sea.........................\nin port\n"
              " - Zhenbao!, we have received 1% Damage from a storm\nflash red\n"
              " - Arriving at Hong Kong\nenable Money\n"
              " - Zhenbao, Dunmore from the Hong Kong Shipyards has arrived!  He says,\n"
              "|  'I see ye've a wee bit of damage to yer ship.  I can repair your ship'\n");
    EXPECT_EQ(scene.waited, game::Milliseconds{25 * 90});
}
