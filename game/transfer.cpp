#include "transfer.h"

#include <algorithm>

#include "amount.h"
#include "refusals.h"
#include "trading.h"

namespace game {

namespace {

constexpr Place opposite(Place place) {
    return place == Place::Ship ? Place::Warehouse : Place::Ship;
}

Currency stockFor(const GameState& state, Place destination, Good good) {
    return state.*stockField(row(good), opposite(destination));
}

Refusal refuseLoad(const GameState& state, const Load& load, Place destination) {
    if (load.amount() > stockFor(state, destination, load.good)) {
        return insufficientCargo;
    }
    if (load.amount() > freeRoom(state, destination)) {
        return insufficientRoom(destination);
    }
    return std::nullopt;
}

void move(GameState& state, const Load& load, Place destination,
          std::vector<std::string>& messages) {
    const Currency amount = load.amount();
    if (amount == 0) {
        return;
    }
    const GoodRow& good = row(load.good);
    const bool aboard = destination == Place::Ship;
    state.*stockField(good, opposite(destination)) -= amount;
    state.*stockField(good, destination) += amount;
    state.gcurHold += aboard ? amount : -amount;

    // The spelling is intentional.
    std::string message = " - Transfered " + load.typed + " ";
    message.append(good.name).append(aboard ? " to Ship" : " to Warehouse");
    messages.push_back(std::move(message));
}

}  // namespace

Currency Load::amount() const {
    return MakeNumber(typed);
}

Currency mostToTransfer(const GameState& state, Place destination, Good good) {
    return std::min(stockFor(state, destination, good), freeRoom(state, destination));
}

Refusal refuseTransfer(const GameState& state, const TransferOrder& order) {
    const Refusal aboard = refuseLoad(state, order.toShip, Place::Ship);
    return aboard ? aboard : refuseLoad(state, order.toWarehouse, Place::Warehouse);
}

std::vector<std::string> transfer(GameState& state, const TransferOrder& order) {
    std::vector<std::string> messages;
    move(state, order.toShip, Place::Ship, messages);
    move(state, order.toWarehouse, Place::Warehouse, messages);
    state.gblnGameSaved = false;
    return messages;
}

}  // namespace game
