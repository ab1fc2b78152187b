#pragma once

#include <QApplication>
#include <algorithm>
#include <optional>
#include <vector>

#include "frmMain.h"
#include "new_game.h"
#include "qt_desktop.h"

namespace bench {

/// The real desktop, except that boxes are answered at once and waits are counted.
class Desktop final : public ui::QtDesktop {
public:
    game::Milliseconds asked{0};
    bool hurried = false;  ///< waits take no time

    ui::Answer show(QWidget* /*owner*/, const ui::Box& box) override { return box.byDefault; }
    void wait(game::Milliseconds duration) override {
        asked += duration;
        if (!hurried) {
            QtDesktop::wait(duration);
        }
    }
};

/// A fair generator, or one that always draws the same fraction.
class Dice final : public game::Random {
public:
    std::optional<double> always;

    double Rnd() override { return always ? *always : m_fair.Rnd(); }

private:
    game::Generator m_fair{1860};
};

/// The main window on the screen with a game in play.
class Play {
public:
    Play() {
        game::Generator market(1);
        game::startGame(form.state(), market, game::Scenario::CashAndDebt, "Zhenbao");
        form.beginGame(game::welcomeMessage);
        form.UpdateMainForm();
        form.show();
        paint();
    }

    /// Brings the screen up to date at once.
    static void paint() {
        QApplication::sendPostedEvents();
        QApplication::processEvents();
    }

    Dice dice;
    Desktop desktop;
    ui::frmMain form{desktop, dice};
};

[[nodiscard]] inline double median(std::vector<double> figures) {
    const auto middle = figures.begin() + static_cast<std::ptrdiff_t>(figures.size() / 2);
    std::nth_element(figures.begin(), middle, figures.end());
    return *middle;
}

}  // namespace bench
