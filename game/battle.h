#pragma once

#include <string_view>

#include "battle_scene.h"
#include "game_state.h"
#include "random.h"

namespace game {

inline constexpr int largestFleet = 48;

/// "Pirates", or "Kwan Tat's Pirates" while his tribute is overdue.
[[nodiscard]] std::string_view attackers(const GameState& state);

/// One encounter with pirates, from the sighting to the outcome. Each order returns when it has
/// been played to its end.
class Battle {
public:
    Battle(GameState& state, Random& random, BattleScene& scene)
        : m_state(state), m_random(random), m_scene(scene) {}

    /// Draws and shows the fleet, and waits for orders.
    void open();

    void fight();
    /// Fights on, faster, until one side is gone or the last cannon is lost.
    void fightToDeath();
    void run();
    void dumpCargo();

private:
    void withdrawOrders();
    void awaitOrders();
    void report(std::string_view text, Milliseconds pause);
    [[nodiscard]] const FightPace& fightPace() const;

    /// False if it sank the last pirate.
    [[nodiscard]] bool fireVolley();
    /// False if it sank the ship.
    bool EnemyFire();
    void takeHit();
    void loseCannon();
    void TakeBooty();
    void sink();

    GameState& m_state;
    Random& m_random;
    BattleScene& m_scene;
    Currency mcurEnemyShips;  ///< still in the fight
    Currency mcurShipsSunk;   ///< by the player, in this encounter
    bool mblnFightToDeath = false;
};

}  // namespace game
