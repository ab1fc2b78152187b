#include "purchases.h"

namespace game {

namespace {

Refusal refusePrice(const GameState& state, Currency price) {
    return price > state.gcurCash ? Refusal{"Insufficient Funds     "} : std::nullopt;
}

}  // namespace

Refusal refuseCannon(const GameState& state) {
    if (state.gcurHold + holdPerCannon > state.gcurMaxHold) {
        return "Insufficient Hold     ";
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
