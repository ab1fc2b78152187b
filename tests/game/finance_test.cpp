#include <gtest/gtest.h>

#include <tuple>

#include "bank.h"
#include "games.h"
#include "money_lender.h"
#include "trading.h"

using game::Currency;
using game::GameState;

namespace {

GameState withMoney(Currency cash, Currency bank, Currency debt) {
    return test::newGameWith([&](GameState& state) {
        state.gcurCash = cash;
        state.gcurBank = bank;
        state.gcurDebt = debt;
    });
}

GameState changed(GameState state) {
    state.gblnGameSaved = false;
    return state;
}

}  // namespace

TEST(Bank, MovesAllThereIsAndNoDollarMore) {
    GameState state = withMoney(400, 0, 0);
    EXPECT_EQ(game::refuseDeposit(state, 401), game::insufficientFunds);
    EXPECT_EQ(game::refuseWithdrawal(state, 1), game::insufficientFunds);
    EXPECT_FALSE(game::refuseDeposit(state, game::mostToDeposit(state)));
    EXPECT_EQ(game::deposit(state, 400), " - Deposited $400");
    EXPECT_EQ(state, changed(withMoney(0, 400, 0)));

    EXPECT_EQ(game::refuseWithdrawal(state, 401), game::insufficientFunds);
    EXPECT_FALSE(game::refuseWithdrawal(state, game::mostToWithdraw(state)));
    EXPECT_EQ(game::withdraw(state, 150), " - Withdrew $150");
    EXPECT_EQ(state, changed(withMoney(150, 250, 0)));
}

TEST(MoneyLender, LendsTwiceTheCashUpTo100Million) {
    using Row = std::pair<Currency, Currency>;
    for (const auto& [cash, maximum] : {Row{400, 800},
                                        {-5, -10},
                                        {49'999'999, 99'999'998},
                                        {60'000'000, 100'000'000},
                                        {Currency::highest(), 100'000'000}}) {
        const GameState state = withMoney(cash, 0, 0);
        EXPECT_EQ(game::maxLoan(state), maximum);
        EXPECT_FALSE(game::refuseLoan(state, maximum));
        EXPECT_EQ(game::refuseLoan(state, maximum + 1), game::maximumLoanExceeded);
    }
    GameState state = withMoney(400, 0, 5'000);
    EXPECT_EQ(game::borrow(state, 800), " - Borrowed $800");
    EXPECT_EQ(state, changed(withMoney(1'200, 0, 5'800)));
}

TEST(MoneyLender, TakesBackTheDebtAndMoreOnlyWhereAllowed) {
    using Row = std::tuple<int, int, int, bool, game::Refusal>;
    for (const auto& [cash, debt, amount, overPaymentAllowed, refusal] :
         {Row{1'500, 1'000, 1'000, false, {}},
          {1'500, 1'000, 1'001, false, game::overPayment},
          {1'500, 1'000, 1'500, true, {}},
          {1'500, 1'000, 1'501, true, game::insufficientFunds},
          {999, 1'000, 1'001, false, game::insufficientFunds},
          {2'000, -1'210, 1'210, true, {}},
          {2'000, -1'210, 1, false, game::overPayment}}) {
        EXPECT_EQ(game::refuseRepayment(withMoney(cash, 0, debt), amount, overPaymentAllowed),
                  refusal)
            << amount << " of " << debt;
    }
    EXPECT_EQ(game::mostToRepay(withMoney(400, 0, 5'000)), 400);
    EXPECT_EQ(game::mostToRepay(withMoney(400, 0, -1'210)), -1'210);

    GameState state = withMoney(1'500, 0, 1'000);
    EXPECT_EQ(game::repay(state, 1'500), " - Repayed $1,500");
    EXPECT_EQ(state, changed(withMoney(0, 0, -500)));
}
