#include "battle.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "games.h"
#include "standing.h"
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

struct ProgramEnded {};

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
    void endProgram() override { throw ProgramEnded{}; }

private:
    void tell(const std::string& event) { transcript.tail(" " + event); }
};

using Orders = std::vector<void (Battle::*)()>;

/// The whole encounter; the first draw is the fleet's.
std::string play(GameState& state, const std::vector<double>& draws, const Orders& orders,
                 bool answer = true) {
    test::ScriptedRandom random;
    for (const double draw : draws) {
        random.add({draw});
    }
    Story story;
    story.answer = answer;
    Battle battle(state, random, story);
    battle.open();
    try {
        for (const auto order : orders) {
            (battle.*order)();
        }
    } catch (const ProgramEnded&) {
        story.transcript.tail(" the end");
    }
    return story.transcript.take();
}

GameState armed(int cannons, int silk = 0) {
    return test::newGameWith([=](GameState& state) {
        state.gcurCannons = cannons;
        state.gcurSSilk = silk;
        state.gcurHold = cannons * 10 + silk;
    });
}

/// Pearson's sum for many trials of a draw against its exact probabilities, face by face from 0.
template <class Draw>
void expectFrequencies(const std::vector<double>& probabilities, Draw draw) {
    constexpr int trials = 125'000;
    std::vector<int> counts(probabilities.size());
    for (int trial = 0; trial < trials; ++trial) {
        ++counts.at(static_cast<std::size_t>(draw()));
    }
    double sum = 0;
    for (std::size_t face = 0; face < counts.size(); ++face) {
        const double expected = trials * probabilities[face];
        sum += (counts[face] - expected) * (counts[face] - expected) / expected;
    }
    const auto freedom = static_cast<double>(counts.size() - 1);
    EXPECT_LT(sum, freedom + 4 * std::sqrt(2 * freedom)) << "of " << counts.size() << " faces";
}

}  // namespace

TEST(Battle, DrawsTheFleetByTheHoldAndTheTributeOwed) {
    const Currency most = Currency::highest();
    struct Case {
        Currency hold;
        int payoff;
        double draw;
        int ships;
    };
    for (const Case& c : {Case{60, 10, lowestDraw, 3},
                          {60, 10, highestDraw, 6},
                          {60, 11, lowestDraw, 6},
                          {60, 11, highestDraw, 12},
                          {65, 0, highestDraw, 7},
                          {460, 0, highestDraw, 46},
                          {510, 0, highestDraw, 48},
                          {460, 11, highestDraw, 48},
                          {0, 0, highestDraw, 1},
                          {-60, 11, highestDraw, 1},
                          {most, 11, lowestDraw, 6},
                          {most, 11, highestDraw, 48}}) {
        const GameState state = test::newGameWith([&c](GameState& changed) {
            changed.gcurMaxHold = c.hold;
            changed.gcurPayoff = c.payoff;
        });
        test::ScriptedRandom random{c.draw};
        EXPECT_EQ(game::drawFleet(state, random), c.ships)
            << plainText(c.hold) << " units at " << c.draw;
        EXPECT_EQ(game::attackers(state), c.payoff > 10 ? "Kwan Tat's Pirates" : "Pirates");
    }
}

TEST(Battle, EscapesTheLighterTheShipIs) {
    struct Case {
        int hold;
        int maxHold;
        double chance;
    };
    for (const Case& c : {Case{0, 60, 1 / 4.0},
                          {60, 60, 1 / 8.0},
                          {30, 60, 1 / 6.0},
                          {120, 60, 1 / 12.0},
                          {50, 0, 1 / 4.0}}) {
        const GameState state = test::newGameWith([&c](GameState& changed) {
            changed.gcurHold = c.hold;
            changed.gcurMaxHold = c.maxHold;
        });
        test::ScriptedRandom random{lowestDraw, c.chance - 1e-9, c.chance + 1e-9, highestDraw};
        for (const bool escaped : {true, true, false, false}) {
            EXPECT_EQ(game::drawEscape(state, random), escaped) << c.hold << " of " << c.maxHold;
        }
    }
}

