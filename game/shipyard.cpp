#include "shipyard.h"

#include <algorithm>

#include "refusals.h"

namespace game {

namespace {

/// Dollars for one percent of condition: ten for each unit of the ship's capacity.
Currency pointPrice(const GameState& state) {
    return state.gcurMaxHold * 10;
}

/// Whole points that the cash pays for; none for a ship without capacity.
Currency affordablePoints(const GameState& state) {
    return wholeTimes(state.gcurCash, pointPrice(state));
}

/// The price in whole dollars, halves rounded up, because the window shows it so and the player
/// pays what is shown. Only a saved game with an odd capacity has other prices; a negative one is
/// paid without its sign.
Currency billed(Currency price) {
    const Currency halfDollar = Currency::fromTenThousandths(Currency::scale / 2);
    const std::int64_t rounded = (absolute(price) + halfDollar).tenThousandths();
    return Currency::fromTenThousandths(rounded - rounded % Currency::scale);
}

std::string restore(GameState& state, Currency points, Currency price) {
    state.gcurCash -= price;
    state.gcurStatus += points;
    state.gblnGameSaved = false;
    return " - Repaired " + plainText(points) + "% of Ship for " + moneyText(price);
}

}  // namespace

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
