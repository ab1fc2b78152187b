#pragma once

#include <string_view>

#include "currency.h"
#include "pace.h"

namespace game {

/// The orders a captain can give while pirates are in sight.
enum class BattleOrder { Fight, FightToDeath, Run, DumpCargo };

/// Everything a battle asks of whoever shows it.
class BattleScene {
public:
    virtual ~BattleScene() = default;

    virtual void setOrderEnabled(BattleOrder order, bool enabled) = 0;

    /// The one line of the captain's report.
    virtual void report(std::string_view text) = 0;
    /// The enemy ships still in the fight: their number and the first so many pictures.
    virtual void showFleet(Currency ships) = 0;
    virtual void showStatus(Currency percent) = 0;
    virtual void showCannons(Currency cannons) = 0;

    /// The last picture of a fleet of so many slides out of sight, with a wait after each step.
    virtual void sinkLast(Currency ships, Milliseconds step) = 0;
    /// The sea flashes red for pace::hitFlash.
    virtual void flash() = 0;
    virtual void wait(Milliseconds duration) = 0;

    virtual void appendEntry(std::string_view message) = 0;
    /// The record changed in figures that the main window shows.
    virtual void refresh() = 0;

    virtual void inform(std::string_view text) = 0;
    [[nodiscard]] virtual bool confirmDumping() = 0;
    /// The ship has sunk.
    [[nodiscard]] virtual bool playAgain() = 0;

    /// The encounter is over.
    virtual void finish() = 0;
    /// The program ends here and now: this call does not return.
    virtual void endProgram() = 0;
};

}  // namespace game
