#pragma once

#include <string>

#include "game_state.h"

namespace game {

inline constexpr Currency soundShip = 100;  ///< percent: there is nothing left to repair

/// Dollars for one percent of condition: ten for each unit of the ship's capacity.
[[nodiscard]] Currency pointPrice(const GameState& state);

/// Whole points that the cash pays for; none for a ship that has no capacity.
[[nodiscard]] Currency affordablePoints(const GameState& state);

/// The condition nearest to `wanted` that the shipyard offers: no better than the cash pays for,
/// and never worse than it is.
[[nodiscard]] Currency offeredCondition(const GameState& state, Currency wanted);

/// What the repair up to `condition` costs, in dollars.
[[nodiscard]] Currency repairPrice(const GameState& state, Currency condition);

/// Refuses a repair that the cash does not pay for.
[[nodiscard]] Refusal refuseRepair(const GameState& state, Currency condition);

/// Restores the ship up to `condition`, at a price of whole dollars, and gives back the message.
[[nodiscard]] std::string repair(GameState& state, Currency condition);

/// Whether cash and ship allow a point of repair at all.
[[nodiscard]] bool canRepairMax(const GameState& state);

/// Restores as much as the cash pays for, up to a sound ship, and gives back the message.
[[nodiscard]] std::string repairMax(GameState& state);

}  // namespace game
