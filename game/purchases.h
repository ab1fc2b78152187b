#pragma once

#include <string>

#include "game_state.h"

namespace game {

/// Refuses a cannon that does not fit into the hold, then one that the cash does not pay for.
[[nodiscard]] Refusal refuseCannon(const GameState& state);
/// Buys the offered cannon and returns the message.
[[nodiscard]] std::string buyCannon(GameState& state);

/// Refuses a ship that the cash does not pay for.
[[nodiscard]] Refusal refuseShip(const GameState& state);
/// Trades the ship in for the offered one, undamaged and larger, and returns the message.
[[nodiscard]] std::string buyShip(GameState& state);

}  // namespace game
