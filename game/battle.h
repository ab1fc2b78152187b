#pragma once

#include <string_view>

#include "battle_scene.h"
#include "game_state.h"
#include "random.h"

namespace game {

inline constexpr int largestFleet = 48;

/// Who is sighted: pirates of their own account, or those of Kwan Tat.
[[nodiscard]] std::string_view attackers(const GameState& state);

/// From 3 ships to a tenth of the hold's capacity, twice as many where they are Kwan Tat's own.
/// Never below 1 or above 48, whatever the capacity.
[[nodiscard]] Currency drawFleet(const GameState& state, Random& random);

/// One of the ship's own shots: 40 in 100 sink a pirate.
[[nodiscard]] bool drawHit(Random& random);
/// A pirate's shot: 70 in 100 hit the ship.
[[nodiscard]] bool drawHitTaken(Random& random);
/// After a volley of the pirates: 1 in 25 has hit a cannon.
[[nodiscard]] bool drawCannonHit(Random& random);

/// 1 in 4 with an empty hold, 1 in 8 with a full one and in proportion between and beyond; cannons
/// load the hold too. A ship without capacity runs as an empty one.
[[nodiscard]] bool drawEscape(const GameState& state, Random& random);
/// 1 in 8: Kwan Tat's fleet is near.
[[nodiscard]] bool drawRescue(Random& random);
/// The ships that lose sight of the runner: from 1 to half of them, rounded up.
[[nodiscard]] Currency drawShakenOff(Random& random, Currency enemyShips);

/// 300 to 1,350 dollars, one rate for every ship sunk.
[[nodiscard]] Currency drawBooty(Random& random, Currency shipsSunk);

/// One encounter with pirates, from their sighting to its outcome. An order is played to its end
/// before it returns.
class Battle {
public:
    Battle(GameState& state, Random& random, BattleScene& scene)
        : m_state(state), m_random(random), m_scene(scene) {}

    /// Sights the fleet and awaits orders.
    void open();

    void fight();
    /// Fights on, faster, until one side is gone or the last cannon is lost.
    void fightToDeath();
    void run();
    void dumpCargo();

private:
    void withdrawOrders();
    void awaitOrders();
    void report(std::string_view text, Milliseconds reading);
    [[nodiscard]] const FightPace& fightPace() const;

    /// False where it sank the last pirate.
    [[nodiscard]] bool fireVolley();
    /// False where it sank the ship.
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
