#include <gtest/gtest.h>

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
        state.gblnGameSaved = false;
    });
}

}  // namespace

TEST(Bank, MovesAllThereIsAndNoDollarMore) {
    GameState state = withMoney(400, 150, 0);
    EXPECT_EQ(game::refuseDeposit(state, 401), game::insufficientFunds);
    EXPECT_EQ(game::refuseWithdrawal(state, 151), game::insufficientFunds);
    EXPECT_FALSE(game::refuseDeposit(state, game::mostToDeposit(state)));
    EXPECT_FALSE(game::refuseWithdrawal(state, game::mostToWithdraw(state)));
    EXPECT_EQ(game::deposit(state, 400), " - Deposited $400");
    EXPECT_EQ(state, withMoney(0, 550, 0));
    EXPECT_EQ(game::withdraw(state, 150), " - Withdrew $150");
    EXPECT_EQ(state, withMoney(150, 400, 0));
}

TEST(MoneyLender, LendsTwiceTheCashUpTo100Million) {
    using Row = std::pair<Currency, Currency>;
    for (const auto& [cash, maximum] :
         {Row{400, 800}, {49'999'999, 99'999'998}, {60'000'000, 100'000'000}}) {
        const GameState state = withMoney(cash, 0, 0);
        EXPECT_EQ(game::maxLoan(state), maximum);
        EXPECT_FALSE(game::refuseLoan(state, maximum));
        EXPECT_EQ(game::refuseLoan(state, maximum + 1), game::maximumLoanExceeded);
    }
    GameState state = withMoney(400, 0, 5'000);
    EXPECT_EQ(game::borrow(state, 800), " - Borrowed $800");
    EXPECT_EQ(state, withMoney(1'200, 0, 5'800));
}

TEST(MoneyLender, TakesBackTheDebtAndMoreOnlyWhereAllowed) {
    GameState state = withMoney(1'500, 0, 1'000);
    EXPECT_EQ(game::refuseRepayment(state, 1'000, false), std::nullopt);
    EXPECT_EQ(game::refuseRepayment(state, 1'001, false), game::overPayment);
    EXPECT_EQ(game::refuseRepayment(state, 1'500, true), std::nullopt);
    EXPECT_EQ(game::refuseRepayment(state, 1'501, false), game::insufficientFunds);
    EXPECT_EQ(game::mostToRepay(state), 1'000);
    EXPECT_EQ(game::repay(state, 1'500), " - Repayed $1,500");
    EXPECT_EQ(state, withMoney(0, 0, -500));
    EXPECT_EQ(game::refuseRepayment(withMoney(9, 0, -500), 1, false), game::overPayment);
}
