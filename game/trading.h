#pragma once

#include <array>
#include <string>
#include <vector>

#include "game_state.h"

namespace game {

/// Goods bought or sold in one go, to or from one place. Amounts are whole and not negative.
struct TradeOrder {
    Place place = Place::Ship;
    PerGood amounts{};
};

inline constexpr std::string_view insufficientFunds = "Insufficient Funds   ";
inline constexpr std::string_view insufficientHold = "Insufficient Hold   ";
inline constexpr std::string_view insufficientCargo = "Insufficient Cargo   ";
inline constexpr std::string_view insufficientStorage =
    "Insufficient Storage Space, Warehouse Limited to 10,000 units   ";

/// What refuses goods that do not fit at `place`.
[[nodiscard]] constexpr std::string_view insufficientRoom(Place place) {
    return place == Place::Ship ? insufficientHold : insufficientStorage;
}

/// The most of `good` that cash and room allow once the order's other goods have had their
/// share; what the order asks of `good` itself does not count. Never below 0.
[[nodiscard]] Currency mostToBuy(const GameState& state, const TradeOrder& order, Good good);

/// Refuses what cash does not pay for, then what does not fit at its place.
[[nodiscard]] Refusal refuseBuying(const GameState& state, const TradeOrder& order);

/// Carries the order out and gives back a message for each good bought.
[[nodiscard]] std::vector<std::string> buy(GameState& state, const TradeOrder& order);

/// The stock of `good`: all of it can be sold.
[[nodiscard]] Currency mostToSell(const GameState& state, Place source, Good good);

/// Refuses to sell more of any good than the source holds.
[[nodiscard]] Refusal refuseSelling(const GameState& state, const TradeOrder& order);

/// Carries the order out and gives back a message for each good sold, which quotes the amounts as
/// the player typed them.
[[nodiscard]] std::vector<std::string> sell(GameState& state, const TradeOrder& order,
                                            const std::array<std::string, goods.size()>& typed);

}  // namespace game
