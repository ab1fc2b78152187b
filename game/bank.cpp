#include "bank.h"

#include "refusals.h"

namespace game {

namespace {

Refusal refuseBeyond(Currency funds, Currency amount) {
    return amount > funds ? Refusal{insufficientFunds} : std::nullopt;
}

void move(GameState& state, Currency amount, Field from, Field to) {
    state.*from -= amount;
    state.*to += amount;
    state.gblnGameSaved = false;
}

}  // namespace

Currency mostToDeposit(const GameState& state) {
    return state.gcurCash;
}

Currency mostToWithdraw(const GameState& state) {
    return state.gcurBank;
}

Refusal refuseDeposit(const GameState& state, Currency amount) {
    return refuseBeyond(state.gcurCash, amount);
}

Refusal refuseWithdrawal(const GameState& state, Currency amount) {
    return refuseBeyond(state.gcurBank, amount);
}

std::string deposit(GameState& state, Currency amount) {
    move(state, amount, &GameState::gcurCash, &GameState::gcurBank);
    return " - Deposited " + moneyText(amount);
}

std::string withdraw(GameState& state, Currency amount) {
    move(state, amount, &GameState::gcurBank, &GameState::gcurCash);
    return " - Withdrew " + moneyText(amount);
}

}  // namespace game
