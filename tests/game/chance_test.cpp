// What only shows over many games: that chance keeps its odds and a house its books.

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <numeric>
#include <vector>

#include "arrival.h"
#include "events.h"
#include "games.h"
#include "purchases.h"
#include "trading.h"
#include "visitors.h"

using game::Currency;
using game::GameState;

namespace {

/// Watches a voyage for what happens in it; pays every tribute.
class Watcher final : public game::VoyageScene {
public:
    std::map<std::string, int, std::less<>> seen;  ///< by the beginning of the entry

    using VoyageScene::appendEntry;
    void appendEntry(std::string_view message, std::string_view /*continuation*/) override {
        const std::string_view beginning = message.substr(0, 34);
        if (const auto entry = seen.find(beginning); entry != seen.end()) {
            ++entry->second;
        } else {
            seen.emplace(beginning, 1);
        }
    }
    void appendText(std::string_view /*text*/) override {}
    void flash(game::Alert /*alert*/) override {}
    void wait(game::Milliseconds /*duration*/) override {}
    void setOrderEnabled(game::Order order, bool enabled) override { offered[order] = enabled; }
    void setAtSea(bool /*atSea*/) override {}
    bool ask(std::string_view /*text*/, std::string_view /*title*/) override { return true; }
    void inform(std::string_view /*text*/, std::string_view /*title*/) override {}
    void showBattle() override {}

    std::map<game::Order, bool> offered;
};

/// The draws of one figure, sorted into cells that are all equally likely.
class Cells {
public:
    explicit Cells(std::size_t count) : m_counts(count) {}

    /// `width` amounts from `lowest` up, in steps of `step`, share the cells evenly.
    void add(Currency amount, int lowest, int width, int step = 1) {
        const int cells = static_cast<int>(m_counts.size());
        ++m_counts.at(static_cast<std::size_t>((amount.toInt() - lowest) / step * cells / width));
    }

    /// Chi-square in standard deviations above what chance alone would give.
    [[nodiscard]] double surprise() const {
        const auto cells = static_cast<double>(m_counts.size());
        const double expected = std::accumulate(m_counts.begin(), m_counts.end(), 0.0) / cells;
        double chiSquare = 0;
        for (const int count : m_counts) {
            chiSquare += (count - expected) * (count - expected) / expected;
        }
        return (chiSquare - (cells - 1)) / std::sqrt(2 * (cells - 1));
    }

private:
    std::vector<int> m_counts;
};

TEST(Chance, KeepsItsOddsOverAMillionArrivals) {
    constexpr int trials = 1'000'000;
    game::Generator generator(20'061'860);
    Watcher watcher;
    const GameState rich = test::newGameWith([](auto& game) {
        game.gcurSOpium = game.gcurHold = game.gcurWSilk = 100;
        game.gcurCash = 1'001;
        game.gcurPCannon = game.gcurPShip = 0;
    });
    Cells opium(21);
    Cells general(21);
    Cells counter(2);
    Cells damage(50);
    Cells cannon(51);
    Cells ship(50);
    Cells theft(50);
    GameState state = rich;
    for (int trial = 0; trial < trials; ++trial) {
        state = rich;
        game::arrive(state, generator, watcher, "Manila");
        opium.add(state.gcurPOpium, 5'000, 21, 1'000);
        general.add(state.gcurPGeneral, 5, 21);
        counter.add(state.gcurPayoff, 1, 2);
        game::meetEvents(state, generator, watcher);
        if (state.gcurStatus < 100) {
            damage.add(100 - state.gcurStatus, 1, 50);
        }
        if (state.gcurPCannon > 0) {
            cannon.add(state.gcurPCannon, 400, 2'601);
        }
        if (state.gcurPShip > 0) {
            ship.add(state.gcurPShip, 5'000, 19'001);
        }
        if (state.gcurWSilk < 100) {
            theft.add(100 - state.gcurWSilk, 1, 50);
        }
    }
    for (const Cells* cells : {&opium, &general, &counter, &damage, &cannon, &ship, &theft}) {
        EXPECT_LT(cells->surprise(), 4);
    }
    struct Case {
        const char* entry;
        double odds;
    };
    for (const Case& c : {Case{" - Zhenbao, we have been blown off", 25},
                          {" - Zhenbao!, we have received ", 50},
                          {" - Zhenbao, a ship's cannon is ava", 5},
                          {" - Zhenbao, you can trade in your ", 12},
                          {" - Bad Joss!  The local authoritie", 25},
                          {" - Bad Joss!  You have been beaten", 25},
                          {" - Bad Joss!  Messanger reports la", 25},
                          {" - The price of ", 25}}) {
        int count = 0;
        for (const auto& [entry, times] : watcher.seen) {
            count += entry.starts_with(c.entry) ? times : 0;
        }
        const double expected = trials / c.odds;
        EXPECT_LT(std::abs(count - expected), 4 * std::sqrt(expected)) << c.entry;
    }
}

/// Buys what it can, sells what it has, takes every offer it can pay for.
void trade(GameState& state, game::Generator& generator, Watcher& watcher) {
    for (const game::GoodRow& good : game::goods) {
        const game::TradeOrder all{
            game::Place::Ship,
            {state.gcurSOpium, state.gcurSSilk, state.gcurSArms, state.gcurSGeneral}};
        if (game::roll(generator, 2) == 1) {
            ASSERT_EQ(game::refuseSelling(state, all), std::nullopt);
            (void)game::sell(state, all, {});
        }
        game::TradeOrder order{
            game::roll(generator, 3) == 1 ? game::Place::Warehouse : game::Place::Ship, {}};
        order.amounts.at(game::index(good.good)) = game::mostToBuy(state, order, good.good);
        ASSERT_EQ(game::refuseBuying(state, order), std::nullopt);
        (void)game::buy(state, order);
    }
    if (watcher.offered[game::Order::Cannon] && !game::refuseCannon(state)) {
        (void)game::buyCannon(state);
    }
    if (watcher.offered[game::Order::Ship] && !game::refuseShip(state)) {
        (void)game::buyShip(state);
    }
    watcher.offered.clear();
}

TEST(Chance, NeverSpoilsTheBooksOfAHouse) {
    game::Generator generator(1'860);
    Watcher watcher;
    GameState state = test::newGame();
    for (int month = 0; month < 1'000'000; ++month) {
        trade(state, generator, watcher);
        if (month % 300 == 0) {
            state = test::newGame();
        }
        const Currency counter = state.gcurPayoff;
        const int port = game::roll(generator, static_cast<int>(game::ports.size()));
        game::arrive(state, generator, watcher, game::ports.at(static_cast<std::size_t>(port) - 1));
        game::meetEvents(state, generator, watcher);
        game::receiveVisitors(state, generator, watcher);

        ASSERT_EQ(state.gcurHold, game::totalStock(state, game::Place::Ship) +
                                      state.gcurCannons * game::holdPerCannon);
        ASSERT_LE(state.gcurHold, state.gcurMaxHold);
        ASSERT_LE(game::totalStock(state, game::Place::Warehouse), game::warehouseCapacity);
        ASSERT_GE(state.gcurCash, 0);
        ASSERT_GE(state.gcurStatus, 5);
        ASSERT_TRUE(state.gcurPayoff > counter || game::inHongKong(state));
        ASSERT_LE(state.gcurPayoff, 10 + 2 * 60) << "a tribute asked for is paid";
        for (const game::GoodRow& good : game::goods) {
            ASSERT_GE(state.*good.ship, 0);
            ASSERT_GE(state.*good.warehouse, 0);
            ASSERT_GE(state.*good.price, 1);
        }
    }
}

}  // namespace