TEST(Battle, ShakesOffUpToHalfAndPaysOneRateForAll) {
    for (const auto& [ships, most] : {std::pair{2, 1}, {3, 2}, {47, 24}, {48, 24}}) {
        test::ScriptedRandom random{lowestDraw, highestDraw};
        EXPECT_EQ(game::drawShakenOff(random, ships), 1);
        EXPECT_EQ(game::drawShakenOff(random, ships), most) << ships;
    }
    test::ScriptedRandom random{lowestDraw, highestDraw};
    EXPECT_EQ(game::drawBooty(random, 3), 900);
    EXPECT_EQ(game::drawBooty(random, 3), 4'050);
}

TEST(Battle, DrawsAtItsExactFrequencies) {
    game::Generator random{1860};
    const GameState state = armed(3);  // half full: one in six escapes
    const auto even = [](int faces) {
        return std::vector<double>(static_cast<std::size_t>(faces), 1.0 / faces);
    };
    expectFrequencies({0.6, 0.4}, [&] { return game::drawHit(random); });
    expectFrequencies({0.3, 0.7}, [&] { return game::drawHitTaken(random); });
    expectFrequencies({24 / 25.0, 1 / 25.0}, [&] { return game::drawCannonHit(random); });
    expectFrequencies({5 / 6.0, 1 / 6.0}, [&] { return game::drawEscape(state, random); });
    expectFrequencies({7 / 8.0, 1 / 8.0}, [&] { return game::drawRescue(random); });
    expectFrequencies(even(4), [&] { return game::drawFleet(state, random).toInt() - 3; });
    expectFrequencies({2 / 5.0, 2 / 5.0, 1 / 5.0},  // half of five ships is two and a half
                      [&] { return game::drawShakenOff(random, 5).toInt() - 1; });
    expectFrequencies(even(1'051), [&] { return game::drawBooty(random, 1).toInt() - 300; });
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
    const double low = lowestDraw;
    const double high = highestDraw;
    const double rescue = roll(1, 8);
    const double two = roll(1, 2);  // without capacity there are 1 to 3 ships
    const std::string away = "We got away from them, Zhenbao!! 2000 finish\n";
    const std::string drivenOff = "Kwan Tat's fleet drove them off! 2000 finish\n";
    struct Case {
        int maxHold;
        int payoff;
        std::vector<double> draws;
        std::string outcome;
        int left = 0;
    };
    for (Case c : {Case{60, 0, {low, low}, away},
                   {0, 0, {high, high}, away},
                   {60, 10, {low, high, rescue}, drivenOff},
                   {60, 11, {low, high, rescue, high}, "from 3 fleet:3 2000\n", 3},
                   {60, 0, {low, high, roll(2, 8), high}, "from 2 fleet:1 2000\n", 1},
                   {0, 0, {two, high, high, high}, "from 1 fleet:1 2000\n", 1},
                   {480, 0, {high, high, high, high}, "from 24 fleet:24 2000\n", 24}}) {
        GameState state = armed(0);
        state.gcurMaxHold = c.maxHold;
        state.gcurPayoff = c.payoff;
        if (c.left > 0) {
            c.draws.insert(c.draws.end(), static_cast<std::size_t>(c.left), theyMiss);
            c.draws.push_back(cannonHit);  // drawn also without a cannon aboard
            c.outcome = "Can't lose 'em, but we escaped " + c.outcome +
                        "They're firing on us, Zhenbao! 2000\n"
                        "Zhenbao, what shall we do? +R -C\n";
        }
        const std::string told = play(state, c.draws, {&Battle::run});
        EXPECT_TRUE(told.starts_with(" -F -D -C status:100 cannons:0\n")) << told;
        EXPECT_TRUE(told.ends_with(" -D -R -C -F\nAye, we'll run, Zhenbao! 2500\n" + c.outcome))
            << told;
    }
}

TEST(Battle, LosesACannonAndItsWeight) {
    GameState state = armed(2, 1);
    EXPECT_EQ(play(state, {roll(1, 4), miss, hit, hitTaken, theyMiss, cannonHit}, {&Battle::fight}),
              " status:100 cannons:2\n"
              "Zhenbao, what shall we do? fleet:3 -D -R -C -F\n"
              "We're firing on 'em, Zhenbao! 2000 200 200 sink:3x5 fleet:2\n"
              "Sunk 1 of those buggers, Zhenbao! 2000\n"
              "They're firing on us, Zhenbao! 2000 flash 200 status:99\n"
              "The buggers hit a Cannon, Zhenbao! cannons:1"
              " [ - The buggers hit a Cannon, Zhenbao] refresh 2000\n"
              "Zhenbao, what shall we do? +F +R +D +C\n");
    EXPECT_EQ(state.gcurHold, 11);
}

TEST(Battle, FightsToTheDeathUntilTheLastCannonIsLost) {
    GameState state = armed(1);
    EXPECT_EQ(
        play(state,
             {roll(1, 4), miss, theyMiss, theyMiss, theyMiss, cannonsSafe, hit, hitTaken, theyMiss,
              cannonHit, highestDraw, highestDraw, lowestDraw, theyMiss, cannonsSafe},
             {&Battle::fightToDeath, &Battle::run}),
        " -C status:100 cannons:1\n"
        "Zhenbao, what shall we do? fleet:3 -D -R -C -F\n"
        "We're firing on 'em, Zhenbao! 500 50\n"
        "Sunk 0 of those buggers, Zhenbao! 500\n"
        "They're firing on us, Zhenbao! 500\n"
        "Zhenbao, what shall we do? +F +R +D -C -D -R -C -F\n"
        "We're firing on 'em, Zhenbao! 500 50 sink:3x0 fleet:2\n"
        "Sunk 1 of those buggers, Zhenbao! 500\n"
        "They're firing on us, Zhenbao! 500 flash 50 status:99\n"
        "The buggers hit a Cannon, Zhenbao! cannons:0"
        " [ - The buggers hit a Cannon, Zhenbao] refresh 500\n"
        "Zhenbao, what shall we do? +R -C -D -R -C -F\n"
        "Aye, we'll run, Zhenbao! 2500\n"
        "Can't lose 'em, but we escaped from 1 fleet:1 2000\n"
        "They're firing on us, Zhenbao! 500\n"
        "Zhenbao, what shall we do? +R -C\n");
}

TEST(Battle, SinksOnTheVeryShot) {
    for (const bool again : {true, false}) {
        GameState state = armed(0);
        state.gcurStatus = 2;
        GameState expected = state;
        expected.gcurStatus = 0;
        if (again) {
            game::endGame(expected);
        }
        const std::string told = play(state,
                                      {roll(4, 4), highestDraw, highestDraw, lowestDraw,  // 5 left
                                       hitTaken, theyMiss, hitTaken},
                                      {&Battle::run}, again);
        EXPECT_TRUE(told.ends_with(
            std::string{"Zhenbao! 2000 flash 200 status:1 flash 200 status:0 again?"} +
            (again ? " finish\n" : " the end\n")))
            << told;
        EXPECT_EQ(state, expected);
    }
}

TEST(Battle, DumpsCargoToRunLighter) {
    GameState state = armed(5, 10);
    GameState expected = state;
    expected.gcurSSilk = 0;
    expected.gcurHold = 50;
    const double betweenBothOdds = 0.13;  // 1 in 8 with the silk, 1 in 7 1/3 without
    EXPECT_EQ(play(state, {roll(4, 4), betweenBothOdds}, {&Battle::dumpCargo, &Battle::run}),
              " status:100 cannons:5\n"
              "Zhenbao, what shall we do? fleet:6 dump? -C refresh -D -R -C -F\n"
              "Aye, we'll run, Zhenbao! 2500\n"
              "We got away from them, Zhenbao!! 2000 finish\n");
    EXPECT_EQ(state, expected);
}
