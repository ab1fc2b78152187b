#pragma once

#include <array>
#include <optional>

#include "game_state.h"

namespace game {

/// The nine orders of the main window, in the sequence in which a departure disables them.
enum class Order { Buy, Sell, Leave, Visit, Money, Transfer, Repair, Cannon, Ship };

inline constexpr std::array<Order, 9> orders{Order::Buy,    Order::Sell,   Order::Leave,
                                             Order::Visit,  Order::Money,  Order::Transfer,
                                             Order::Repair, Order::Cannon, Order::Ship};

/// Whether the port allows `order`, or nothing if a refresh leaves it as it is: the offers of a
/// cannon and a ship, and in Hong Kong the money lender, who lends once a visit.
[[nodiscard]] std::optional<bool> allowedInPort(const GameState& state, Order order);

}  // namespace game
