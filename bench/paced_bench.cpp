// A passage without pirates and a battle with their real waits in the real windows: how long they
// take compared with the waits they ask for, their share of the processor, and how soon a click
// during a wait is handled.

#include <QMouseEvent>
#include <QPushButton>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <thread>

#include "application.h"
#include "delay.h"
#include "frmPirate.h"
#include "play.h"
#include "voyage.h"

namespace {

using Clock = std::chrono::steady_clock;

double milliseconds(Clock::duration duration) {
    return std::chrono::duration<double, std::milli>(duration).count();
}

double processorMilliseconds() {
    return 1e3 * static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

/// Plays a scene several times and prints the median time and share of the processor.
template <class Scene>
void measure(const char* name, bench::Play& play, int times, Scene scene) {
    std::vector<double> taken;
    std::vector<double> load;
    play.desktop.asked = {};
    for (int time = 0; time < times; ++time) {
        const double before = processorMilliseconds();
        const Clock::time_point start = Clock::now();
        scene();
        taken.push_back(milliseconds(Clock::now() - start));
        load.push_back(100 * (processorMilliseconds() - before) / taken.back());
    }
    std::printf("%s: %.2f ms; %d ms of waits; %.2f %% of a core\n", name, bench::median(taken),
                static_cast<int>(play.desktop.asked.count()) / times, bench::median(load));
}

void measurePassages(bench::Play& play) {
    measure("passage of 25 waits", play, 10, [&play] {
        play.form.appendEntry(" - Departing Hong Kong");
        for (int step = 0; step < game::passageSteps; ++step) {
            play.form.appendText(".");
            play.desktop.wait(game::pace::passageStep);
        }
    });
}

/// Notes when it was clicked.
class Target final : public QWidget {
public:
    Clock::time_point clicked;

protected:
    void mousePressEvent(QMouseEvent* /*event*/) override { clicked = Clock::now(); }
};

/// Another thread posts a click during a wait, as a window system would.
void measureClicks(ui::Desktop& desktop) {
    Target target;
    std::vector<double> latency;
    for (int click = 0; click < 100; ++click) {
        Clock::time_point posted;
        std::thread player([&target, &posted, click] {
            std::this_thread::sleep_for(std::chrono::milliseconds{3 + click * 7 % 80});
            auto* press = new QMouseEvent(QEvent::MouseButtonPress, QPointF{}, QPointF{},
                                          Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
            posted = Clock::now();
            QCoreApplication::postEvent(&target, press);
        });
        desktop.wait(game::pace::passageStep);
        player.join();
        QCoreApplication::sendPostedEvents(&target);
        latency.push_back(milliseconds(target.clicked - posted));
    }
    std::printf("click during a wait: %.2f ms\n", bench::median(latency));
}

void measureBattle(bench::Play& play) {
    game::GameState& state = play.form.state();
    state.gcurCannons = 10;
    state.gcurStatus = 100'000;  // stays afloat
    state.gcurMaxHold = 480;
    play.dice.always = 0.999;  // the largest fleet
    ui::frmPirate form{play.form};
    form.show();
    ui::Delay(game::Milliseconds{500});
    play.dice.always.reset();
    const auto press = [&form](const char* order) {
        form.findChild<QPushButton*>(QString::fromLatin1(order))->click();
        QCoreApplication::sendPostedEvents();  // orders are carried out from the event loop
    };
    measure("battle, one fair round", play, 1, [press] { press("cmdFight"); });
    measure("battle, to the death", play, 1, [press] { press("cmdDeath"); });
}

}  // namespace

int main(int argc, char** argv) {
    const ui::Application application(argc, argv);
    bench::Play play;
    measurePassages(play);
    measureClicks(play.desktop);
    measureBattle(play);
}
