#pragma once

#include <string>
#include <vector>

#include "game_state.h"

namespace game {

/// Units of one good to be moved, as the player typed them.
struct Load {
    Good good = Good::Opium;
    std::string typed;

    [[nodiscard]] Currency amount() const;
};

/// What is to go aboard and what ashore. Neither makes room for the other.
struct TransferOrder {
    Load toShip{};
    Load toWarehouse{};
};

/// The most of `good` that can be moved to `destination`: the stock at the other place or the
/// room, whichever is less. Below 0 where more lies at the destination than fits.
[[nodiscard]] Currency mostToTransfer(const GameState& state, Place destination, Good good);

/// Refuses what the warehouse lacks, then what the hold, then what the ship lacks, then what the
/// warehouse does not take. All of it as things stand before the order.
[[nodiscard]] Refusal refuseTransfer(const GameState& state, const TransferOrder& order);

/// Carries the order out, aboard first, and gives back a message for each good moved, which
/// quotes the amount as typed.
[[nodiscard]] std::vector<std::string> transfer(GameState& state, const TransferOrder& order);

}  // namespace game
