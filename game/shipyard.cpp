#include "shipyard.h"

#include <algorithm>

#include "amount.h"
#include "trading.h"

namespace game {

namespace {

/// The price as it is shown and asked for.
Currency billed(Currency price) {
    return MakeNumber(moneyText(price));
}

std::string restore(GameState& state, Currency points, Currency price) {
    state.gcurCash -= price;
    state.gcurStatus += points;
    state.gblnGameSaved = false;
    return " - Repaired " + plainText(points) + "% of Ship for " + moneyText(price);
}

}  // namespace

Currency pointPrice(const GameState& state) {
    return state.gcurMaxHold * 10;
}

Currency affordablePoints(const GameState& state) {
    return wholeTimes(state.gcurCash, pointPrice(state));
}

Currency offeredCondition(const GameState& state, Currency wanted) {
    return std::max(std::min(wanted, state.gcurStatus + affordablePoints(state)), state.gcurStatus);
}

Currency repairPrice(const GameState& state, Currency condition) {
    return (condition - state.gcurStatus) * pointPrice(state);
}

Refusal refuseRepair(const GameState& state, Currency condition) {
    return billed(repairPrice(state, condition)) > state.gcurCash ? Refusal{insufficientFunds}
                                                                  : std::nullopt;
}

std::string repair(GameState& state, Currency condition) {
    return restore(state, condition - state.gcurStatus, billed(repairPrice(state, condition)));
}

bool canRepairMax(const GameState& state) {
    return affordablePoints(state) >= 1 && state.gcurStatus < soundShip;
}

std::string repairMax(GameState& state) {
    const Currency points = std::min(affordablePoints(state), soundShip - state.gcurStatus);
    return restore(state, points, points * pointPrice(state));
}

}  // namespace game
