#include <benchmark/benchmark.h>

#include <QApplication>

#include "frmMain.h"
#include "new_game.h"
#include "qt_desktop.h"
#include "report.h"

namespace {

/// The main window on the screen with a game in play and a full report.
class Play {
public:
    Play() {
        game::startGame(form.state(), m_random, game::Scenario::CashAndDebt, "Zhenbao");
        form.beginGame(game::welcomeMessage);
        form.state().gdtmDate = game::oneMonthLater(game::firstDay);
        for (std::size_t length = 0; length < game::Report::longest; length += entry.size()) {
            form.appendEntry(entry);
        }
        form.UpdateMainForm();
        form.show();
        paint();
    }

    /// Brings the screen up to date at once.
    static void paint() {
        QApplication::sendPostedEvents();
        QApplication::processEvents();
    }

    static constexpr std::string_view entry = " - Bought 10 Opium @ $12,000 Each";

private:
    ui::QtDesktop m_desktop;
    game::Generator m_random{1};

public:
    ui::frmMain form{m_desktop, m_random};
};

void nothingChanged(benchmark::State& run) {
    Play play;
    for (auto _ : run) {
        play.form.UpdateMainForm();
    }
}
BENCHMARK(nothingChanged)->Unit(benchmark::kMicrosecond);

/// Every figure, gauge and title takes another value, and the screen shows it.
void everythingChanged(benchmark::State& run) {
    Play play;
    game::GameState& state = play.form.state();
    bool odd = false;
    for (auto _ : run) {
        odd = !odd;
        const game::Currency change = odd ? 1 : -1;
        for (const game::GoodRow& good : game::goods) {
            state.*good.ship += change;
            state.*good.warehouse += change;
            state.*good.price += change;
        }
        for (const game::Field figure :
             {&game::GameState::gcurCannons, &game::GameState::gcurCash, &game::GameState::gcurDebt,
              &game::GameState::gcurHold, &game::GameState::gcurStatus}) {
            state.*figure += change;
        }
        state.gcurBank += change * 1'000;
        state.gstrLocation = game::ports.at(odd ? 1 : 0);
        state.gdtmDate = odd ? game::oneMonthLater(game::oneMonthLater(game::firstDay))
                             : game::oneMonthLater(game::firstDay);
        play.form.UpdateMainForm();
        Play::paint();
    }
}
BENCHMARK(everythingChanged)->Unit(benchmark::kMicrosecond);

/// An entry behind a full report, and the refresh that cuts as much off its front.
void fullReport(benchmark::State& run) {
    Play play;
    for (auto _ : run) {
        play.form.appendEntry(Play::entry);
        play.form.UpdateMainForm();
    }
}
BENCHMARK(fullReport)->Unit(benchmark::kMicrosecond);

/// An entry and a refresh at the beginning of a game, for comparison.
void emptyReport(benchmark::State& run) {
    Play play;
    for (auto _ : run) {
        run.PauseTiming();
        play.form.beginGame(game::welcomeMessage);
        run.ResumeTiming();
        play.form.appendEntry(Play::entry);
        play.form.UpdateMainForm();
    }
}
BENCHMARK(emptyReport)->Unit(benchmark::kMicrosecond);

/// The same with a full report, painted.
void fullReportPainted(benchmark::State& run) {
    Play play;
    for (auto _ : run) {
        play.form.appendEntry(Play::entry);
        play.form.UpdateMainForm();
        Play::paint();
    }
}
BENCHMARK(fullReportPainted)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
