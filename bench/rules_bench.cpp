#include <benchmark/benchmark.h>

#include "arrival.h"
#include "captain.h"
#include "events.h"
#include "new_game.h"
#include "saved_game.h"
#include "visitors.h"

namespace {

const game::GameState& aGame() {
    static const game::GameState state = [] {
        game::Generator random(1);
        game::GameState begun;
        game::startGame(begun, random, game::Scenario::CashAndDebt, "Zhenbao");
        return begun;
    }();
    return state;
}

/// A captain who chooses at random and asks for as much as a list offers.
class RandomCaptain final : public test::Captain {
public:
    using Captain::Captain;

    /// Gives every order once; the last one sails.
    void playMonth() {
        for (const Deed& order : orders()) {
            order.play(*this);
        }
    }

private:
    std::size_t choose(const Options& options) override {
        return static_cast<std::size_t>(roll(m_random, static_cast<int>(options.size()))) - 1;
    }
    std::string type(game::Currency most) override { return plainText(most); }
};

/// Whole arrivals: prices, calendar, weather, interest, events and visitors.
void arrivals(benchmark::State& run) {
    game::Generator random(1);
    game::GameState begun = aGame();
    begun.gcurCash = 100'000;
    begun.gcurSOpium = 10;
    begun.gcurHold = 10;
    for (const game::GoodRow& good : game::goods) {
        begun.*good.warehouse = 1'000;
    }
    game::GameState state = begun;
    RandomCaptain scene(state, random);
    std::size_t port = 0;
    for (auto _ : run) {
        if (++port == 1'000) {  // starts over before interest makes the figures extreme
            state = begun;
            port = 0;
        }
        game::arrive(state, random, scene, game::ports.at(port % game::ports.size()));
        game::meetEvents(state, random, scene);
        game::receiveVisitors(state, random, scene);
    }
    run.SetItemsProcessed(run.iterations());
}
BENCHMARK(arrivals);

/// A game written and read again, both in memory.
void save(benchmark::State& run) {
    for (auto _ : run) {
        benchmark::DoNotOptimize(game::writeSavedGame(aGame()));
    }
}
BENCHMARK(save)->Unit(benchmark::kMicrosecond);

void load(benchmark::State& run) {
    const std::string text = game::writeSavedGame(aGame());
    for (auto _ : run) {
        benchmark::DoNotOptimize(game::readSavedGame(text));
    }
}
BENCHMARK(load)->Unit(benchmark::kMicrosecond);

/// Months of all orders, a passage, its battles and an arrival.
void months(benchmark::State& run) {
    game::Generator random(1);
    game::GameState state = aGame();
    RandomCaptain captain(state, random);
    int month = 0;
    for (auto _ : run) {
        if (++month == 240 || !state.gblnActiveGame) {
            state = aGame();
            month = 0;
        }
        captain.playMonth();
    }
    run.SetItemsProcessed(run.iterations());
}
BENCHMARK(months);

}  // namespace
