#include <benchmark/benchmark.h>

#include "arrival.h"
#include "events.h"
#include "new_game.h"
#include "silent_scene.h"
#include "visitors.h"

namespace {

/// Whole arrivals: prices, calendar, weather, interest, events and visitors.
void arrivals(benchmark::State& run) {
    game::Generator random(1);
    bench::SilentScene scene;
    game::GameState merchant;
    game::startGame(merchant, random, game::Scenario::CashAndDebt, "Zhenbao");
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

}  // namespace
