#pragma once

#include <string_view>
#include <vector>

#include "desktop.h"
#include "game_state.h"
#include "random.h"
#include "voyage_scene.h"

class QWidget;

namespace ui {

/// What dialogs may ask of the main window, and no more. It is also the scene of voyages: its
/// report, its orders, its boxes.
class MainForm : public game::VoyageScene {
public:
    /// The window itself, to own dialogs and to place them by.
    [[nodiscard]] virtual QWidget* window() = 0;
    /// The figures that dialogs should leave in sight, the most important first.
    [[nodiscard]] virtual std::vector<const QWidget*> figures() const = 0;
    [[nodiscard]] virtual game::GameState& state() = 0;
    [[nodiscard]] virtual game::Random& random() = 0;
    [[nodiscard]] virtual Desktop& desktop() = 0;
    /// The check mark of "Enable Money Lender Bug".
    [[nodiscard]] virtual bool moneyLenderBug() const = 0;

    /// Recomputes the standing, redraws what changed, sets the orders of the port and announces
    /// fortune and ruin. May open windows and may end the program.
    virtual void UpdateMainForm() = 0;

    /// A game was started or loaded: names the firm, opens the report with `message`,
    /// withdraws offers and lets the player save and look at the statistics.
    virtual void beginGame(std::string_view message) = 0;

    /// Moves the report's caret to its end and shows it.
    virtual void showReportEnd() = 0;
    /// While a voyage lasts the main window takes no orders, whatever is refreshed meanwhile.
    virtual void setUnderWay(bool underWay) = 0;
    /// Shows `percent` as the ship's condition until the next refresh.
    virtual void previewStatus(game::Currency percent) = 0;
};

}  // namespace ui
