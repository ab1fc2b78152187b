// Every draw of the game against its exact odds, and the game's own generator against chance.
//
// A draw is given 20,000 numbers spread evenly over [0, 1). Each face has to come up as often as
// its odds say, to less than one time. A die with one side more or less, a face more or less
// likely than it should be by 1 in 10,000, is found with certainty, and nothing else is.
//
// The generator gives 20,000 numbers. The share of them below any bound may be off by 1.9 % of
// all (Kolmogorov and Smirnov): a fair one fails one time in a million, and as its seed is fixed
// it passes always or never.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <numeric>
#include <type_traits>
#include <vector>

#include "arrival.h"
#include "battle.h"
#include "events.h"
#include "games.h"
#include "market.h"
#include "silent_scenes.h"
#include "visitors.h"
#include "voyage.h"

using game::GameState;
using test::roll;

namespace {

constexpr int trials = 20'000;
constexpr double uneventful = 0.99;  ///< no die shows a face of interest
using Odds = std::vector<double>;

/// Draws as a story wants them until the one that is watched; nothing happens afterwards.
class Dice final : public game::Random {
public:
    Dice(const Odds& before, double watched) : m_before(before), m_watched(watched) {}

    double Rnd() override {
        const std::size_t draw = static_cast<std::size_t>(drawn++);
        return draw < m_before.size()    ? m_before[draw]
               : draw == m_before.size() ? m_watched
                                         : uneventful;
    }
    int drawn = 0;

private:
    const Odds& m_before;
    double m_watched;
};

/// A passage of one step, in which pirates may be met.
class OneStep final : public test::SilentVoyage {
public:
    explicit OneStep(GameState& state) : m_state(state) {}
    void wait(game::Milliseconds /*duration*/) override { m_state.gblnActiveGame = false; }
    void showBattle() override { m_state.gcurPayoff = 1; }

private:
    GameState& m_state;
};

/// One draw of the game: its faces' odds in any unit, the draws before it, and what it gives.
struct Draw {
    const char* name;
    Odds odds;
    Odds before;
    std::function<int(GameState&, Dice&)> given;
    int first = 0;  ///< what the first face gives
};

Odds even(std::size_t faces) {
    return Odds(faces, 1);
}
Odds oneIn(int sides) {
    return {sides - 1.0, 1};
}
/// From 1 to half of `amount`, the last face half as likely where the half is not whole.
Odds upToHalf(int amount) {
    Odds odds(static_cast<std::size_t>(amount / 2), 2);
    odds.resize(static_cast<std::size_t>(amount + 1) / 2, 1);
    return odds;
}
/// `quiet` draws that bring nothing, then `last`.
Odds after(std::size_t quiet, std::initializer_list<double> last = {}) {
    Odds draws(quiet, uneventful);
    draws.insert(draws.end(), last);
    return draws;
}

int port(std::string_view name) {
    return static_cast<int>(std::find(game::ports.begin(), game::ports.end(), name) -
                            game::ports.begin());
}

const GameState common = test::newGameWith([](GameState& state) {
    state.gcurHold = state.gcurSOpium = 30;
    state.gcurCash = 101;
    state.gcurStatus = 99;
    for (const game::GoodRow& good : game::goods) {
        state.*good.warehouse = 101;
        state.*good.price = 600;
    }
});

using Change = std::function<int(const GameState&)>;
/// What an arrival at Manila, its events or a battle's draw change in the record.
auto arriving(const Change& change) {
    return [change](GameState& state, Dice& dice) {
        test::SilentVoyage scene;
        game::arrive(state, dice, scene, "Manila");
        return change(state);
    };
}
auto meeting(const Change& change) {
    return [change](GameState& state, Dice& dice) {
        test::SilentVoyage scene;
        game::meetEvents(state, dice, scene);
        return change(state);
    };
}
/// What a function that does nothing but draw gives.
template <class Function>
auto drawing(Function draw) {
    return [draw](GameState& state, Dice& dice) {
        if constexpr (std::is_invocable_v<Function, GameState&, Dice&>) {
            return game::Currency{draw(state, dice)}.toInt();
        } else {
            return game::Currency{draw(dice)}.toInt();
        }
    };
}
Change value(game::Field field) {
    return [field](const GameState& state) { return (state.*field).toInt(); };
}
Change lost(game::Field field) {
    return [field](const GameState& state) { return (common.*field - state.*field).toInt(); };
}
Change differs(game::Field field) {
    return [field](const GameState& state) { return state.*field == common.*field ? 0 : 1; };
}

std::vector<Draw> draws() {
    const Change shockedPrice = [](const GameState& state) {
        for (const game::GoodRow& good : game::goods) {
            if (state.*good.price != 600) {
                return 2 * static_cast<int>(good.good) + (state.*good.price == 100 ? 1 : 0);
            }
        }
        return -1;
    };
    const auto blownTo = [](GameState& state, Dice& dice) {
        test::SilentVoyage scene;
        state.gcurStatus = 9;  // no storm
        game::arrive(state, dice, scene, "Manila");
        return dice.drawn > 8 ? port("Manila") : port(state.gstrLocation);  // drawn again
    };
    const auto pirates = [](GameState& state, Dice& dice) {
        OneStep scene(state);
        game::sail(state, dice, scene, "Manila");
        return state.gcurPayoff.toInt();
    };
    const auto tribute = [](GameState& state, Dice& dice) {
        state.gcurNetWorth = 2'000;
        const int asked = game::drawTribute(state, dice).toInt();  // below 20 it grows by 100
        return asked > 100 ? asked - 100 : asked;
    };
    std::vector<Draw> all{
        {"port",
         {1, 1, 1, 1, 0, 2, 1},
         {},
         [](GameState&, Dice& dice) { return port(game::proposedPort(dice, "Manila")); }},
        {"pirates", oneIn(110), {}, pirates},
        {"blown off course", oneIn(25), after(4),
         arriving([](const GameState& state) { return state.gstrLocation == "Manila" ? 0 : 1; })},
        {"the port blown to", even(7), after(4, {roll(1, 25)}), blownTo},
        {"storm", oneIn(50), after(5), arriving(differs(&GameState::gcurStatus))},
        {"storm's damage", upToHalf(99), after(5, {roll(5, 50)}),
         arriving(lost(&GameState::gcurStatus)), 1},
        {"tribute counter", even(2), after(6), arriving(value(&GameState::gcurPayoff)), 1},
        {"cannon", oneIn(5), {}, meeting(differs(&GameState::gcurPCannon))},
        {"cannon's price", even(2'601), {roll(1, 5)}, meeting(value(&GameState::gcurPCannon)), 400},
        {"ship", oneIn(12), after(1), meeting(differs(&GameState::gcurPShip))},
        {"ship's price", even(19'001), after(1, {roll(2, 12)}),
         meeting(value(&GameState::gcurPShip)), 5'000},
        {"seizure", oneIn(25), after(2), meeting(differs(&GameState::gcurSOpium))},
        {"fine", upToHalf(101), after(2, {roll(3, 25)}), meeting(lost(&GameState::gcurCash)), 1},
        {"robbery", oneIn(25), after(3), meeting(differs(&GameState::gcurCash))},
        {"robbed", upToHalf(101), after(3, {roll(4, 25)}), meeting(lost(&GameState::gcurCash)), 1},
        {"theft", oneIn(25), after(4), meeting(differs(&GameState::gcurWSilk))},
        {"shock", oneIn(25), after(5),
         meeting([=](const GameState& state) { return shockedPrice(state) < 0 ? 0 : 1; })},
        {"price shocked", even(8), after(5, {roll(1, 25)}), meeting(shockedPrice)},
        {"tribute", even(100), {}, tribute, 1},
        {"the poor's tribute", even(80), {0.5}, drawing(game::drawTribute), 22},
        {"fleet", even(4), {}, drawing(game::drawFleet), 3},
        {"hit", {6, 4}, {}, drawing(game::drawHit)},
        {"hit taken", {3, 7}, {}, drawing(game::drawHitTaken)},
        {"cannon hit", oneIn(25), {}, drawing(game::drawCannonHit)},
        {"escape, half loaded", oneIn(6), {}, drawing(game::drawEscape)},
        {"rescue", oneIn(8), {}, drawing(game::drawRescue)},
        {"shaken off",
         upToHalf(5),
         {},
         drawing([](Dice& dice) { return game::drawShakenOff(dice, 5); }),
         1},
        {"booty",
         even(1'051),
         {},
         drawing([](Dice& dice) { return game::drawBooty(dice, 1); }),
         300},
    };
    for (const game::GoodRow& good : game::goods) {
        all.push_back({"price", even(21), after(game::index(good.good)),
                       [&good](GameState& state, Dice& dice) {
                           game::drawPrices(state, dice);
                           return (state.*good.price).toInt() / good.priceStep;
                       },
                       5});
        Odds earlier = after(4, {roll(5, 25)});
        earlier.resize(5 + game::index(good.good), uneventful);
        all.push_back({"theft's loss", upToHalf(101), earlier, meeting(lost(good.warehouse)), 1});
    }
    return all;
}

TEST(Chance, KeepsTheOddsOfEveryDraw) {
    for (const Draw& draw : draws()) {
        SCOPED_TRACE(draw.name);
        Odds counts(draw.odds.size());
        for (int trial = 0; trial < trials; ++trial) {
            GameState state = common;
            Dice dice(draw.before, (trial + 0.5) / trials);
            counts.at(static_cast<std::size_t>(draw.given(state, dice) - draw.first)) += 1;
        }
        const double whole = std::accumulate(draw.odds.begin(), draw.odds.end(), 0.0);
        for (std::size_t face = 0; face < draw.odds.size(); ++face) {
            EXPECT_LT(std::abs(counts[face] - trials * draw.odds[face] / whole), 1) << face;
        }
    }
}

TEST(Chance, IsSpreadEvenlyByTheGenerator) {
    game::Generator generator(1'860);
    Odds numbers(trials);
    std::generate(numbers.begin(), numbers.end(), [&] { return generator.Rnd(); });
    std::sort(numbers.begin(), numbers.end());
    for (int below = 0; below < trials; ++below) {
        EXPECT_NEAR(numbers[static_cast<std::size_t>(below)], (below + 0.5) / trials, 0.019);
    }
}

}  // namespace
