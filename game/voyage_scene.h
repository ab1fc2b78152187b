#pragma once

#include <string_view>

#include "orders.h"
#include "pace.h"

namespace game {

/// What an alert flash of the report announces.
enum class Alert {
    Misfortune,  ///< red
    News,        ///< cyan: the market and the offer of a ship
};

/// Everything that a voyage asks of the window that shows it.
class VoyageScene {
public:
    virtual ~VoyageScene() = default;

    /// A dated entry of the report; with a continuation it has a second line.
    virtual void appendEntry(std::string_view message, std::string_view continuation) = 0;
    void appendEntry(std::string_view message) { appendEntry(message, {}); }
    /// Text at the end of the last entry, without a line break.
    virtual void appendText(std::string_view text) = 0;
    /// The report flashes for pace::alertFlash.
    virtual void flash(Alert alert) = 0;
    virtual void wait(Milliseconds duration) = 0;

    virtual void setOrderEnabled(Order order, bool enabled) = 0;
    /// The pointer shows that the ship is at sea.
    virtual void setAtSea(bool atSea) = 0;

    /// Yes or No; only a plain Yes is true.
    [[nodiscard]] virtual bool ask(std::string_view text, std::string_view title) = 0;
    virtual void inform(std::string_view text, std::string_view title) = 0;

    /// Pirates attack: returns when the encounter is over, which may have ended the game.
    virtual void showBattle() = 0;
};

}  // namespace game
