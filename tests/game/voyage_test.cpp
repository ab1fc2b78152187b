#include "voyage.h"

#include <gtest/gtest.h>

#include <array>
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
    std::string arrive(ScriptedRandom&& draws) {
        return tell(game::arrive, std::move(draws), "Manila");
    }
    std::string meetEvents(ScriptedRandom&& draws) {
        return tell(game::meetEvents, std::move(draws));
    }

    test::TranscriptScene scene;
    GameState state = test::newGame();
};

TEST_F(Voyage, ProposesAnyPortButTheOneTheShipLiesIn) {
    using Row = std::tuple<const char*, int, const char*>;
    for (const auto& [location, drawn, proposed] :
         {Row{"Batavia", 7, "Hong Kong"}, {"Atlantis", 7, "Batavia"}}) {
        ScriptedRandom random{roll(drawn, 7)};
        EXPECT_EQ(game::proposedPort(random, location), proposed);
    }
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

TEST_F(Voyage, IsBlownOffCourseToAnotherPortEvenHome) {
    EXPECT_EQ(arrive({0, 0, 0, 0, roll(1, 25), roll(5, 7), roll(5, 7), roll(1, 7), uneventful,
                      highestDraw}),
              " - Zhenbao, we have been blown off course to Hong Kong\nflash red\n"
              " - Arriving at Hong Kong\n");
    EXPECT_EQ(state.gcurPayoff, 2);
}

TEST_F(Voyage, WeathersStorms) {
    state.gcurStatus = 10;
    EXPECT_EQ(arrive({0, 0, 0, 0, uneventful, roll(5, 50), highestDraw, 0}),
              " - Zhenbao!, we have received 5% Damage from a storm\nflash red\n"
              " - Arriving at Manila\n");
    EXPECT_EQ(state.gcurStatus, 5);
    state.gcurStatus = 9;
    EXPECT_EQ(arrive({0, 0, 0, 0, uneventful, roll(5, 50), 0}), " - Arriving at Manila\n");
    EXPECT_EQ(state.gcurStatus, 9);
}

TEST_F(Voyage, RoundsInterestDown) {
    const Currency high = Currency::highest();
    const Currency low = Currency::lowest();
    using Row = std::array<Currency, 4>;
    for (const auto& [bank, bankLater, debt, debtLater] : {Row{199, 199, 9, 9},
                                                           {200, 201, 10, 11},
                                                           {1'000, 1'005, 1'100, 1'210},
                                                           {0, 0, -15, -17},
                                                           {high, high, low, low}}) {
        state.gcurBank = bank;
        state.gcurDebt = debt;
        arrive({0, 0, 0, 0, uneventful, uneventful, 0});
        EXPECT_EQ(state.gcurBank, bankLater);
        EXPECT_EQ(state.gcurDebt, debtLater);
    }
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
    EXPECT_EQ(meetEvents({roll(1, 5), lowestDraw, roll(2, 12), highestDraw, roll(3, 25), lowestDraw,
                          roll(4, 25), highestDraw, roll(5, 25), highestDraw, highestDraw,
                          roll(1, 25), roll(2, 8)}),
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
    const GameState before = state;
    EXPECT_EQ(
        meetEvents({roll(2, 5), roll(2, 12), roll(3, 25), roll(4, 25), roll(5, 25), roll(2, 25)}),
        "");
    EXPECT_EQ(state, before);
    state.gcurMaxHold = 29'999;
    const double none = uneventful;
    EXPECT_NE(meetEvents({none, roll(2, 12), 0, none, none, none, none}), "") << "the last ship";
}

TEST_F(Voyage, LosesAtMostHalfAndNeverMoreThanThereIs) {
    const double none = uneventful;
    const double fine = roll(3, 25);
    const double robbery = roll(4, 25);
    using Row = std::tuple<Currency, std::vector<double>, Currency>;
    for (const auto& [cash, draws, left] :
         {Row{1, {none, none, fine, highestDraw, none, none, none}, 0},
          {3, {none, none, fine, highestDraw, none, none, none}, 1},
          {Currency::fromTenThousandths(5'000), {none, none, fine, 0, none, none, none}, 0},
          {0, {none, none, fine, robbery, none, none}, 0},
          {-5, {none, none, fine, robbery, none, none}, -5},
          {11, {none, none, fine, 0, robbery, highestDraw, none, none}, 5}}) {
        state.gcurSOpium = state.gcurHold = 1;
        state.gcurCash = cash;
        meetEvents(ScriptedRandom{draws});
        EXPECT_EQ(state.gcurHold, 0);
        EXPECT_EQ(state.gcurCash, left);
    }
}

TEST_F(Voyage, ShocksOnePrice) {
    using Row = std::tuple<game::Field, Currency, Currency, std::string>;
    int drawn = 0;
    for (const auto& [price, before, after, change] :
         {Row{&GameState::gcurPOpium, 25'000, 150'000, "Opium has risen to $150,000"},
          {&GameState::gcurPOpium, 5'000, 833, "Opium has dropped to $833"},
          {&GameState::gcurPSilk, 500, 3'000, "Silk has risen to $3,000"},
          {&GameState::gcurPSilk, 2'500, 416, "Silk has dropped to $416"},
          {&GameState::gcurPArms, 50, 300, "Arms has risen to $300"},
          {&GameState::gcurPArms, 50, 8, "Arms has dropped to $8"},
          {&GameState::gcurPGeneral, 25, 150, "General has risen to $150"},
          {&GameState::gcurPGeneral, 5, 1, "General has dropped to $1"}}) {
        state.*price = before;
        GameState expected = state;
        expected.*price = after;
        EXPECT_EQ(meetEvents({uneventful, uneventful, uneventful, uneventful, uneventful,
                              roll(1, 25), roll(++drawn, 8)}),
                  " - The price of " + change + "\nflash cyan\n");
        EXPECT_EQ(state, expected);
    }
}

TEST_F(Voyage, IsVisitedWhereAndWhenItShould) {
    const std::string lieutenant =
        " - Kwan Tat has sent a lieutenant, Zhenbao.  He says his admiral wishes\n"
        "| to see you in Hong Kong, Posthaste!\n";
    const std::string dunmore =
        " - Zhenbao, Dunmore from the Hong Kong Shipyards has arrived!  He says,\n"
        "|  'I see ye've a wee bit of damage to yer ship.  I can repair your ship'\n";
    using Row = std::tuple<const char*, int, int, std::string>;
    for (const auto& [port, condition, counter, visits] :
         {Row{"Manila", 99, 10, ""},
          {"Manila", 99, 11, lieutenant},
          {"Hong Kong", 100, 10, "enable Money\n"},
          {"Hong Kong", 99, 10, "enable Money\n" + dunmore}}) {
        state.gstrLocation = port;
        state.gcurStatus = condition;
        state.gcurPayoff = counter;
        const GameState before = state;
        EXPECT_EQ(tell(game::receiveVisitors, {}), visits);
        EXPECT_EQ(state, before);
    }
}

TEST_F(Voyage, OwesATributeByNetWorth) {
    using Row = std::tuple<Currency, std::vector<double>, Currency>;
    for (const auto& [netWorth, draws, tribute] : {Row{400, {highestDraw}, 20},
                                                   {400, {roll(19, 20), lowestDraw}, 40},
                                                   {999'999, {highestDraw}, 50'000},
                                                   {-2'000, {roll(80, 100), lowestDraw}, 58},
                                                   {-420, {highestDraw, lowestDraw}, 1},
                                                   {-440, {highestDraw, lowestDraw}, 0}}) {
        ScriptedRandom random{draws};
        state.gcurNetWorth = netWorth;
        EXPECT_EQ(game::drawTribute(state, random), tribute) << game::plainText(netWorth);
    }
}

TEST_F(Voyage, PaysATributeInFullInPartOrNotAtAll) {
    const std::string paid = " - Payed $22 in donation to the temple of Tin Hau\n";
    using Row = std::tuple<int, bool, int, int, int, std::string>;
    for (const auto& [cash, pays, cashLeft, debt, counter, after] :
         {Row{22, true, 0, 0, 0, paid},
          {21, true, 0, 1, 0, "inform [Not Enough Cash] Adding Difference to Debt   \n" + paid},
          {22, false, 22, 0, 11, ""}}) {
        scene.answers = {pays};
        state = test::newGame();
        GameState expected = state;
        expected.gcurCash = cashLeft;
        expected.gcurDebt = debt;
        expected.gcurPayoff = counter;
        state.gcurPayoff = 11;
        state.gcurCash = cash;
        EXPECT_EQ(tell(game::receiveVisitors, {lowestDraw, lowestDraw}),
                  "enable Money\nask [Will You Pay?] Kwan Tat asks for $22 in donation to the "
                  "temple of Tin Hau, the Sea Goddess.   \n" +
                      after);
        EXPECT_EQ(state, expected);
    }
}

}  // namespace
