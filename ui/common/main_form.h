#pragma once

#include <string_view>
#include <vector>

#include "desktop.h"
#include "game_state.h"
#include "orders.h"
#include "random.h"
#include "voyage_scene.h"

class QWidget;

namespace ui {

/// What dialogs may ask of the main window, and no more.
class MainForm {
public:
    virtual ~MainForm() = default;

    /// The window itself, to own dialogs and to place them by.
    [[nodiscard]] virtual QWidget* window() = 0;
    /// What dialogs should leave in sight, what is needed most first.
    [[nodiscard]] virtual std::vector<const QWidget*> figures() const = 0;
    [[nodiscard]] virtual game::GameState& state() = 0;
    [[nodiscard]] virtual game::Random& random() = 0;
    [[nodiscard]] virtual Desktop& desktop() = 0;
    /// The check mark of "Enable Money Lender Bug".
    [[nodiscard]] virtual bool moneyLenderBug() const = 0;

    /// Recomputes the standing, redraws what changed, sets the orders of the port and announces
    /// fortune and ruin. May open windows and may end the program.
    virtual void UpdateMainForm() = 0;

    /// A game was started or loaded: names the firm, opens the report anew with `message`,
    /// withdraws offers and lets the player save and look at the statistics.
    virtual void beginGame(std::string_view message) = 0;

    /// Adds a dated entry to the report; where there is a continuation, as its second line.
    virtual void appendEntry(std::string_view message, std::string_view continuation) = 0;
    void appendEntry(std::string_view message) { appendEntry(message, {}); }
    /// Adds text behind the last entry.
    virtual void appendText(std::string_view text) = 0;
    /// Moves the report's caret to its end and shows it.
    virtual void showReportEnd() = 0;
    /// The report flashes in the colour of `alert` for pace::alertFlash, or waits as long where
    /// the player has switched animations off.
    virtual void flashReport(game::Alert alert) = 0;

    virtual void setOrderEnabled(game::Order order, bool enabled) = 0;
    /// While a voyage lasts the main window takes no orders, whatever is refreshed meanwhile.
    virtual void setUnderWay(bool underWay) = 0;
    /// Shows the pointer of a ship at sea, or the usual one.
    virtual void setAtSea(bool atSea) = 0;
    /// Shows `percent` as the ship's condition until the next refresh.
    virtual void previewStatus(game::Currency percent) = 0;
};

}  // namespace ui
