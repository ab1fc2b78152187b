#include <gtest/gtest.h>

#include <functional>
#include <sstream>
#include <tuple>

#include "arrival.h"
#include "battle.h"
#include "events.h"
#include "games.h"
#include "transcript.h"
#include "visitors.h"
#include "voyage.h"

using game::GameState;
using test::roll;

namespace {

using Story = std::function<void(GameState&, game::Random&, test::Scene&)>;

/// A story of a game with these figures: what its scene was told, behind it what has changed. Draws
/// are written as the face of a die ("3/25"), 0 for the lowest, 1 for the highest there are and -
/// for none of interest.
std::string told(const std::string& figures, const std::string& draws, const Story& story,
                 const std::string& answers = {}) {
    test::ScriptedRandom random;
    std::istringstream dice(draws);
    for (std::string die; dice >> die;) {
        random.add({die == "0"   ? test::lowestDraw
                    : die == "1" ? test::highestDraw
                    : die == "-" ? 0.99
                                 : roll(std::stoi(die), std::stoi(die.substr(die.find('/') + 1)))});
    }
    test::Transcript transcript;
    test::Scene scene(&transcript);
    scene.answers = answers;
    GameState state = test::newGame(figures);
    story(state, random, scene);
    transcript.tail(test::changes(test::newGame(figures), state));
    return transcript.take();
}

std::string repeated(int times, const std::string& text) {
    return times == 0 ? "" : text + repeated(times - 1, text);
}

void sail(GameState& state, game::Random& random, test::Scene& scene) {
    game::sail(state, random, scene, "Manila");
}
void arrive(GameState& state, game::Random& random, test::Scene& scene) {
    game::arrive(state, random, scene, "Manila");
}
/// One encounter, an order a letter: Fight, fight to the Death, Run, dump Cargo.
Story battle(std::string_view orders) {
    return [orders](GameState& state, game::Random& random, test::Scene& scene) {
        game::Battle battle(state, random, scene);
        battle.open();
        for (const char order : orders) {
            order == 'F'   ? battle.fight()
            : order == 'D' ? battle.fightToDeath()
            : order == 'R' ? battle.run()
                           : battle.dumpCargo();
        }
    };
}

const std::string tinHau = " in donation to the temple of Tin Hau, the Sea Goddess.   \n";

TEST(Passage, TellsAMonthInWhichEverythingHappens) {
    const std::string draws = repeated(3, "5/110 ") + repeated(11, "4/110 6/110 ") +
                              "0 1 0 1 1/25 5/7 5/7 1/7 5/50 1 2/2 1/5 0 2/12 1 3/25 0 4/25 1 "
                              "5/25 1 1 1/25 2/8 0 0";
    EXPECT_EQ(told("At=Saigon Status=10 SOpium=7 Hold=7 WSilk=100 WArms=1 WGeneral=2 Bank=200 "
                   "Debt=10 Cash=42 Payoff=9",
                   draws, sail),
              " -Buy -Sell -Leave -Visit -Money -Transfer -Repair -Cannon -Ship\n"
              " - Departing Saigon at sea. 90 battle. 90 battle" +
                  repeated(23, ". 90") +
                  " in port\n"
                  " - Zhenbao, we have been blown off course to Hong Kong red\n"
                  " - Zhenbao!, we have received 5% Damage from a storm red\n"
                  " - Arriving at Hong Kong\n"
                  " - Zhenbao, a ship's cannon is available for $400 +Cannon\n"
                  " - Zhenbao, you can trade in your ship for one with 50 more capacity\n"
                  "|  by paying an additional $24,000 +Ship cyan\n"
                  " - Bad Joss!  The local authorities have seized your opium\n"
                  "| and fined you $1 red\n"
                  " - Bad Joss!  You have been beaten up and robbed of $21 red\n"
                  " - Bad Joss!  Messanger reports large theft from warehouse, Zhenbao! red\n"
                  " - The price of Opium has dropped to $833 cyan +Money\n"
                  " - Zhenbao, Dunmore from the Hong Kong Shipyards has arrived!  He says,\n"
                  "|  'I see ye've a wee bit of damage to yer ship.  I can repair your ship'\n"
                  "[Will You Pay?] Kwan Tat asks for $22 in donation to the temple of Tin Hau, "
                  "the Sea Goddess.   \n"
                  "[Not Enough Cash] Adding Difference to Debt   \n"
                  " - Payed $22 in donation to the temple of Tin Hau Date=Feb 15, 1860"
                  " At=Hong Kong Status=5 Hold=0 SOpium=0 WSilk=50 WGeneral=1 POpium=833"
                  " PSilk=2500 PArms=50 PGeneral=25 Bank=201 Debt=13 Cash=0 PCannon=400"
                  " PShip=24000 Payoff=0 Saved=no\n");
}

TEST(Passage, ShocksOnePrice) {
    std::string shocks;
    for (int shock = 1; shock <= 8; ++shock) {
        shocks +=
            told("PGeneral=5", "- - - - - 1/25 " + std::to_string(shock) + "/8", game::meetEvents);
    }
    EXPECT_EQ(shocks,
              " - The price of Opium has risen to $72,000 cyan POpium=72000\n"
              " - The price of Opium has dropped to $2,000 cyan POpium=2000\n"
              " - The price of Silk has risen to $6,600 cyan PSilk=6600\n"
              " - The price of Silk has dropped to $183 cyan PSilk=183\n"
              " - The price of Arms has risen to $540 cyan PArms=540\n"
              " - The price of Arms has dropped to $15 cyan PArms=15\n"
              " - The price of General has risen to $30 cyan PGeneral=30\n"
              " - The price of General has dropped to $1 cyan PGeneral=1\n");
}

TEST(Passage, FightsToTheDeathUntilTheLastCannonIsLost) {
    EXPECT_EQ(told("Cannons=2 SSilk=1 Hold=21",
                   "1/4 6/10 6/10 4/10 3/10 3/10 2/25 6/10 3/10 3/10 3/10 1/25 7/10 3/10 3/10 2/25 "
                   "1 2/8 0 3/10 2/25",
                   battle("FDR")),
              " status:100 cannons:2\nZhenbao, what shall we do? fleet:3 -D -R -C -F\n"
              "We're firing on 'em, Zhenbao! 2000 200 200\n"
              "Sunk 0 of those buggers, Zhenbao! 2000\n"
              "They're firing on us, Zhenbao! 2000 flash 200 status:99\n"
              "The buggers hit a Cannon, Zhenbao! cannons:1\n"
              " - The buggers hit a Cannon, Zhenbao refresh 2000\n"
              "Zhenbao, what shall we do? +F +R +D +C -D -R -C -F\n"
              "We're firing on 'em, Zhenbao! 500 50\nSunk 0 of those buggers, Zhenbao! 500\n"
              "They're firing on us, Zhenbao! 500\n"
              "Zhenbao, what shall we do? +F +R +D +C -D -R -C -F\n"
              "We're firing on 'em, Zhenbao! 500 50 sink:3x0 fleet:2\n"
              "Sunk 1 of those buggers, Zhenbao! 500\nThey're firing on us, Zhenbao! 500\n"
              "The buggers hit a Cannon, Zhenbao! cannons:0\n"
              " - The buggers hit a Cannon, Zhenbao refresh 500\n"
              "Zhenbao, what shall we do? +R +C -D -R -C -F\nAye, we'll run, Zhenbao! 2500\n"
              "Can't lose 'em, but we escaped from 1 fleet:1 2000\n"
              "They're firing on us, Zhenbao! 500\n"
              "Zhenbao, what shall we do? +R +C Cannons=0 Status=99 Hold=1\n");
}

TEST(Passage, EndsInManyWays) {
    const auto adrift = [](GameState& state, game::Random& random, test::Scene& scene) {
        state.gblnActiveGame = false;
        sail(state, random, scene);
    };
    const struct {
        const char* figures;
        const char* draws;
        Story story;
        std::string end;
        const char* answers = "";
    } rows[]{
        {"", "", adrift, "-Ship\n - Departing Hong Kong at sea in port Active=no\n"},
        {"Status=9 Bank=199 Debt=9", "0 0 0 0 - 5/50 0", arrive, " PGeneral=5 Payoff=1\n"},
        {"Bank=1000 Debt=-15", "0 0 0 0 - - 0", arrive, " Bank=1005 Debt=-17 Payoff=1\n"},
        {"MaxHold=30000 Cash=9 WOpium=1 WSilk=1 WArms=1 WGeneral=1", "2/5 2/12 3/25 4/25 5/25 -",
         game::meetEvents, ""},
        {"MaxHold=29999", "- 2/12 0 - - - -", game::meetEvents, " +Ship cyan PShip=5000\n"},
        {"SOpium=1 Hold=1 Cash=1", "- - 3/25 1 - - -", game::meetEvents,
         " $1 red Hold=0 SOpium=0 Cash=0\n"},
        {"SOpium=1 Hold=1 Cash=3", "- - 3/25 1 - - -", game::meetEvents,
         " $2 red Hold=0 SOpium=0 Cash=1\n"},
        {"SOpium=1 Hold=1 Cash=0.5", "- - 3/25 0 - - -", game::meetEvents,
         " $1 red Hold=0 SOpium=0 Cash=0\n"},
        {"SOpium=1 Hold=1 Cash=-5", "- - 3/25 4/25 - -", game::meetEvents,
         " $0 red Hold=0 SOpium=0\n"},
        {"Cash=10", "- - - 4/25 1 - -", game::meetEvents, " $5 red Cash=5\n"},
        {"At=Manila Status=99 Payoff=10", "", game::receiveVisitors, ""},
        {"At=Manila Status=99 Payoff=11", "", game::receiveVisitors,
         " - Kwan Tat has sent a lieutenant, Zhenbao.  He says his admiral wishes\n"
         "| to see you in Hong Kong, Posthaste!\n"},
        {"Payoff=10", "", game::receiveVisitors, " +Money\n"},
        {"Payoff=11 Cash=22", "0 0", game::receiveVisitors,
         ".   \n - Payed $22 in donation to the temple of Tin Hau Cash=0 Payoff=0\n"},
        {"Payoff=11 NetWorth=400", "1", game::receiveVisitors, " $20" + tinHau, "n"},
        {"Payoff=11 NetWorth=400", "19/20 0", game::receiveVisitors, " $40" + tinHau, "n"},
        {"Payoff=11 NetWorth=-2000", "80/100 0", game::receiveVisitors, " $58" + tinHau, "n"},
        {"Cannons=1000000000", "1/4 7/10 6/10 7/10 7/10 1", battle("F"),
         " -C status:100 cannons:1000000000\nZhenbao, what shall we do? fleet:3 -D -R -C -F\n"
         "We're firing on 'em, Zhenbao! 2000 200 sink:3x5 fleet:2 200 200 sink:2x5 fleet:1 200 "
         "sink:1x5 fleet:0\n[] You got some booty worth $4,050     \n"
         " - You got some booty worth $4,050 finish Cash=5050\n"},
        {"", "0 0", battle("R"),
         " -F -D -C status:100 cannons:0\nZhenbao, what shall we do? fleet:3 -D -R -C -F\n"
         "Aye, we'll run, Zhenbao! 2500\nWe got away from them, Zhenbao!! 2000 finish\n"},
        {"Payoff=10", "0 1 1/8", battle("R"), "Kwan Tat's fleet drove them off! 2000 finish\n"},
        {"Payoff=11", "0 1 1/8 1 3/10 3/10 3/10 1/25 1 2/8 1 3/10 1/25 1", battle("RRR"),
         " but we escaped from 2 fleet:1 2000\nThey're firing on us, Zhenbao! 2000\n"
         "Zhenbao, what shall we do? +R -C -D -R -C -F\nAye, we'll run, Zhenbao! 2500\n"
         "We got away from them, Zhenbao!! 2000 finish\n"},
        {"Status=2", "1/4 1 1 0 4/10 4/10", battle("R"),
         " flash 200 status:1 flash 200 status:0 again? finish Status=0 Active=no Over=yes\n"},
        {"Status=1 Cannons=1", "1/4 6/10 4/10", battle("D"),
         " 500 flash 50 status:0 again? the end Status=0\n", "n"},
        {"Cannons=5 SSilk=10 Hold=60", "0", battle("C"), " fleet:3 dump?\n", "n"},
        {"Cannons=5 SSilk=10 Hold=60", "0 13/100", battle("CR"),  // 1 in 7 1/3 without the silk
         " dump? -C refresh -D -R -C -F\nAye, we'll run, Zhenbao! 2500\n"
         "We got away from them, Zhenbao!! 2000 finish Hold=50 SSilk=0\n"},
    };
    for (const auto& [figures, draws, story, end, answers] : rows) {
        const std::string text = told(figures, draws, story, answers);
        EXPECT_EQ(
            end.empty() || text.size() < end.size() ? text : text.substr(text.size() - end.size()),
            end)
            << figures << draws;
    }
}

TEST(Passage, DrawsFleetAndEscapeByTheHoldAndTheTributeOwed) {
    using Row = std::tuple<const char*, int, double>;
    for (const auto& [figures, largestFleet, escapesOneIn] : {Row{"MaxHold=-60", 1, 4},
                                                              {"Hold=60", 6, 8},
                                                              {"Hold=120 Payoff=10", 6, 12},
                                                              {"Payoff=11", 12, 4},
                                                              {"MaxHold=460 Payoff=11", 48, 4},
                                                              {"MaxHold=0 Hold=50", 1, 4},
                                                              {"MaxHold=922337203685477", 48, 4}}) {
        const GameState state = test::newGame(figures);
        test::ScriptedRandom random{test::highestDraw, 1 / escapesOneIn - 1e-9,
                                    1 / escapesOneIn + 1e-9};
        EXPECT_EQ(game::drawFleet(state, random), largestFleet) << figures;
        EXPECT_TRUE(game::drawEscape(state, random)) << figures;
        EXPECT_FALSE(game::drawEscape(state, random)) << figures;
        EXPECT_EQ(game::attackers(state), state.gcurPayoff > 10 ? "Kwan Tat's Pirates" : "Pirates");
    }
    test::ScriptedRandom random{roll(7, 7), roll(7, 7)};
    EXPECT_EQ(game::proposedPort(random, "Batavia"), "Hong Kong");
    EXPECT_EQ(game::proposedPort(random, "Atlantis"), "Batavia");
}

}  // namespace
