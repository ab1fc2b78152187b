// The rules as scripts: a game, what happens in it, and what came of that.

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <sstream>

#include "captain.h"
#include "games.h"

using game::GameState;

namespace {

/// A captain who reads a script, a word for whatever is asked next. In a field "max" is as much as
/// it offers, "more" one more. A draw is the face of a die ("3/25"), 0 for the lowest and 1 for the
/// highest there are, or - for none of interest.
class Actor final : game::Random, public test::Captain {
public:
    Actor(GameState& state, test::Transcript& transcript, const std::string& script)
        : Captain(state, *this, &transcript), m_words(script) {}

    std::size_t choose(std::string_view words) override {
        const std::string_view before = words.substr(0, words.find(next()));
        return static_cast<std::size_t>(std::ranges::count(before, ' '));
    }
    bool leaves() override { return (m_words >> std::ws).eof(); }

private:
    std::string next() {
        std::string word;
        EXPECT_TRUE(m_words >> word) << "the script is too short";
        return word;
    }
    std::string type(game::Currency most) override {
        const std::string typed = next();
        return typed == "max" ? plainText(most) : typed == "more" ? plainText(most + 1) : typed;
    }
    double Rnd() override {
        const std::string die = next();
        const std::size_t slash = die.find('/');
        return die == "0"          ? test::lowestDraw
               : die == "1"        ? test::highestDraw
               : slash == die.npos ? 0.99
                                   : test::roll(std::stoi(die), std::stoi(die.substr(slash + 1)));
    }

