#include "battle.h"

#include <gtest/gtest.h>

#include <tuple>
#include <vector>

#include "games.h"
#include "transcript.h"

using game::Battle;
using game::Currency;
using game::GameState;
using test::highestDraw;
using test::lowestDraw;
using test::roll;

namespace {

const double hit = roll(7, 10);
const double miss = roll(6, 10);
const double hitTaken = roll(4, 10);
const double theyMiss = roll(3, 10);
const double cannonHit = roll(2, 25);
const double cannonsSafe = roll(1, 25);

/// A battle watched by nobody: one line for each report, on it the waits in milliseconds and
/// whatever happens until the next report.
class Story final : public game::BattleScene {
public:
    test::Transcript transcript;
    bool answer = true;

    void setOrderEnabled(game::BattleOrder order, bool enabled) override {
        const char* names = "FDRC";  // Fight, to the Death, Run, dump Cargo
        tell((enabled ? "+" : "-") + std::string{names[static_cast<int>(order)]});
    }
    void report(std::string_view text) override { transcript.line(text); }
    void showFleet(Currency ships) override { tell("fleet:" + plainText(ships)); }
    void showStatus(Currency percent) override { tell("status:" + plainText(percent)); }
    void showCannons(Currency cannons) override { tell("cannons:" + plainText(cannons)); }
    void sinkLast(Currency ships, game::Milliseconds step) override {
        tell("sink:" + plainText(ships) + "x" + std::to_string(step.count()));
    }
    void flash() override { tell("flash"); }
    void wait(game::Milliseconds duration) override { tell(std::to_string(duration.count())); }
    void appendEntry(std::string_view message) override { tell("[" + std::string{message} + "]"); }
    void refresh() override { tell("refresh"); }
    void inform(std::string_view text) override { tell("(" + std::string{text} + ")"); }
    bool confirmDumping() override { return tell("dump?"), answer; }
    bool playAgain() override { return tell("again?"), answer; }
    void finish() override { tell("finish"); }
    void endProgram() override { tell("the end"); }

private:
    void tell(const std::string& event) { transcript.tail(" " + event); }
};

/// The whole encounter; the first draw is the fleet's.
std::string play(GameState& state, test::ScriptedRandom&& random,
                 const std::vector<void (Battle::*)()>& orders, bool answer = true) {
    Story story;
    story.answer = answer;
    Battle battle(state, random, story);
    battle.open();
    for (const auto order : orders) {
        (battle.*order)();
    }
    return story.transcript.take();
}

GameState armed(int cannons, int silk = 0) {
    return test::newGameWith([=](GameState& state) {
        state.gcurCannons = cannons;
        state.gcurSSilk = silk;
        state.gcurHold = game::holdPerCannon * cannons + silk;
    });
}

TEST(Battle, DrawsTheFleetByTheHoldAndTheTributeOwed) {
    GameState state = armed(0);
    std::vector<Currency> fleets;
    for (const Currency maxHold :
         {Currency{-60}, Currency{60}, Currency{460}, Currency::highest()}) {
        for (const int payoff : {10, 11}) {
            state.gcurMaxHold = maxHold;
            state.gcurPayoff = payoff;
            test::ScriptedRandom random{highestDraw};
            fleets.push_back(game::drawFleet(state, random));
            EXPECT_EQ(game::attackers(state), payoff > 10 ? "Kwan Tat's Pirates" : "Pirates");
        }
    }
    EXPECT_EQ(fleets, (std::vector<Currency>{1, 1, 6, 12, 46, 48, 48, 48}));
}

TEST(Battle, EscapesTheLighterTheShipIs) {
    GameState state = armed(0);
    for (const auto& [hold, maxHold, oneIn] :
         {std::tuple{0, 60, 4}, {60, 60, 8}, {120, 60, 12}, {50, 0, 4}}) {
        state.gcurHold = hold;
        state.gcurMaxHold = maxHold;
        test::ScriptedRandom random{1.0 / oneIn - 1e-9, 1.0 / oneIn + 1e-9};
        EXPECT_TRUE(game::drawEscape(state, random)) << hold << " of " << maxHold;
        EXPECT_FALSE(game::drawEscape(state, random)) << hold << " of " << maxHold;
    }
}

TEST(Battle, WinsInMidVolley) {
    GameState state = armed(1'000'000'000);
    EXPECT_EQ(play(state, {roll(1, 4), hit, miss, hit, hit, highestDraw}, {&Battle::fight}),
              " -C status:100 cannons:1000000000\n"
              "Zhenbao, what shall we do? fleet:3 -D -R -C -F\n"
              "We're firing on 'em, Zhenbao! 2000 200 sink:3x5 fleet:2 200 200 sink:2x5 fleet:1"
              " 200 sink:1x5 fleet:0 (You got some booty worth $4,050     )"
              " [ - You got some booty worth $4,050] finish\n");
    EXPECT_EQ(state.gcurCash, 1'000 + 4'050);
    EXPECT_TRUE(state.gblnActiveGame);
}

TEST(Battle, Runs) {
    const std::string away = "We got away from them, Zhenbao!! 2000 finish\n";
    const std::string drivenOff = "Kwan Tat's fleet drove them off! 2000 finish\n";
    const std::string notYet = "Can't lose 'em, but we escaped from ";
    const std::string underFire =
        " 2000\nThey're firing on us, Zhenbao! 2000\nZhenbao, what shall we do? +R -C\n";
    const double low = lowestDraw;
    const double high = highestDraw;
    const auto runWith = [](int maxHold, int payoff, const std::vector<double>& draws,
                            const std::string& outcome) {
        GameState state = armed(0);
        state.gcurMaxHold = maxHold;
        state.gcurPayoff = payoff;
        const std::string told = play(state, test::ScriptedRandom{draws}, {&Battle::run});
        EXPECT_TRUE(told.starts_with(" -F -D -C status:100 cannons:0\n")) << told;
        EXPECT_TRUE(told.ends_with(" -D -R -C -F\nAye, we'll run, Zhenbao! 2500\n" + outcome))
            << told;
    };
    runWith(60, 0, {low, low}, away);
    runWith(0, 0, {high, high}, away);  // a single ship
    runWith(60, 10, {low, high, roll(1, 8)}, drivenOff);
    runWith(60, 11, {low, high, roll(1, 8), high, theyMiss, theyMiss, theyMiss, cannonsSafe},
            notYet + "3 fleet:3" + underFire);
    runWith(60, 0, {low, high, roll(2, 8), high, theyMiss, cannonsSafe},
            notYet + "2 fleet:1" + underFire);
    runWith(0, 0, {roll(1, 2), high, high, high, theyMiss, cannonsSafe},
            notYet + "1 fleet:1" + underFire);
}

TEST(Battle, FightsToTheDeathUntilTheLastCannonIsLost) {
    GameState state = armed(2, 1);
    test::ScriptedRandom draws{roll(1, 4)};
    draws.add({miss, miss, hitTaken, theyMiss, theyMiss, cannonHit});
    draws.add({miss, theyMiss, theyMiss, theyMiss, cannonsSafe});
    draws.add({hit, theyMiss, theyMiss, cannonHit});
    draws.add({highestDraw, highestDraw, lowestDraw, theyMiss, cannonHit});  // none is left to hit
    EXPECT_EQ(play(state, std::move(draws), {&Battle::fight, &Battle::fightToDeath, &Battle::run}),
              " status:100 cannons:2\n"
              "Zhenbao, what shall we do? fleet:3 -D -R -C -F\n"
              "We're firing on 'em, Zhenbao! 2000 200 200\n"
              "Sunk 0 of those buggers, Zhenbao! 2000\n"
              "They're firing on us, Zhenbao! 2000 flash 200 status:99\n"
              "The buggers hit a Cannon, Zhenbao! cannons:1"
              " [ - The buggers hit a Cannon, Zhenbao] refresh 2000\n"
              "Zhenbao, what shall we do? +F +R +D +C -D -R -C -F\n"
              "We're firing on 'em, Zhenbao! 500 50\n"
              "Sunk 0 of those buggers, Zhenbao! 500\n"
              "They're firing on us, Zhenbao! 500\n"
              "Zhenbao, what shall we do? +F +R +D +C -D -R -C -F\n"
              "We're firing on 'em, Zhenbao! 500 50 sink:3x0 fleet:2\n"
              "Sunk 1 of those buggers, Zhenbao! 500\n"
              "They're firing on us, Zhenbao! 500\n"
              "The buggers hit a Cannon, Zhenbao! cannons:0"
              " [ - The buggers hit a Cannon, Zhenbao] refresh 500\n"
              "Zhenbao, what shall we do? +R +C -D -R -C -F\n"
              "Aye, we'll run, Zhenbao! 2500\n"
              "Can't lose 'em, but we escaped from 1 fleet:1 2000\n"
              "They're firing on us, Zhenbao! 500\n"
              "Zhenbao, what shall we do? +R +C\n");
    EXPECT_EQ(state.gcurHold, 1) << "the cannons' weight is gone with them";
}

TEST(Battle, SinksOnTheVeryShot) {
    const auto sinkWith = [](bool again, int condition, const std::vector<double>& draws,
                             void (Battle::*order)(), const char* end) {
        GameState state = armed(1);
        state.gcurStatus = condition;
        GameState expected = state;
        expected.gcurStatus = 0;
        expected.gblnActiveGame = !again;
        expected.gblnGameOver = again;
        const std::string told = play(state, test::ScriptedRandom{draws}, {order}, again);
        EXPECT_TRUE(told.starts_with(" -C status:") && told.ends_with(end)) << told;
        EXPECT_EQ(state, expected);
    };
    sinkWith(true, 2, {roll(1, 4), highestDraw, highestDraw, lowestDraw, hitTaken, hitTaken},
             &Battle::run, "2000 flash 200 status:1 flash 200 status:0 again? finish\n");
    sinkWith(false, 1, {roll(1, 4), miss, hitTaken}, &Battle::fightToDeath,
             " 500 flash 50 status:0 again? the end\n");
}

TEST(Battle, DumpsCargoToRunLighter) {
    GameState state = armed(5, 10);
    EXPECT_TRUE(play(state, {roll(4, 4)}, {&Battle::dumpCargo}, false).ends_with(" dump?\n"));
    EXPECT_EQ(state, armed(5, 10)) << "not without a Yes";
    const double betweenBothOdds = 0.13;  // 1 in 8 with the silk, 1 in 7 1/3 without
    EXPECT_TRUE(play(state, {roll(4, 4), betweenBothOdds}, {&Battle::dumpCargo, &Battle::run})
                    .ends_with("fleet:6 dump? -C refresh -D -R -C -F\nAye, we'll run, Zhenbao! "
                               "2500\nWe got away from them, Zhenbao!! 2000 finish\n"));
    EXPECT_EQ(state, armed(5));
}

}  // namespace
