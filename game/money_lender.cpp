#include "money_lender.h"

#include <algorithm>

#include "refusals.h"

namespace game {

namespace {

constexpr Currency largestLoan = 100'000'000;
constexpr int loanPerDollar = 2;  ///< dollars lent for each dollar of cash

/// Money lent raises cash and debt alike, money paid back (below 0) lowers both.
void lend(GameState& state, Currency amount) {
    state.gcurCash += amount;
    state.gcurDebt += amount;
    state.gblnGameSaved = false;
}

}  // namespace

Currency maxLoan(const GameState& state) {
    return std::min(state.gcurCash * loanPerDollar, largestLoan);
}

Refusal refuseLoan(const GameState& state, Currency amount) {
    return amount > maxLoan(state) ? Refusal{maximumLoanExceeded} : std::nullopt;
}

std::string borrow(GameState& state, Currency amount) {
    lend(state, amount);
    return " - Borrowed " + moneyText(amount);
}

Currency mostToRepay(const GameState& state) {
    return std::min(state.gcurDebt, state.gcurCash);
}

Refusal refuseRepayment(const GameState& state, Currency amount, bool overPaymentAllowed) {
    if (amount > state.gcurCash) {
        return insufficientFunds;
    }
    if (amount > state.gcurDebt && !overPaymentAllowed) {
        return overPayment;
    }
    return std::nullopt;
}

std::string repay(GameState& state, Currency amount) {
    lend(state, -amount);
    return " - Repayed " + moneyText(amount);  // this spelling is intentional
}

}  // namespace game
