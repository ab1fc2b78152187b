#include "voyage.h"

#include <gtest/gtest.h>

#include <tuple>
#include <vector>

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

namespace {

/// A die that shows no face of interest.
constexpr double uneventful = 0.99;

class Voyage : public testing::Test {
protected:
    /// Tells one story about the game to the scene, with these draws.
    template <class Tell, class... More>
    std::string tell(Tell story, ScriptedRandom&& draws, More... more) {
        story(state, draws, scene, more...);
        return scene.transcript.take();
    }

    test::TranscriptScene scene;
    GameState state = test::newGame();
};

TEST_F(Voyage, ProposesThePortDrawnOrTheOneBehind) {
    ScriptedRandom random{roll(7, 7), roll(7, 7)};
    EXPECT_EQ(game::proposedPort(random, "Batavia"), "Hong Kong");
    EXPECT_EQ(game::proposedPort(random, "Atlantis"), "Batavia");
}

TEST_F(Voyage, MeetsPiratesTwiceAtMost) {
    ScriptedRandom random;
    random.add({roll(5, 110)}, 3);
    random.add({roll(4, 110), roll(6, 110)}, 11);
    random.add({uneventful}, 13);
    const std::string told = tell(game::sail, std::move(random), "Manila");
    EXPECT_EQ(told,
              "disable Buy\ndisable Sell\ndisable Leave\ndisable Visit\ndisable Money\n"
              "disable Transfer\ndisable Repair\ndisable Cannon\ndisable Ship\n"
              " - Departing Hong Kong\nat sea.\nbattle.\nbattle" +
                  std::string(23, '.') + "\nin port\n - Arriving at Manila\n");
    EXPECT_EQ(scene.waited.count(), 25 * 90);
    EXPECT_EQ(state.gdtmDate, game::oneMonthLater(game::firstDay));
    EXPECT_FALSE(state.gblnGameSaved);
}

TEST_F(Voyage, EndsWhereTheGameEnds) {
    scene.battle = [this] { state.gblnActiveGame = false; };
    GameState expected = state;
    expected.gblnActiveGame = false;
    const std::string told = tell(game::sail, {uneventful, roll(5, 110)}, "Manila");
    EXPECT_TRUE(told.ends_with("at sea..\nbattle\nin port\n")) << told;
    EXPECT_EQ(state, expected) << "no arrival, and as saved as it was";
}

TEST_F(Voyage, IsBlownOffCourseToAnotherPortAndWeathersStorms) {
    state.gcurStatus = 10;
    EXPECT_EQ(tell(game::arrive,
                   {0, 0, 0, 0, roll(1, 25), roll(5, 7), roll(5, 7), roll(1, 7), roll(5, 50),
                    highestDraw, highestDraw},
                   "Manila"),
              " - Zhenbao, we have been blown off course to Hong Kong\nflash red\n"
              " - Zhenbao!, we have received 5% Damage from a storm\nflash red\n"
              " - Arriving at Hong Kong\n");
    EXPECT_EQ(state.gcurPayoff, 2);
    state.gcurStatus = 9;
    EXPECT_EQ(tell(game::arrive, {0, 0, 0, 0, uneventful, roll(5, 50), 0}, "Manila"),
              " - Arriving at Manila\n");
}

TEST_F(Voyage, RoundsInterestDown) {
    std::vector<Currency> later;
    for (const auto& [bank, debt] : {std::pair{199, 9}, {200, 10}, {1'000, -15}}) {
        state.gcurBank = bank;
        state.gcurDebt = debt;
        tell(game::arrive, {0, 0, 0, 0, uneventful, uneventful, 0}, "Manila");
        later.insert(later.end(), {state.gcurBank, state.gcurDebt});
    }
    EXPECT_EQ(later, (std::vector<Currency>{199, 9, 201, 11, 1'005, -17}));
}

TEST_F(Voyage, MeetsAllEventsAtOnceInTheirOrder) {
    state.gcurSOpium = state.gcurHold = 7;
    state.gcurWSilk = 100;
    state.gcurWArms = 1;
    state.gcurWGeneral = 2;
    GameState expected = state;
    expected.gcurPCannon = 400;
    expected.gcurPShip = 24'000;
    expected.gcurSOpium = expected.gcurHold = 0;
    expected.gcurCash = 1'000 - 1 - 500;
    expected.gcurWSilk = 50;
    expected.gcurWGeneral = 1;
    expected.gcurPOpium = 2'000;
    EXPECT_EQ(tell(game::meetEvents, {roll(1, 5), lowestDraw, roll(2, 12), highestDraw, roll(3, 25),
                                      lowestDraw, roll(4, 25), highestDraw, roll(5, 25),
                                      highestDraw, highestDraw, roll(1, 25), roll(2, 8)}),
              " - Zhenbao, a ship's cannon is available for $400\n"
              "enable Cannon\n"
              " - Zhenbao, you can trade in your ship for one with 50 more capacity\n"
              "|  by paying an additional $24,000\n"
              "enable Ship\nflash cyan\n"
              " - Bad Joss!  The local authorities have seized your opium\n"
              "| and fined you $1\nflash red\n"
              " - Bad Joss!  You have been beaten up and robbed of $500\nflash red\n"
              " - Bad Joss!  Messanger reports large theft from warehouse, Zhenbao!\nflash red\n"
              " - The price of Opium has dropped to $2,000\nflash cyan\n");
    EXPECT_EQ(state, expected);
}

TEST_F(Voyage, DrawsEventsBeforeTheirConditions) {
    state.gcurMaxHold = 30'000;
    state.gcurCash = 9;
    state.gcurWOpium = state.gcurWSilk = state.gcurWArms = state.gcurWGeneral = 1;
    const std::vector<double> draws{roll(2, 5),  roll(2, 12), roll(3, 25),
                                    roll(4, 25), roll(5, 25), roll(2, 25)};
    EXPECT_EQ(tell(game::meetEvents, ScriptedRandom{draws}), "");
    state.gcurMaxHold = 29'999;
    const double none = uneventful;
    EXPECT_NE(tell(game::meetEvents, {none, roll(2, 12), 0, none, none, none, none}), "")
        << "the last ship";
}

TEST_F(Voyage, LosesAtMostHalfAndNeverMoreThanThereIs) {
    const double none = uneventful;
    using Row = std::tuple<Currency, std::vector<double>, Currency>;
    for (const auto& [cash, draws, left] :
         {Row{1, {highestDraw, none, none, none}, 0},
          {3, {highestDraw, none, none, none}, 1},
          {Currency::fromTenThousandths(5'000), {0, none, none, none}, 0},
          {0, {roll(4, 25), none, none}, 0},
          {-5, {roll(4, 25), none, none}, -5},
          {11, {0, roll(4, 25), highestDraw, none, none}, 5}}) {
        state.gcurSOpium = state.gcurHold = 1;
        state.gcurCash = cash;
        ScriptedRandom seizure{none, none, roll(3, 25)};
        seizure.add(draws);
        tell(game::meetEvents, std::move(seizure));
        EXPECT_EQ(state.gcurHold, 0);
        EXPECT_EQ(state.gcurCash, left);
    }
}

TEST_F(Voyage, ShocksOnePrice) {
    std::string told;
    for (int drawn = 1; drawn <= 8; ++drawn) {
        state = test::newGame();
        state.gcurPGeneral = 5;
        ScriptedRandom shock({uneventful, uneventful, uneventful, uneventful, uneventful});
        shock.add({roll(1, 25), roll(drawn, 8)});
        told += tell(game::meetEvents, std::move(shock));
    }
    EXPECT_EQ(told,
              " - The price of Opium has risen to $72,000\nflash cyan\n"
              " - The price of Opium has dropped to $2,000\nflash cyan\n"
              " - The price of Silk has risen to $6,600\nflash cyan\n"
              " - The price of Silk has dropped to $183\nflash cyan\n"
              " - The price of Arms has risen to $540\nflash cyan\n"
              " - The price of Arms has dropped to $15\nflash cyan\n"
              " - The price of General has risen to $30\nflash cyan\n"
              " - The price of General has dropped to $1\nflash cyan\n");
}

TEST_F(Voyage, IsVisitedWhereAndWhenItShould) {
    const std::string lieutenant =
        " - Kwan Tat has sent a lieutenant, Zhenbao.  He says his admiral wishes\n"
        "| to see you in Hong Kong, Posthaste!\n";
    const std::string dunmore =
        "enable Money\n"
        " - Zhenbao, Dunmore from the Hong Kong Shipyards has arrived!  He says,\n"
        "|  'I see ye've a wee bit of damage to yer ship.  I can repair your ship'\n";
    using Row = std::tuple<const char*, int, int, std::string>;
    for (const auto& [port, condition, counter, visits] : {Row{"Manila", 99, 10, ""},
                                                           {"Manila", 99, 11, lieutenant},
                                                           {"Hong Kong", 99, 10, dunmore}}) {
        state.gstrLocation = port;
        state.gcurStatus = condition;
        state.gcurPayoff = counter;
        EXPECT_EQ(tell(game::receiveVisitors, {}), visits);
    }
}

TEST_F(Voyage, OwesATributeByNetWorth) {
    ScriptedRandom random{highestDraw, roll(19, 20), lowestDraw, roll(80, 100), lowestDraw};
    std::vector<Currency> tributes;
    for (const Currency netWorth : {400, 400, -2'000}) {
        state.gcurNetWorth = netWorth;
        tributes.push_back(game::drawTribute(state, random));
    }
    EXPECT_EQ(tributes, (std::vector<Currency>{20, 40, 58}));
}

TEST_F(Voyage, PaysATributeInFullInPartOrNotAtAll) {
    const std::string paid = " - Payed $22 in donation to the temple of Tin Hau\n";
    using Row = std::tuple<int, bool, int, int, int, std::string>;
    for (const auto& [cash, pays, cashLeft, debt, counter, after] :
         {Row{22, true, 0, 0, 0, paid},
          {21, true, 0, 1, 0, "inform [Not Enough Cash] Adding Difference to Debt   \n" + paid},
          {22, false, 22, 0, 11, ""}}) {
        scene.answers = {pays};
        GameState expected = state = test::newGame();
        state.gcurPayoff = 11;
        state.gcurCash = cash;
        EXPECT_EQ(tell(game::receiveVisitors, {lowestDraw, lowestDraw}),
                  "enable Money\nask [Will You Pay?] Kwan Tat asks for $22 in donation to the "
                  "temple of Tin Hau, the Sea Goddess.   \n" +
                      after);
        expected.gcurCash = cashLeft;
        expected.gcurDebt = debt;
        expected.gcurPayoff = counter;
        EXPECT_EQ(state, expected);
    }
}

}  // namespace
