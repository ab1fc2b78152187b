#pragma once

#include <string>

#include "game_state.h"

namespace game {

inline constexpr Currency largerShipHold = 50;  ///< hold units a larger ship adds

/// Refuses a cannon that does not fit into the hold, then one that the cash does not pay for.
[[nodiscard]] Refusal refuseCannon(const GameState& state);
/// Buys the offered cannon and gives back the message.
[[nodiscard]] std::string buyCannon(GameState& state);

/// Refuses a ship that the cash does not pay for.
[[nodiscard]] Refusal refuseShip(const GameState& state);
/// Trades the ship in for the offered one, undamaged and larger, and gives back the message.
[[nodiscard]] std::string buyShip(GameState& state);

}  // namespace game
