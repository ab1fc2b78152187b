// A passage without pirates in the real main window: how long it takes, what it costs the
// processor, and how soon a click is handled that comes during a wait.

#include <QApplication>
#include <QMouseEvent>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <thread>
#include <vector>

#include "frmMain.h"
#include "new_game.h"
#include "qt_desktop.h"
#include "voyage.h"

namespace {

using Clock = std::chrono::steady_clock;

double milliseconds(Clock::duration duration) {
    return std::chrono::duration<double, std::milli>(duration).count();
}

double processorMilliseconds() {
    return 1e3 * static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

void report(const char* what, std::vector<double>& figures, const char* unit) {
    std::sort(figures.begin(), figures.end());
    std::printf("%-28s min %8.2f  median %8.2f  max %8.2f %s\n", what, figures.front(),
                figures.at(figures.size() / 2), figures.back(), unit);
}

void measurePassages(ui::frmMain& form, ui::Desktop& desktop, int passages) {
    std::vector<double> wall;
    std::vector<double> load;
    for (int passage = 0; passage < passages; ++passage) {
        form.appendEntry(" - Departing Hong Kong");
        const Clock::time_point start = Clock::now();
        const double startProcessor = processorMilliseconds();
        for (int step = 0; step < game::passageSteps; ++step) {
            form.appendText(".");
            desktop.wait(game::pace::passageStep);
        }
        wall.push_back(milliseconds(Clock::now() - start));
        load.push_back(100 * (processorMilliseconds() - startProcessor) / wall.back());
    }
    report("passage", wall, "ms");
    report("processor during a passage", load, "% of one core");
}

/// Takes the clicks of the measurement.
class Target final : public QWidget {
public:
    Clock::time_point clicked;

protected:
    void mousePressEvent(QMouseEvent* /*event*/) override { clicked = Clock::now(); }
};

/// Another thread posts a click at an arbitrary moment of a wait, as a window system would.
void measureClicks(ui::Desktop& desktop, int clicks) {
    Target target;
    std::vector<double> latency;
    for (int click = 0; click < clicks; ++click) {
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
    report("click during a wait", latency, "ms");
}

}  // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QApplication::setCursorFlashTime(0);
    ui::QtDesktop desktop;
    game::Generator random(1);
    ui::frmMain form(desktop, random);
    game::startGame(form.state(), random, game::Scenario::CashAndDebt, "Zhenbao");
    form.beginGame(game::welcomeMessage);
    form.UpdateMainForm();
    form.show();
    QApplication::processEvents();

    measurePassages(form, desktop, 10);
    measureClicks(desktop, 100);
}
