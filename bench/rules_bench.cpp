#include <benchmark/benchmark.h>

#include "arrival.h"
#include "events.h"
#include "new_game.h"
#include "visitors.h"

namespace {

/// A voyage that nobody watches: the captain pays, nothing is shown.
class SilentScene final : public game::VoyageScene {
public:
    void appendEntry(std::string_view /*message*/, std::string_view /*continuation*/) override {}
    void appendText(std::string_view /*text*/) override {}
    void flash(game::Alert /*alert*/) override {}
    void wait(game::Milliseconds /*duration*/) override {}
    void setOrderEnabled(game::Order /*order*/, bool /*enabled*/) override {}
    void setAtSea(bool /*atSea*/) override {}
    bool ask(std::string_view /*text*/, std::string_view /*title*/) override { return true; }
    void inform(std::string_view /*text*/, std::string_view /*title*/) override {}
    void showBattle() override {}
};

/// Whole arrivals: prices, calendar, weather, interest, events and visitors.
void arrivals(benchmark::State& run) {
    game::Generator random(1);
    SilentScene scene;
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
