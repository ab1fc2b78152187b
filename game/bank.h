#pragma once

#include <string>

#include "game_state.h"

namespace game {

/// All the cash, and the whole balance: the bank takes no fee.
[[nodiscard]] Currency mostToDeposit(const GameState& state);
[[nodiscard]] Currency mostToWithdraw(const GameState& state);

/// Refuses to move more than there is.
[[nodiscard]] Refusal refuseDeposit(const GameState& state, Currency amount);
[[nodiscard]] Refusal refuseWithdrawal(const GameState& state, Currency amount);

/// Moves the money and returns the message.
[[nodiscard]] std::string deposit(GameState& state, Currency amount);
[[nodiscard]] std::string withdraw(GameState& state, Currency amount);

}  // namespace game
