// What only shows over many games: that chance keeps its odds and a house its books.

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <numeric>
#include <vector>

#include "arrival.h"
#include "battle.h"
#include "events.h"
#include "games.h"
#include "purchases.h"
#include "trading.h"
#include "transcript.h"
#include "visitors.h"

using game::Currency;
using game::GameState;

namespace {

constexpr int trials = 1'000'000;

/// How often each of a die's faces was drawn.
class Faces {
public:
    explicit Faces(std::vector<double> odds) : m_counts(odds.size()), m_odds(std::move(odds)) {}
    explicit Faces(std::size_t evenFaces) : Faces(std::vector<double>(evenFaces, 1)) {}
    Faces(const Faces&) = delete;
    Faces& operator=(const Faces&) = delete;

    /// Pearson's sum lies where chance alone would leave it.
    ~Faces() {
        const double drawn = std::accumulate(m_counts.begin(), m_counts.end(), 0.0);
        const double whole = std::accumulate(m_odds.begin(), m_odds.end(), 0.0);
        double sum = 0;
        for (std::size_t face = 0; face < m_counts.size(); ++face) {
            const double expected = drawn * m_odds[face] / whole;
            sum += (m_counts[face] - expected) * (m_counts[face] - expected) / expected;
        }
        const auto freedom = static_cast<double>(m_counts.size() - 1);
        EXPECT_LT(sum, freedom + 4 * std::sqrt(2 * freedom)) << "of " << m_counts.size();
    }

    void add(int face, int times = 1) { m_counts.at(static_cast<std::size_t>(face)) += times; }
    /// Faces that share `width` amounts from `lowest` up.
    void add(Currency amount, int lowest, int width) {
        add((amount.toInt() - lowest) * static_cast<int>(m_counts.size()) / width);
    }

private:
    std::vector<int> m_counts;
    std::vector<double> m_odds;
};

TEST(Chance, KeepsTheOddsOfABattle) {
    game::Generator random{1'860};
    const GameState state = test::newGameWith([](auto& game) { game.gcurHold = 30; });
    Faces hit({6, 4});
    Faces hitTaken({3, 7});
    Faces cannon({24, 1});
    Faces escape({5, 1});  // with a hold half full
    Faces rescue({7, 1});
    Faces fleet(4);
    Faces shakenOff({2, 2, 1});  // half of five ships is two and a half
    Faces booty(1'051);
    for (int trial = 0; trial < trials; ++trial) {
        hit.add(game::drawHit(random));
        hitTaken.add(game::drawHitTaken(random));
        cannon.add(game::drawCannonHit(random));
        escape.add(game::drawEscape(state, random));
        rescue.add(game::drawRescue(random));
        fleet.add(game::drawFleet(state, random).toInt() - 3);
        shakenOff.add(game::drawShakenOff(random, 5).toInt() - 1);
        booty.add(game::drawBooty(random, 1).toInt() - 300);
    }
}

TEST(Chance, KeepsTheOddsOfAnArrival) {
    game::Generator random(20'061'860);
    test::TranscriptScene scene;
    const GameState rich = test::newGameWith([](auto& game) {
        game.gcurSOpium = game.gcurHold = game.gcurWSilk = 100;
        game.gcurCash = 1'001;
        game.gcurPCannon = game.gcurPShip = 0;
    });
    Faces opium(21);
    Faces general(21);
    Faces counter(2);
    Faces damage(50);
    Faces cannon(51);
    Faces ship(50);
    Faces theft(50);
    const auto addChanged = [](Faces& faces, Currency amount, int lowest, int width) {
        if (amount > 0) {
            faces.add(amount, lowest, width);
        }
    };
    const std::map<std::string, int> odds{{"blown", 25},    {"storm", 50},   {"cannon", 5},
                                          {"trade in", 12}, {"seized", 25},  {"robbed", 25},
                                          {"theft", 25},    {"price of", 25}};
    std::map<std::string, int> told;
    for (int trial = 0; trial < trials; ++trial) {
        GameState state = rich;
        game::arrive(state, random, scene, "Manila");
        opium.add(state.gcurPOpium.toInt() / 1'000 - 5);
        general.add(state.gcurPGeneral.toInt() - 5);
        counter.add(state.gcurPayoff.toInt() - 1);
        game::meetEvents(state, random, scene);
        addChanged(damage, 100 - state.gcurStatus, 1, 50);
        addChanged(cannon, state.gcurPCannon, 400, 2'601);
        addChanged(ship, state.gcurPShip, 5'000, 19'001);
        addChanged(theft, 100 - state.gcurWSilk, 1, 50);
        const std::string entries = scene.transcript.take();
        for (const auto& [entry, sides] : odds) {
            told[entry] += entries.find(entry) != std::string::npos ? 1 : 0;
        }
    }
    for (const auto& [entry, sides] : odds) {
        SCOPED_TRACE(entry);
        Faces happens({sides - 1.0, 1});
        happens.add(1, told[entry]);
        happens.add(0, trials - told[entry]);
    }
}

/// Buys what it can, sells what it has, takes every offer it can pay for.
void trade(GameState& state, game::Generator& random, const std::string& told) {
    for (const game::GoodRow& good : game::goods) {
        if (game::roll(random, 2) == 1) {
            game::TradeOrder all{game::Place::Ship, {}};
            all.amounts.at(game::index(good.good)) = state.*good.ship;
            ASSERT_EQ(game::refuseSelling(state, all), std::nullopt);
            (void)game::sell(state, all, {});
        }
        game::TradeOrder most{
            game::roll(random, 3) == 1 ? game::Place::Warehouse : game::Place::Ship, {}};
        most.amounts.at(game::index(good.good)) = game::mostToBuy(state, most, good.good);
        ASSERT_EQ(game::refuseBuying(state, most), std::nullopt);
        (void)game::buy(state, most);
    }
    if (told.find("enable Cannon") != std::string::npos && !game::refuseCannon(state)) {
        (void)game::buyCannon(state);
    }
    if (told.find("enable Ship") != std::string::npos && !game::refuseShip(state)) {
        (void)game::buyShip(state);
    }
}

TEST(Chance, NeverSpoilsTheBooksOfAHouse) {
    game::Generator random(1'860);
    test::TranscriptScene scene;
    GameState state;
    for (int month = 0; month < trials; ++month) {
        if (month % 300 == 0) {
            state = test::newGame();
        }
        trade(state, random, scene.transcript.take());
        const int port = game::roll(random, static_cast<int>(game::ports.size()));
        game::arrive(state, random, scene, game::ports.at(static_cast<std::size_t>(port) - 1));
        game::meetEvents(state, random, scene);
        scene.answers = {true};
        const Currency counter = state.gcurPayoff;
        game::receiveVisitors(state, random, scene);

        ASSERT_EQ(state.gcurHold, game::totalStock(state, game::Place::Ship) +
                                      state.gcurCannons * game::holdPerCannon);
        ASSERT_LE(state.gcurHold, state.gcurMaxHold);
        ASSERT_LE(game::totalStock(state, game::Place::Warehouse), game::warehouseCapacity);
        ASSERT_EQ(state.gcurPayoff, scene.answers.empty() ? Currency{0} : counter);
        ASSERT_GE(state.gcurCash, 0);
        ASSERT_GE(state.gcurStatus, 5);
        for (const game::GoodRow& good : game::goods) {
            ASSERT_GE(state.*good.ship, 0);
            ASSERT_GE(state.*good.warehouse, 0);
            ASSERT_GE(state.*good.price, 1);
        }
    }
}

}  // namespace
