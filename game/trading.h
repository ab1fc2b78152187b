#pragma once

#include <array>
#include <string>
#include <vector>

#include "game_state.h"

namespace game {

/// Goods bought for or sold from one place. Amounts are whole and not negative.
struct TradeOrder {
    Place place = Place::Ship;
    PerGood amounts{};
};

/// The refusal of goods that do not fit at `place`.
[[nodiscard]] std::string_view insufficientRoom(Place place);

/// The most of `good` that cash and room allow once the order's other goods have had their
/// share; the order's own amount of `good` does not count. Never below 0.
[[nodiscard]] Currency mostToBuy(const GameState& state, const TradeOrder& order, Good good);

/// Refuses what the cash does not pay for, then what does not fit.
[[nodiscard]] Refusal refuseBuying(const GameState& state, const TradeOrder& order);

/// Carries the order out and returns a message for each good bought.
[[nodiscard]] std::vector<std::string> buy(GameState& state, const TradeOrder& order);

/// The stock of `good`: all of it can be sold.
[[nodiscard]] Currency mostToSell(const GameState& state, Place source, Good good);

/// Refuses to sell more of any good than the source holds.
[[nodiscard]] Refusal refuseSelling(const GameState& state, const TradeOrder& order);

/// Carries the order out and returns a message for each good sold, which quotes the amounts as the
/// player typed them.
[[nodiscard]] std::vector<std::string> sell(GameState& state, const TradeOrder& order,
                                            const std::array<std::string, goods.size()>& typed);

}  // namespace game
