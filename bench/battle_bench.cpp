// Measures the pirate battle as it is played: real waits, real window.

#include <QApplication>
#include <QElapsedTimer>
#include <QPushButton>
#include <cstdio>
#include <ctime>
#include <optional>

#include "delay.h"
#include "fleet_view.h"
#include "frmPirate.h"
#include "main_form.h"
#include "qt_desktop.h"

namespace {

/// Shows the same face until it is told to be fair.
class Dice final : public game::Random {
public:
    std::optional<double> always;

    double Rnd() override { return always ? *always : m_fair.Rnd(); }

private:
    game::Generator m_fair{1860};
};

/// The player's desktop, with a note of all waits asked for; boxes are answered at once.
class CountingDesktop final : public ui::Desktop {
public:
    game::Milliseconds asked{0};

    ui::Answer show(QWidget* /*owner*/, const ui::Box& box) override { return box.byDefault; }
    QString chooseFileToLoad(QWidget* /*owner*/) override { return {}; }
    QString chooseFileToSave(QWidget* /*owner*/) override { return {}; }
    void openLink(const QUrl& /*link*/) override {}
    void wait(game::Milliseconds duration) override {
        asked += duration;
        m_real.wait(duration);
    }
    [[noreturn]] void endProgram() override { m_real.endProgram(); }

private:
    ui::QtDesktop m_real;
};

class BareMainForm final : public ui::MainForm {
public:
    game::GameState record;
    Dice dice;
    CountingDesktop counting;
    QWidget bare;

    QWidget* window() override { return &bare; }
    game::GameState& state() override { return record; }
    game::Random& random() override { return dice; }
    ui::Desktop& desktop() override { return counting; }
    bool moneyLenderBug() const override { return false; }
    void UpdateMainForm() override {}
    void beginGame(std::string_view /*message*/) override {}
    void appendEntry(std::string_view /*message*/, std::string_view /*continuation*/) override {}
    void appendText(std::string_view /*text*/) override {}
    void flashReport(game::Alert /*alert*/) override {}
    void setOrderEnabled(game::Order /*order*/, bool /*enabled*/) override {}
    void setUnderWay(bool /*underWay*/) override {}
    void setAtSea(bool /*atSea*/) override {}
    void previewStatus(game::Currency /*percent*/) override {}
};

class PaintCounter final : public QObject {
public:
    int frames = 0;

    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        frames += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

/// Plays a scene and prints its time beside the waits it asked for.
template <class Scene>
void measure(const char* name, BareMainForm& mainForm, QWidget* sea, Scene scene) {
    PaintCounter counter;
    sea->installEventFilter(&counter);
    mainForm.counting.asked = {};
    const std::clock_t before = std::clock();
    QElapsedTimer clock;
    clock.start();
    scene();
    const auto taken = static_cast<double>(clock.nsecsElapsed()) / 1e6;
    const double busy = 1e3 * static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC;
    const auto asked = static_cast<double>(mainForm.counting.asked.count());
    std::printf("%-36s %9.2f ms, waits %6.0f ms (%+.2f %%), cpu %5.2f %%, frames of the sea %d\n",
                name, taken, asked, asked > 0 ? 100 * (taken / asked - 1) : 0, 100 * busy / taken,
                counter.frames);
    sea->removeEventFilter(&counter);
}

void play(BareMainForm& mainForm) {
    mainForm.record.gcurCannons = 10;
    mainForm.record.gcurStatus = 100'000;  // stays afloat
    mainForm.record.gcurMaxHold = 480;
    mainForm.dice.always = 0.999;
    ui::frmPirate form{mainForm};
    form.show();
    ui::Delay(game::Milliseconds{500});
    auto* sea = form.findChild<ui::FleetView*>(QStringLiteral("picShips"));
    const auto press = [&form](const char* order) {
        form.findChild<QPushButton*>(QString::fromLatin1(order))->click();
    };

    mainForm.dice.always = 0;
    measure("volleys without a hit, 10 cannons", mainForm, sea, [&] { press("cmdFight"); });
    for (int ship = 47; ship > 42; --ship) {
        measure("one sinking", mainForm, sea, [&] {
            sea->sink(ship, [&] { mainForm.counting.wait(game::pace::fight.sinkingStep); });
        });
    }
    mainForm.dice.always.reset();
    measure("one fair round against 48", mainForm, sea, [&] { press("cmdFight"); });
    measure("to the death against the rest", mainForm, sea, [&] { press("cmdDeath"); });
}

}  // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    BareMainForm mainForm;
    mainForm.bare.show();
    play(mainForm);
    return 0;
}
