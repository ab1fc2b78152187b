#pragma once

#include <string>

#include "game_state.h"

namespace game {

inline constexpr Currency soundShip = 100;  ///< percent: there is nothing left to repair

/// The condition nearest to `wanted` that the shipyard offers: no better than the cash pays for,
/// and never worse than now.
[[nodiscard]] Currency offeredCondition(const GameState& state, Currency wanted);

/// What the repair up to `condition` costs, in dollars.
[[nodiscard]] Currency repairPrice(const GameState& state, Currency condition);

/// Refuses a repair that the cash does not pay for.
[[nodiscard]] Refusal refuseRepair(const GameState& state, Currency condition);

/// Repairs the ship up to `condition`, at a price of whole dollars, and returns the message.
[[nodiscard]] std::string repair(GameState& state, Currency condition);

/// Whether the cash pays for a point of repair and the ship needs one.
[[nodiscard]] bool canRepairMax(const GameState& state);

/// Repairs as much as the cash pays for, up to a sound ship, and returns the message.
[[nodiscard]] std::string repairMax(GameState& state);

}  // namespace game
