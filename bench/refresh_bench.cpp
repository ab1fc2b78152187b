// The cost of bringing the main window up to date.

#include <benchmark/benchmark.h>

#include <QPushButton>
#include <QTimer>

#include "application.h"
#include "frmLeave.h"
#include "play.h"
#include "report.h"

namespace {

/// The main window with a full report, in a game that can go on as long as needed.
class Life final : public bench::Play {
public:
    Life() {
        for (std::size_t length = 0; length < game::Report::longest; length += entry.size()) {
            form.appendEntry(entry);
        }
        form.UpdateMainForm();
        desktop.hurried = true;
        m_hand.callOnTimeout([] {
            if (QWidget* dialog = QApplication::activeModalWidget()) {
                auto* run = dialog->findChild<QPushButton*>(QStringLiteral("cmdRun"));
                run != nullptr ? run->click() : static_cast<void>(dialog->close());
            }
        });
    }

    void addEntry() {
        form.appendEntry(entry);
        form.UpdateMainForm();
    }
    void emptyReport() { form.beginGame(game::welcomeMessage); }

    /// Sails up to a number of voyages in all, runs from every battle and closes other dialogs.
    void sailUntil(std::int64_t voyages) {
        m_hand.start(0);
        for (; m_voyages < voyages; ++m_voyages) {
            form.state().gcurStatus = 100'000;  // stays afloat
            form.state().gcurDebt = 0;
            ui::frmLeave leave{form};
            leave.findChild<QPushButton*>(QStringLiteral("cmdDepart"))->click();
            QCoreApplication::sendPostedEvents();  // orders are carried out from the event loop
        }
        m_hand.stop();
    }

private:
    static constexpr std::string_view entry = " - Bought 10 Opium @ $12,000 Each";

    QTimer m_hand;
    std::int64_t m_voyages = 0;
};

void nothingChanged(benchmark::State& run) {
    Life life;
    for (auto _ : run) {
        life.form.UpdateMainForm();
    }
}

/// Every figure, gauge and title takes another value, and the screen shows it.
void everythingChanged(benchmark::State& run) {
    Life life;
    game::GameState& state = life.form.state();
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
        state.gdtmDate = odd ? game::oneMonthLater(game::firstDay) : game::firstDay;
        life.form.UpdateMainForm();
        Life::paint();
    }
}

/// An entry and the refresh with an empty report.
void emptyReport(benchmark::State& run) {
    Life life;
    for (auto _ : run) {
        run.PauseTiming();
        life.emptyReport();
        run.ResumeTiming();
        life.addEntry();
    }
}

/// An entry after a full report, and the refresh that cuts as much off its front.
void fullReport(benchmark::State& run) {
    Life life;
    for (auto _ : run) {
        life.addEntry();
    }
}

/// The same in a game that has seen a number of voyages; one game serves for all numbers.
void fullReportAfter(benchmark::State& run) {
    static auto* const life = new Life;
    life->sailUntil(run.range());
    for (auto _ : run) {
        life->addEntry();
    }
}

BENCHMARK(nothingChanged)->Unit(benchmark::kMicrosecond);
BENCHMARK(everythingChanged)->Unit(benchmark::kMicrosecond);
BENCHMARK(emptyReport)->Unit(benchmark::kMicrosecond);
BENCHMARK(fullReport)->Unit(benchmark::kMicrosecond);
BENCHMARK(fullReportAfter)->Arg(100)->Arg(10'000)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) {
    const ui::Application application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
