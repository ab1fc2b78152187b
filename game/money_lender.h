#pragma once

#include <string>

#include "game_state.h"

namespace game {

/// Twice the cash at hand, at most 100 million.
[[nodiscard]] Currency maxLoan(const GameState& state);

/// Refuses a loan above the maximum.
[[nodiscard]] Refusal refuseLoan(const GameState& state, Currency amount);

/// Adds to cash and debt alike and returns the message.
[[nodiscard]] std::string borrow(GameState& state, Currency amount);

/// The debt, or the cash if that is less. Below 0 while the lender owes the player.
[[nodiscard]] Currency mostToRepay(const GameState& state);

/// Refuses to pay more than the cash, then more than the debt unless over-payment is allowed.
[[nodiscard]] Refusal refuseRepayment(const GameState& state, Currency amount,
                                      bool overPaymentAllowed);

/// Takes from cash and debt alike, the debt even below 0, and returns the message.
[[nodiscard]] std::string repay(GameState& state, Currency amount);

}  // namespace game
