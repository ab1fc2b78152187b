#pragma once

#include <string_view>

#include "currency.h"
#include "pace.h"

namespace game {

/// The orders a captain can give while pirates are in sight.
enum class BattleOrder { Fight, FightToDeath, Run, DumpCargo };

/// Everything that a battle asks of the window that shows it.
class BattleScene {
public:
    virtual ~BattleScene() = default;

    virtual void setOrderEnabled(BattleOrder order, bool enabled) = 0;

    /// The one line of the captain's report.
    virtual void report(std::string_view text) = 0;
    /// The enemy ships still in the fight: their number, and as many pictures.
    virtual void showFleet(Currency ships) = 0;
    virtual void showStatus(Currency percent) = 0;
    virtual void showCannons(Currency cannons) = 0;

    /// The last picture of a fleet of `ships` sinks out of sight, with a wait of `step` after each
    /// step.
    virtual void sinkLast(Currency ships, Milliseconds step) = 0;
    /// The sea flashes red for pace::hitFlash.
    virtual void flash() = 0;
    virtual void wait(Milliseconds duration) = 0;

    virtual void appendEntry(std::string_view message) = 0;
    /// Figures that the main window shows have changed.
    virtual void refresh() = 0;

    virtual void inform(std::string_view text) = 0;
    [[nodiscard]] virtual bool confirmDumping() = 0;
    /// The ship has sunk.
    [[nodiscard]] virtual bool playAgain() = 0;

    /// The encounter is over.
    virtual void finish() = 0;
    /// Ends the program: this call does not return.
    virtual void endProgram() = 0;
};

}  // namespace game
