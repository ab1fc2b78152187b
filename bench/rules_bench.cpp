#include <benchmark/benchmark.h>

#include "arrival.h"
#include "events.h"
#include "merchant.h"
#include "new_game.h"
#include "saved_game.h"
#include "transcript.h"
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

/// Whole arrivals: prices, calendar, weather, interest, events and visitors.
void arrivals(benchmark::State& run) {
    game::Generator random(1);
    test::Scene scene;
    game::GameState merchant = aGame();
    merchant.gcurCash = 100'000;
    merchant.gcurSOpium = 10;
    merchant.gcurHold = 10;
    for (const game::GoodRow& good : game::goods) {
        merchant.*good.warehouse = 1'000;
    }
    game::GameState state = merchant;
    std::size_t port = 0;
    for (auto _ : run) {
        if (++port == 1'000) {  // anew now and then, lest the merchant ends rich or ruined
            state = merchant;
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

/// Months of the sensible captain: trade, passage, battles, arrival and all.
void months(benchmark::State& run) {
    game::Generator random(1);
    std::optional<bench::Merchant> merchant;
    int month = 0;
    for (auto _ : run) {
        if (month-- == 0 || merchant->hasSunk()) {
            merchant.emplace(random, game::Scenario::CashAndDebt);
            month = 240;
        }
        merchant->playMonth();
    }
    run.SetItemsProcessed(run.iterations());
}
BENCHMARK(months);

}  // namespace
