#include "voyage.h"

#include <gtest/gtest.h>

#include "arrival.h"
#include "events.h"
#include "games.h"
#include "transcript.h"
#include "visitors.h"

using game::Currency;
using game::GameState;
using test::highestDraw;
using test::lowestDraw;
using test::roll;
using test::ScriptedRandom;
using test::TranscriptScene;

namespace {

/// Draws that let nothing happen: `count` dice that show no face of interest.
constexpr double uneventful = 0.99;

/// The draws of an arrival up to its events: prices at their middle, on course, no storm, and the
/// tribute counter one up.
void addQuietArrival(ScriptedRandom& random) {
    random.add({roll(11, 21)}, 4);
    random.add({uneventful, uneventful, roll(1, 2)});
}

const std::string withdrawn =
    "disable Buy\ndisable Sell\ndisable Leave\ndisable Visit\ndisable Money\ndisable Transfer\n"
    "disable Repair\ndisable Cannon\ndisable Ship\n";

TEST(Voyage, ProposesAnyPortButTheOneTheShipLiesIn) {
    struct Case {
        const char* location;
        int drawn;
        const char* proposed;
    };
    for (const Case& c : {Case{"Hong Kong", 1, "Shanghai"},
                          {"Hong Kong", 5, "Manila"},
                          {"Batavia", 7, "Hong Kong"},
                          {"Batavia", 6, "Singapore"},
                          {"Atlantis", 7, "Batavia"}}) {
        ScriptedRandom random{roll(c.drawn, 7)};
        EXPECT_EQ(game::proposedPort(random, c.location), c.proposed);
    }
}

TEST(Voyage, TakesAQuietMonth) {
    ScriptedRandom random;
    random.add({uneventful}, 25);
    addQuietArrival(random);
    random.add({uneventful}, 6);
    TranscriptScene scene;
    GameState state = test::newGame();
    state.gcurBank = 1'999;
    state.gcurDebt = 1'009;
    GameState expected = state;
    expected.gdtmDate = game::oneMonthLater(game::firstDay);
    expected.gstrLocation = "Saigon";
    expected.gcurPOpium = 15'000;
    expected.gcurPSilk = 1'500;
    expected.gcurPArms = 150;
    expected.gcurPGeneral = 15;
    expected.gcurBank = 2'008;
    expected.gcurDebt = 1'109;
    expected.gcurPayoff = 1;
    expected.gblnGameSaved = false;

    game::sail(state, random, scene, "Saigon");

    EXPECT_EQ(state, expected);
    EXPECT_EQ(scene.transcript.take(),
              withdrawn + " - Departing Hong Kong\nat sea.........................\nin port\n" +
                  " - Arriving at Saigon\n");
    EXPECT_EQ(scene.waited, game::Milliseconds{25 * 90});
}

TEST(Voyage, MeetsPiratesTwiceAtMost) {
    ScriptedRandom random;
    random.add({roll(5, 110)}, 3);
    random.add({roll(4, 110), roll(6, 110)}, 11);
    addQuietArrival(random);
    random.add({uneventful}, 6);
    TranscriptScene scene;
    GameState state = test::newGame();
    game::sail(state, random, scene, "Manila");
    EXPECT_EQ(scene.transcript.take(),
              withdrawn + " - Departing Hong Kong\nat sea.\nbattle.\nbattle" +
                  std::string(23, '.') + "\nin port\n - Arriving at Manila\n");
}

TEST(Voyage, EndsWhereTheGameEnds) {
    ScriptedRandom random{uneventful, roll(5, 110)};
    TranscriptScene scene;
    GameState state = test::newGame();
    scene.battle = [&state] { state.gblnActiveGame = false; };
    GameState expected = state;
    expected.gblnActiveGame = false;
    game::sail(state, random, scene, "Manila");
    EXPECT_EQ(state, expected) << "no arrival, and as saved as it was";
    EXPECT_EQ(scene.transcript.take(),
              withdrawn + " - Departing Hong Kong\nat sea..\nbattle\nin port\n");
}

TEST(Arrival, IsBlownOffCourseToAnotherPortEvenHome) {
    ScriptedRandom random;
    random.add({lowestDraw}, 4);
    random.add({roll(1, 25), roll(2, 7), roll(2, 7), roll(1, 7), uneventful, highestDraw});
    TranscriptScene scene;
    GameState state = test::newGame();
    game::arrive(state, random, scene, "Shanghai");
    EXPECT_EQ(scene.transcript.take(),
              " - Zhenbao, we have been blown off course to Hong Kong\nflash red\n"
              " - Arriving at Hong Kong\n");
    EXPECT_EQ(state.gcurPayoff, 2);
}

TEST(Arrival, WeathersStorms) {
    struct Case {
        Currency condition;
        double draw;
        Currency left;
    };
    for (const Case& c : {Case{100, lowestDraw, 99},
                          {100, highestDraw, 50},
                          {11, highestDraw, 5},
                          {10, highestDraw, 5}}) {
        ScriptedRandom random{0, 0, 0, 0, uneventful, roll(5, 50), c.draw, 0};
        TranscriptScene scene;
        GameState state = test::newGame();
        state.gcurStatus = c.condition;
        game::arrive(state, random, scene, "Manila");
        EXPECT_EQ(state.gcurStatus, c.left);
        EXPECT_EQ(scene.transcript.take(),
                  " - Zhenbao!, we have received " + game::plainText(c.condition - c.left) +
                      "% Damage from a storm\nflash red\n - Arriving at Manila\n");
    }
    ScriptedRandom random{0, 0, 0, 0, uneventful, roll(5, 50), 0};
    TranscriptScene scene;
    GameState state = test::newGame();
    state.gcurStatus = 9;
    game::arrive(state, random, scene, "Manila");
    EXPECT_EQ(state.gcurStatus, 9);
}

TEST(Arrival, RoundsInterestDown) {
    struct Case {
        Currency bank;
        Currency bankLater;
        Currency debt;
        Currency debtLater;
    };
    for (const Case& c :
         {Case{199, 199, 9, 9},
          {200, 201, 10, 11},
          {1'000, 1'005, 1'100, 1'210},
          {0, 0, -15, -17},
          {0, 0, -5, -6},
          {Currency::highest(), Currency::highest(), Currency::lowest(), Currency::lowest()}}) {
        ScriptedRandom random{0, 0, 0, 0, uneventful, uneventful, 0};
        TranscriptScene scene;
        GameState state = test::newGame();
        state.gcurBank = c.bank;
        state.gcurDebt = c.debt;
        game::arrive(state, random, scene, "Manila");
        EXPECT_EQ(state.gcurBank, c.bankLater);
        EXPECT_EQ(state.gcurDebt, c.debtLater);
    }
}

TEST(Events, AllHappenAtOnceInTheirOrder) {
    ScriptedRandom random{roll(1, 5),  lowestDraw,  roll(2, 12), highestDraw, roll(3, 25),
                          lowestDraw,  roll(4, 25), highestDraw, roll(5, 25), highestDraw,
                          highestDraw, roll(1, 25), roll(2, 8)};
    TranscriptScene scene;
    GameState state = test::newGame();
    state.gcurSOpium = 7;
    state.gcurHold = 7;
    state.gcurWSilk = 100;
    state.gcurWArms = 1;
    state.gcurWGeneral = 3;
    GameState expected = state;
    expected.gcurPCannon = 400;
    expected.gcurPShip = 24'000;
    expected.gcurSOpium = 0;
    expected.gcurHold = 0;
    expected.gcurCash = 1'000 - 1 - 500;
    expected.gcurWSilk = 50;
    expected.gcurWGeneral = 1;
    expected.gcurPOpium = 2'000;

    game::meetEvents(state, random, scene);

    EXPECT_EQ(state, expected);
    EXPECT_EQ(scene.transcript.take(),
              " - Zhenbao, a ship's cannon is available for $400\n"
              "enable Cannon\n"
              " - Zhenbao, you can trade in your ship for one with 50 more capacity\n"
              "|  by paying an additional $24,000\n"
              "enable Ship\n"
              "flash cyan\n"
              " - Bad Joss!  The local authorities have seized your opium\n"
              "| and fined you $1\n"
              "flash red\n"
              " - Bad Joss!  You have been beaten up and robbed of $500\n"
              "flash red\n"
              " - Bad Joss!  Messanger reports large theft from warehouse, Zhenbao!\n"
              "flash red\n"
              " - The price of Opium has dropped to $2,000\n"
              "flash cyan\n");
}

TEST(Events, DrawBeforeTheyLookAtTheirConditions) {
    ScriptedRandom random{roll(2, 5),  roll(2, 12), roll(3, 25),
                          roll(4, 25), roll(5, 25), roll(2, 25)};
    TranscriptScene scene;
    GameState state = test::newGame();
    state.gcurMaxHold = 30'000;
    state.gcurCash = 9;
    for (const game::GoodRow& good : game::goods) {
        state.*good.warehouse = 1;
    }
    const GameState before = state;
    game::meetEvents(state, random, scene);
    EXPECT_EQ(state, before);
    EXPECT_EQ(scene.transcript.take(), "");
}

TEST(Events, TakeAtMostHalfAndNeverMoreThanThereIs) {
    struct Case {
        Currency cash;
        double draw;
        Currency left;
    };
    const auto seizedAndRobbed = [](ScriptedRandom& random, Currency cash) {
        TranscriptScene scene;
        GameState state = test::newGame();
        state.gcurSOpium = state.gcurHold = 1;
        state.gcurCash = cash;
        state.gcurMaxHold = 29'999;
        game::meetEvents(state, random, scene);
        EXPECT_EQ(state.gcurHold, 0);
        return state.gcurCash;
    };
    for (const Case& c : {Case{1, highestDraw, 0},
                          {3, highestDraw, 1},
                          {Currency::fromTenThousandths(5'000), lowestDraw, 0}}) {
        ScriptedRandom fine{uneventful, uneventful, roll(3, 25), c.draw,
                            uneventful, uneventful, uneventful};
        EXPECT_EQ(seizedAndRobbed(fine, c.cash), c.left);
    }
    for (const Currency penniless : {Currency{0}, Currency{-5}}) {
        ScriptedRandom noFine{uneventful,  uneventful, roll(3, 25),
                              roll(4, 25), uneventful, uneventful};
        EXPECT_EQ(seizedAndRobbed(noFine, penniless), penniless);
    }
    ScriptedRandom robbery{uneventful,  uneventful,  roll(3, 25), lowestDraw,
                           roll(4, 25), highestDraw, uneventful,  uneventful};
    EXPECT_EQ(seizedAndRobbed(robbery, 11), 5);
}

TEST(Events, ShockOnePrice) {
    struct Case {
        int drawn;
        game::Field price;
        Currency before;
        Currency after;
        const char* entry;
    };
    for (const Case& c :
         {Case{1, &GameState::gcurPOpium, 25'000, 150'000,
               " - The price of Opium has risen to $150,000"},
          {2, &GameState::gcurPOpium, 5'000, 833, " - The price of Opium has dropped to $833"},
          {3, &GameState::gcurPSilk, 500, 3'000, " - The price of Silk has risen to $3,000"},
          {4, &GameState::gcurPSilk, 2'500, 416, " - The price of Silk has dropped to $416"},
          {5, &GameState::gcurPArms, 50, 300, " - The price of Arms has risen to $300"},
          {6, &GameState::gcurPArms, 50, 8, " - The price of Arms has dropped to $8"},
          {7, &GameState::gcurPGeneral, 25, 150, " - The price of General has risen to $150"},
          {8, &GameState::gcurPGeneral, 5, 1, " - The price of General has dropped to $1"}}) {
        ScriptedRandom random;
        random.add({uneventful}, 5);
        random.add({roll(1, 25), roll(c.drawn, 8)});
        TranscriptScene scene;
        GameState state = test::newGame();
        state.*c.price = c.before;
        GameState expected = state;
        expected.*c.price = c.after;
        game::meetEvents(state, random, scene);
        EXPECT_EQ(state, expected);
        EXPECT_EQ(scene.transcript.take(), std::string{c.entry} + "\nflash cyan\n");
    }
}

TEST(Visitors, CallWhereAndWhenTheyShould) {
    const std::string lieutenant =
        " - Kwan Tat has sent a lieutenant, Zhenbao.  He says his admiral wishes\n"
        "| to see you in Hong Kong, Posthaste!\n";
    const std::string dunmore =
        " - Zhenbao, Dunmore from the Hong Kong Shipyards has arrived!  He says,\n"
        "|  'I see ye've a wee bit of damage to yer ship.  I can repair your ship'\n";
    struct Case {
        const char* port;
        Currency counter;
        Currency condition;
        std::string transcript;
    };
    for (const Case& c : {Case{"Manila", 10, 50, ""},
                          {"Manila", 11, 50, lieutenant},
                          {"Hong Kong", 10, 100, "enable Money\n"},
                          {"Hong Kong", 0, 99, "enable Money\n" + dunmore}}) {
        ScriptedRandom random;
        TranscriptScene scene;
        GameState state = test::newGame();
        state.gstrLocation = c.port;
        state.gcurPayoff = c.counter;
        state.gcurStatus = c.condition;
        const GameState before = state;
        game::receiveVisitors(state, random, scene);
        EXPECT_EQ(state, before);
        EXPECT_EQ(scene.transcript.take(), c.transcript);
    }
}

TEST(Visitors, AskForATributeByNetWorth) {
    struct Case {
        Currency netWorth;
        std::initializer_list<double> draws;
        Currency tribute;
    };
    for (const Case& c : {Case{0, {lowestDraw, lowestDraw}, 22},
                          {0, {highestDraw, highestDraw}, 101},
                          {400, {highestDraw}, 20},
                          {400, {roll(18, 20), lowestDraw}, 39},
                          {999'999, {highestDraw}, 50'000},
                          {-2'000, {roll(80, 100), lowestDraw}, 58},
                          {-420, {highestDraw, lowestDraw}, 1},
                          {-440, {highestDraw, lowestDraw}, 0}}) {
        ScriptedRandom random{c.draws};
        const GameState state =
            test::newGameWith([&](auto& game) { game.gcurNetWorth = c.netWorth; });
        EXPECT_EQ(game::drawTribute(state, random), c.tribute) << game::plainText(c.netWorth);
    }
}

TEST(Visitors, TakeATributePaidPartlyPaidOrRefused) {
    struct Case {
        Currency cash;
        bool pays;
        Currency cashLeft;
        Currency debt;
        Currency counter;
        std::string after;
    };
    const std::string asked =
        "enable Money\nask [Will You Pay?] Kwan Tat asks for $22 in donation to the temple of "
        "Tin Hau, the Sea Goddess.   \n";
    const std::string paid = " - Payed $22 in donation to the temple of Tin Hau\n";
    for (const Case& c :
         {Case{22, true, 0, 0, 0, paid},
          {21, true, 0, 1, 0, "inform [Not Enough Cash] Adding Difference to Debt   \n" + paid},
          {22, false, 22, 0, 11, ""}}) {
        ScriptedRandom random{lowestDraw, lowestDraw};
        TranscriptScene scene;
        scene.answers = {c.pays};
        GameState state = test::newGame();
        state.gcurPayoff = 11;
        state.gcurCash = c.cash;
        GameState expected = state;
        expected.gcurCash = c.cashLeft;
        expected.gcurDebt = c.debt;
        expected.gcurPayoff = c.counter;
        game::receiveVisitors(state, random, scene);
        EXPECT_EQ(state, expected);
        EXPECT_EQ(scene.transcript.take(), asked + c.after);
    }
}

}  // namespace
