// Every draw of the game against its exact odds, each judged twice.
//
// Evenly: the draw is given 20,000 numbers spread evenly over [0, 1). Each face has to come up as
// often as its odds say, to less than one time. A die with one side more or less, a face more or
// less likely than it should be by 1 in 10,000, is found with certainty, and nothing else is.
//
// By chance: 20,000 numbers of the game's own generator and Pearson's sum, of at most 50 cells. A
// fair draw fails one time in a million (z = 4.75); the seeds are fixed, so it passes always or
// never. An unfair one is found 99 times in 100 where, by its two faces, 1 in 110 is off by 56 %
// of itself, 1 in 25 by 27 %, 1 in 8 by 15 % or 4 in 10 by 7 %; or where one of 21 faces is off by
// 31 %, one of 50 cells by 54 %.

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <numeric>
#include <optional>
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

/// One draw of the game: its faces' odds in any unit, the draws before it, and the face it shows.
struct Draw {
    const char* name;
    Odds odds;
    Odds before;
    std::function<int(GameState&, Dice&)> face;
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
auto drawing(bool (*draw)(game::Random&)) {
    return [draw](GameState& /*state*/, Dice& dice) { return draw(dice) ? 1 : 0; };
}
Change lost(game::Field field) {
    return [field](const GameState& state) { return (common.*field - state.*field).toInt() - 1; };
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
        return asked > 100 ? asked - 101 : asked - 1;
    };
    std::vector<Draw> all{
        {"the port proposed",
         {1, 1, 1, 1, 0, 2, 1},
         {},
         [](GameState&, Dice& dice) { return port(game::proposedPort(dice, "Manila")); }},
        {"pirates", oneIn(110), {}, pirates},
        {"blown off course", oneIn(25), after(4),
         arriving([](const GameState& state) { return state.gstrLocation == "Manila" ? 0 : 1; })},
        {"the port blown to", even(7), after(4, {roll(1, 25)}), blownTo},
        {"storm", oneIn(50), after(5), arriving(differs(&GameState::gcurStatus))},
        {"storm's damage", upToHalf(99), after(5, {roll(5, 50)}),
         arriving(lost(&GameState::gcurStatus))},
        {"tribute counter", even(2), after(6),
         arriving([](const GameState& state) { return state.gcurPayoff.toInt() - 1; })},
        {"cannon", oneIn(5), {}, meeting(differs(&GameState::gcurPCannon))},
        {"cannon's price", even(2'601), {roll(1, 5)}, meeting([](const GameState& state) {
             return state.gcurPCannon.toInt() - 400;
         })},
        {"ship", oneIn(12), after(1), meeting(differs(&GameState::gcurPShip))},
        {"ship's price", even(19'001), after(1, {roll(2, 12)}),
         meeting([](const GameState& state) { return state.gcurPShip.toInt() - 5'000; })},
        {"seizure", oneIn(25), after(2), meeting(differs(&GameState::gcurSOpium))},
        {"fine", upToHalf(101), after(2, {roll(3, 25)}), meeting(lost(&GameState::gcurCash))},
        {"robbery", oneIn(25), after(3), meeting(differs(&GameState::gcurCash))},
        {"robbery's loss", upToHalf(101), after(3, {roll(4, 25)}),
         meeting(lost(&GameState::gcurCash))},
        {"theft", oneIn(25), after(4), meeting(differs(&GameState::gcurWSilk))},
        {"shock", oneIn(25), after(5),
         meeting([=](const GameState& state) { return shockedPrice(state) < 0 ? 0 : 1; })},
        {"price shocked", even(8), after(5, {roll(1, 25)}), meeting(shockedPrice)},
        {"tribute", even(100), {}, tribute},
        {"the poor's tribute",
         even(80),
         {0.5},
         [](GameState& state, Dice& dice) { return game::drawTribute(state, dice).toInt() - 22; }},
        {"fleet",
         even(4),
         {},
         [](GameState& state, Dice& dice) { return game::drawFleet(state, dice).toInt() - 3; }},
        {"hit", {6, 4}, {}, drawing(game::drawHit)},
        {"hit taken", {3, 7}, {}, drawing(game::drawHitTaken)},
        {"cannon hit", oneIn(25), {}, drawing(game::drawCannonHit)},
        {"escape, half loaded",
         oneIn(6),
         {},
         [](GameState& state, Dice& dice) { return game::drawEscape(state, dice) ? 1 : 0; }},
        {"rescue", oneIn(8), {}, drawing(game::drawRescue)},
        {"shaken off",
         upToHalf(5),
         {},
         [](GameState&, Dice& dice) { return game::drawShakenOff(dice, 5).toInt() - 1; }},
        {"booty",
         even(1'051),
         {},
         [](GameState&, Dice& dice) { return game::drawBooty(dice, 1).toInt() - 300; }},
    };
    for (const game::GoodRow& good : game::goods) {
        all.push_back({"price", even(21), after(game::index(good.good)),
                       [&good](GameState& state, Dice& dice) {
                           game::drawPrices(state, dice);
                           return (state.*good.price).toInt() / good.priceStep - 5;
                       }});
        Odds earlier = after(4, {roll(5, 25)});
        earlier.resize(5 + game::index(good.good), uneventful);
        all.push_back({"theft's loss", upToHalf(101), earlier, meeting(lost(good.warehouse))});
    }
    return all;
}

/// How often each face came up.
Odds thrown(const Draw& draw, const std::function<double(int)>& number) {
    Odds counts(draw.odds.size());
    for (int trial = 0; trial < trials; ++trial) {
        GameState state = common;
        Dice dice(draw.before, number(trial));
        counts.at(static_cast<std::size_t>(draw.face(state, dice))) += 1;
    }
    return counts;
}

/// Pearson's sum as a figure of the normal distribution (Wilson and Hilferty).
double deviation(const Odds& counts, const Odds& odds, double whole) {
    const std::size_t cells = std::min<std::size_t>(odds.size(), 50);
    Odds seen(cells);
    Odds expected(cells);
    for (std::size_t face = 0; face < odds.size(); ++face) {
        seen[face * cells / odds.size()] += counts[face];
        expected[face * cells / odds.size()] += trials * odds[face] / whole;
    }
    double sum = 0;
    double freedom = -1;
    for (std::size_t cell = 0; cell < cells; ++cell) {
        if (expected[cell] > 0) {
            sum += (seen[cell] - expected[cell]) * (seen[cell] - expected[cell]) / expected[cell];
            freedom += 1;
        }
    }
    const double spread = 2 / (9 * freedom);
    return (std::cbrt(sum / freedom) - (1 - spread)) / std::sqrt(spread);
}

TEST(Chance, KeepsTheOddsOfEveryDraw) {
    std::uint64_t seed = 1'860;
    for (const Draw& draw : draws()) {
        SCOPED_TRACE(draw.name);
        const double whole = std::accumulate(draw.odds.begin(), draw.odds.end(), 0.0);
        const Odds even = thrown(draw, [](int trial) { return (trial + 0.5) / trials; });
        for (std::size_t face = 0; face < draw.odds.size(); ++face) {
            EXPECT_LT(std::abs(even[face] - trials * draw.odds[face] / whole), 1) << face;
        }
        game::Generator generator(seed++);
        const Odds fair = thrown(draw, [&](int /*trial*/) { return generator.Rnd(); });
        EXPECT_LT(deviation(fair, draw.odds, whole), 4.75);
    }
}

}  // namespace