    std::istringstream m_words;
};

/// What a script tells: its messages and behind them what has changed. It is written as figures of
/// a game just started, an order or a part of a passage, and all that is asked in it.
std::string told(const std::string& script) {
    const std::size_t start = script.find(' ', script.rfind('='));
    const GameState before = test::newGame(script.substr(0, start));
    GameState state = before;
    test::Transcript transcript;
    Actor actor(state, transcript, script.substr(start));
    const std::string answer = actor.play(actor.choose(Actor::deeds));
    transcript.tail(answer + test::changes(before, state));
    EXPECT_TRUE(actor.leaves()) << script;
    return transcript.take();
}

std::string repeated(int times, const std::string& text) {
    return times == 0 ? "" : text + repeated(times - 1, text);
}

TEST(Rules, TellAMonthInWhichEverythingHappens) {
    EXPECT_EQ(
        told("At=Saigon Status=10 SOpium=7 Hold=7 WSilk=100 WArms=1 WGeneral=2 Bank=200 "
             "Debt=10 Cash=43 Payoff=9 sail Manila 5/110 1/4 run 0 5/110 1/4 run 1 1/8 5/110 " +
             repeated(11, "4/110 6/110 ") +
             "0 1 0 1 1/25 5/7 5/7 1/7 5/50 1 2/2 1/5 0 2/12 1 3/25 0 4/25 1 5/25 1 1 1/25 2/8 "
             "0 0 yes"),
        " -Buy -Sell -Leave -Visit -Money -Transfer -Repair -Cannon -Ship\n"
        " - Departing Saigon at sea. 90 battle -F -D status:10 cannons:0\n"
        "Zhenbao, what shall we do? fleet:3 -D -R -C -F\nAye, we'll run, Zhenbao! 2500\n"
        "We got away from them, Zhenbao!! 2000 finish. 90 battle -F -D status:10 cannons:0\n"
        "Zhenbao, what shall we do? fleet:3 -D -R -C -F\nAye, we'll run, Zhenbao! 2500\n"
        "Kwan Tat's fleet drove them off! 2000 finish" +
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
            "[Will You Pay?] Kwan Tat asks for $22 in donation to the temple of Tin Hau, the "
            "Sea Goddess.   \n[Not Enough Cash] Adding Difference to Debt   \n"
            " - Payed $22 in donation to the temple of Tin Hau Date=Feb 15, 1860 At=Hong Kong "
            "Status=5 Hold=0 SOpium=0 WSilk=50 WGeneral=1 POpium=833 PSilk=2500 PArms=50 "
            "PGeneral=25 Bank=201 Debt=12 Cash=0 PCannon=400 PShip=24000 Payoff=0 Saved=no\n");
}

TEST(Rules, TellAFightToTheDeath) {
    EXPECT_EQ(told("Cannons=2 SSilk=1 Hold=21 battle 1/4 fight 6/10 6/10 4/10 3/10 3/10 2/25 "
                   "death 6/10 3/10 3/10 3/10 1/25 7/10 3/10 3/10 2/25 run 1 2/8 0 3/10 2/25"),
              " battle status:100 cannons:2\nZhenbao, what shall we do? fleet:3 -D -R -C -F\n"
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

TEST(Rules, HoldToTheirBounds) {
    const std::string noFunds = "Insufficient Funds   ";
    const std::string noHold = "Insufficient Hold   ";
    const std::string noCargo = "Insufficient Cargo   ";
    const std::string noStorage =
        "Insufficient Storage Space, Warehouse Limited to 10,000 units   ";
    const std::string noLoan = "Maximum Loan Exceeded (2 x Cash or 100 Million Maximum)   ";
    const std::string donation = " in donation to the temple of Tin Hau, the Sea Goddess.   ";
    const std::string shock = "Hold=0 events - - - - - 1/25 ";
    const std::pair<std::string, std::string> rows[]{
        {"Hold=50 buy ship 0 0 1 max",
         " - Bought 1 Arms @ $90 Each - Bought 9 General @ $14 Each Hold=60 SArms=1 SGeneral=9 "
         "Cash=784 Saved=no"},
        {"Hold=50 buy ship 0 0 5 more", noHold},
        {"Cash=1000 buy ship 0 0 0 72", noFunds},
        {"Cash=35100 buy ship 2 max 0 max",
         "... Hold=19 SOpium=2 SSilk=10 SGeneral=7 Cash=2 Saved=no"},
        {"Cash=24000 buy ship max 0 0 0",
         " - Bought 2 Opium @ $12,000 Each Hold=2 SOpium=2 Cash=0 Saved=no"},
        {"WSilk=9995 buy ashore 0 0 2 max", "... WArms=2 WGeneral=3 Cash=778 Saved=no"},
        {"WSilk=9995 buy ashore 0 0 more 0", noStorage},
        {"SArms=5 Hold=5 sell ship 0 0 max 0",
         " - Sold 5 Arms @ $90 Each Hold=0 SArms=0 Cash=1450 Saved=no"},
        {"SArms=5 Hold=5 sell ship 1 0 5 0", noCargo},
        {"WSilk=1 sell ashore 0 01 - 0",
         " - Sold 01 Silk @ $1,100 Each WSilk=0 Cash=2100 Saved=no"},
        {"WSilk=30 transfer Silk max Opium 0",
         " - Transfered 30 Silk to Ship Hold=30 SSilk=30 WSilk=0 Saved=no"},
        {"WSilk=30 transfer Silk more Opium 0", noCargo},
        {"WSilk=31 SOpium=51 Hold=51 transfer Silk 10 Opium 10", noHold},
        {"WSilk=30 SOpium=51 Hold=51 transfer Silk 31 Opium 0", noCargo},
        {"WSilk=30 SOpium=51 Hold=51 transfer Silk max Arms 1", noCargo},
        {"SOpium=51 Hold=51 WArms=9990 transfer Arms max Opium more", noStorage},
        {"SOpium=10 Hold=10 WOpium=5 transfer Opium $5 Opium 010",
         " - Transfered $5 Opium to Ship - Transfered 010 Opium to Warehouse Hold=5 SOpium=5 "
         "WOpium=10 Saved=no"},
        {"Hold=61 SOpium=1 transfer Arms 0 Opium 1", noHold},
        {"Bank=150 deposit max", " - Deposited $1,000 Bank=1150 Cash=0 Saved=no"},
        {"Bank=150 deposit more", noFunds},
        {"Bank=150 withdraw max", " - Withdrew $150 Bank=0 Cash=1150 Saved=no"},
        {"Bank=150 withdraw more", noFunds},
        {"Debt=5 borrow max", " - Borrowed $2,000 Debt=2005 Cash=3000 Saved=no"},
        {"Debt=5 borrow more", noLoan},
        {"Cash=60000000 borrow max", "... Debt=100000000 Cash=160000000 Saved=no"},
        {"Debt=700 repay max", " - Repayed $700 Debt=0 Cash=300 Saved=no"},
        {"Debt=1500 repay max", " - Repayed $1,000 Debt=500 Cash=0 Saved=no"},
        {"Debt=1500 repay more", noFunds},
        {"Debt=700 repay 1000", " - Repayed $1,000 Debt=-300 Cash=0 Saved=no"},
        {"Status=80 Cash=5000 mend", "... Status=88 Cash=200 Saved=no"},
        {"Status=80 Cash=599 mend", ""},
        {"Status=80 Cash=600 mend", "... Status=81 Cash=0 Saved=no"},
        {"Status=99.5 Cash=5000 mend",
         " - Repaired 0.5% of Ship for $300 Status=100 Cash=4700 Saved=no"},
        {"Cash=5000 mend", ""},
        {"Status=80 MaxHold=0 mend", ""},
        {"Status=80 Cash=-5000 repair 100", noFunds},
        {"Status=80 Cash=601 MaxHold=60.05 repair 82",
         " - Repaired 1% of Ship for $601 Status=81 Cash=0 Saved=no"},
        {"Status=80 Cash=600.5 MaxHold=60.05 repair 82", noFunds},
        {"PCannon=1000 Hold=51 cannon", "Insufficient Hold     "},
        {"PCannon=1001 cannon", "Insufficient Funds     "},
        {"PCannon=1000 Hold=50 cannon",
         " - Bought a New Cannon for $1,000 Cannons=1 Hold=60 Cash=0"},
        {"PShip=1001 larger", "Insufficient Funds     "},
        {"PShip=1000 Status=40 larger",
         " - Bought a New Ship for $1,000 Status=100 MaxHold=110 Cash=0"},

        {"Status=9 Bank=199 Debt=9 arrive 0 0 0 0 - 5/50 0", "... PGeneral=5 Payoff=1"},
        {"Bank=1000 Debt=-15 arrive 0 0 0 0 - - 0", "... Bank=1005 Debt=-17 Payoff=1"},
        {"MaxHold=30000 WSilk=1 Cash=9 events 2/5 2/12 3/25 4/25 5/25 -", ""},
        {"MaxHold=29999 events - 2/12 0 - - - -", "... +Ship cyan PShip=5000"},
        {"SOpium=1 Hold=1 Cash=1 events - - 3/25 1 - - -", "... $1 red Hold=0 SOpium=0 Cash=0"},
        {"SOpium=1 Hold=1 Cash=0.5 events - - 3/25 0 - - -", "... $1 red Hold=0 SOpium=0 Cash=0"},
        {"SOpium=1 Hold=1 Cash=0 events - - 3/25 4/25 - -", "... $0 red Hold=0 SOpium=0"},
        {"SOpium=1 Hold=1 Cash=-5 events - - 3/25 4/25 - -", "... $0 red Hold=0 SOpium=0"},
        {"Cash=10 events - - - 4/25 1 - -", "... $5 red Cash=5"},
        {shock + "1/8", " - The price of Opium has risen to $72,000 cyan POpium=72000"},
        {shock + "3/8", " - The price of Silk has risen to $6,600 cyan PSilk=6600"},
        {shock + "4/8", " - The price of Silk has dropped to $183 cyan PSilk=183"},
        {shock + "5/8", " - The price of Arms has risen to $540 cyan PArms=540"},
        {shock + "6/8", " - The price of Arms has dropped to $15 cyan PArms=15"},
        {shock + "7/8", " - The price of General has risen to $84 cyan PGeneral=84"},
        {"PGeneral=5 events - - - - - 1/25 8/8",
         " - The price of General has dropped to $1 cyan PGeneral=1"},
        {"At=Manila Status=99 Payoff=10 visitors", ""},
        {"At=Manila Status=99 Payoff=11 visitors",
         " - Kwan Tat has sent a lieutenant, Zhenbao.  He says his admiral wishes\n| to see you in "
         "Hong Kong, Posthaste!"},
        {"Payoff=10 visitors", " +Money"},
        {"Status=99 visitors", "...I can repair your ship'"},
        {"Payoff=11 Cash=22 visitors 0 0 yes",
         "... Goddess.   \n - Payed $22 in donation to the temple of Tin Hau Cash=0 Payoff=0"},
        {"Payoff=11 NetWorth=400 visitors 1 no", "... $20" + donation},
        {"Payoff=11 NetWorth=400 visitors 19/20 0 no", "... $40" + donation},
        {"Payoff=11 NetWorth=-2000 visitors 80/100 0 no", "... $58" + donation},

        {"MaxHold=-60 battle 1", "... fleet:1"},
        {"Payoff=10 battle 1", "... fleet:6"},
        {"Payoff=11 battle 1", "... fleet:12"},
        {"MaxHold=922337203685477 battle 1", "... fleet:48"},
        {"Cannons=1000000000 battle 1/4 fight 7/10 6/10 7/10 7/10 1",
         " battle -C status:100 cannons:1000000000\n"
         "Zhenbao, what shall we do? fleet:3 -D -R -C -F\n"
         "We're firing on 'em, Zhenbao! 2000 200 sink:3x5 fleet:2 200 200 sink:2x5 fleet:1 200 "
         "sink:1x5 fleet:0\n"
         "[] You got some booty worth $4,050     \n"
         " - You got some booty worth $4,050 finish Cash=5050"},
        {"Payoff=11 battle 0 run 1 1/8 1 3/10 3/10 3/10 1/25 run 1 2/8 1 3/10 1/25 run 1",
         "... but we escaped from 2 fleet:1 2000\n"
         "They're firing on us, Zhenbao! 2000\n"
         "Zhenbao, what shall we do? +R -C -D -R -C -F\n"
         "Aye, we'll run, Zhenbao! 2500\n"
         "We got away from them, Zhenbao!! 2000 finish"},
        {"Payoff=11 MaxHold=0 Hold=50 battle 1 run 25/100",
         "...away from them, Zhenbao!! 2000 finish"},
        {"Payoff=11 MaxHold=0 Hold=50 battle 1 run 26/100 1/8 1 3/10 1/25", "... +R -C"},
        {"Status=2 battle 1/4 run 1 2/8 0 4/10 4/10 yes",
         "... flash 200 status:1 flash 200 status:0 again? finish Status=0 Active=no Over=yes"},
        {"Status=1 Cannons=1 battle 1/4 death 6/10 4/10 no",
         " battle -C status:1 cannons:1\n"
         "Zhenbao, what shall we do? fleet:3 -D -R -C -F\n"
         "We're firing on 'em, Zhenbao! 500 50\n"
         "Sunk 0 of those buggers, Zhenbao! 500\n"
         "They're firing on us, Zhenbao! 500 flash 50 status:0 again? the end Status=0"},
        {"Cannons=5 SSilk=10 Hold=60 Payoff=10 battle 0 dump no 13/100 1/8",
         "... drove them off! 2000 finish"},
        {"Cannons=5 SSilk=10 Hold=60 battle 0 dump yes 13/100",
         "... dump? -C refresh -D -R -C -F\n"
         "Aye, we'll run, Zhenbao! 2500\n"
         "We got away from them, Zhenbao!! 2000 finish Hold=50 SSilk=0"},
    };
    for (const auto& [script, outcome] : rows) {
        const std::string text = told(script);
        EXPECT_TRUE(outcome.starts_with("...") ? text.ends_with(outcome.substr(3) + "\n")
                                               : text == outcome + (outcome.empty() ? "" : "\n"))
            << script << text;
    }
}

TEST(Rules, HoldWhereNoScriptReaches) {
    const GameState state = test::newGame("Cash=24000 Debt=700 Payoff=11");
    EXPECT_EQ(game::mostToBuy(state, {game::Place::Ship, {99, 0, 0, 0}}, game::Good::Opium), 2);
    EXPECT_EQ(game::mostToBuy(state, {game::Place::Ship, {0, 50, 0, 0}}, game::Good::Opium), 0);
    EXPECT_EQ(game::refuseRepayment(state, 700, false), std::nullopt);
    EXPECT_EQ(game::refuseRepayment(state, 701, false), "Over Payment   ");
    EXPECT_EQ(game::attackers(state), "Kwan Tat's Pirates");
    EXPECT_EQ(game::attackers(test::newGame("Payoff=10")), "Pirates");
    test::ScriptedRandom random{test::highestDraw, test::highestDraw};
    EXPECT_EQ(game::proposedPort(random, "Batavia"), "Hong Kong");
    EXPECT_EQ(game::proposedPort(random, "Atlantis"), "Batavia");
    std::string allowed;
    for (const char* figures : {"", "Status=99", "At=Manila Status=99"}) {
        for (const game::Order order : game::orders) {
            const auto port = game::allowedInPort(test::newGame(figures), order);
            allowed += !port ? '?' : *port ? '+' : '-';
        }
        allowed += ' ';
    }
    EXPECT_EQ(allowed, "++++?+-?? ++++?++?? +++----?? ");
}

TEST(Rules, BeginAGameThatKeepsPastOffersAndScore) {
    GameState before;
    test::eachMember([&before](std::string_view /*name*/, auto member) {
        if constexpr (std::is_same_v<decltype(member), game::Field>) {
            before.*member = 9;
        }
    });
    before.gblnMillionaire = before.gblnGameOver = true;
    EXPECT_FALSE(before.gblnGameSaved);
    std::string begun;
    for (const auto scenario : {game::Scenario::Cannons, game::Scenario::CashAndDebt}) {
        using test::lowestDraw, test::highestDraw;
        test::ScriptedRandom prices{lowestDraw, highestDraw, lowestDraw, highestDraw};
        GameState state = before;
        game::startGame(state, prices, scenario, "Heron");
        begun += test::changes(begun.empty() ? before : GameState{}, state) + "\n";
    }
    EXPECT_EQ(
        begun,
        " Date=Jan 15, 1860 Firm=Heron At=Hong Kong Cannons=5 Status=100 Hold=50 MaxHold=60 "
        "SOpium=0 SSilk=0 SArms=0 SGeneral=0 WOpium=0 WSilk=0 WArms=0 WGeneral=0 POpium=5000 "
        "PSilk=2500 PArms=50 PGeneral=25 Bank=0 Debt=0 Cash=0 Payoff=0 Millionaire=no "
        "Active=yes Over=no NetWorth=0\n"
        " Date=Jan 15, 1860 Firm=Heron At=Hong Kong Status=100 MaxHold=60 POpium=5000 PSilk=2500 "
        "PArms=50 PGeneral=25 Debt=5000 Cash=400 PCannon=9 PShip=9 Active=yes Score=9\n");
}

}  // namespace
