#include "purchases.h"

#include "refusals.h"

namespace game {

namespace {

constexpr Currency largerShipHold = 50;  ///< hold units that a larger ship adds

Refusal refusePrice(const GameState& state, Currency price) {
    return price > state.gcurCash ? Refusal{insufficientFundsForPurchase} : std::nullopt;
}

}  // namespace

Refusal refuseCannon(const GameState& state) {
    if (state.gcurHold + holdPerCannon > state.gcurMaxHold) {
        return insufficientHoldForCannon;
    }
    return refusePrice(state, state.gcurPCannon);
}

std::string buyCannon(GameState& state) {
    state.gcurCash -= state.gcurPCannon;
    state.gcurCannons += 1;
    state.gcurHold += holdPerCannon;
    return " - Bought a New Cannon for " + moneyText(state.gcurPCannon);
}

Refusal refuseShip(const GameState& state) {
    return refusePrice(state, state.gcurPShip);
}

std::string buyShip(GameState& state) {
    state.gcurCash -= state.gcurPShip;
    state.gcurMaxHold += largerShipHold;
    state.gcurStatus = 100;
    return " - Bought a New Ship for " + moneyText(state.gcurPShip);
}

}  // namespace game
