#pragma once

#include <string>
#include <vector>

#include "game_state.h"

namespace game {

/// Units of one good to be moved, as typed.
struct Load {
    Good good = Good::Opium;
    std::string typed;

    [[nodiscard]] Currency amount() const;
};

/// What goes aboard and what goes ashore. Neither makes room for the other.
struct TransferOrder {
    Load toShip{};
    Load toWarehouse{};
};

/// The most of `good` that can be moved to `destination`: the stock at the other place or the
/// room, whichever is less. Below 0 if more lies at the destination than fits.
[[nodiscard]] Currency mostToTransfer(const GameState& state, Place destination, Good good);

/// Refuses what the warehouse lacks, then what the hold, then what the ship lacks, then what the
/// warehouse has no room for, all as it is before the order.
[[nodiscard]] Refusal refuseTransfer(const GameState& state, const TransferOrder& order);

/// Carries the order out, aboard first, and returns a message for each good moved, which quotes the
/// amount as typed.
[[nodiscard]] std::vector<std::string> transfer(GameState& state, const TransferOrder& order);

}  // namespace game
