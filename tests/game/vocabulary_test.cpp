#include <gtest/gtest.h>

#include <tuple>

#include "amount.h"
#include "calendar.h"
#include "games.h"
#include "orders.h"
#include "report.h"
#include "standing.h"

using game::Currency;
using game::GameDate;

namespace {

GameDate day(int year, unsigned month, unsigned dayOfMonth) {
    return GameDate{std::chrono::year{year}, std::chrono::month{month},
                    std::chrono::day{dayOfMonth}};
}

TEST(Calendar, MovesCountsAndWritesMonths) {
    for (const auto& [from, to] : {std::pair{day(1860, 1, 31), day(1860, 2, 29)},
                                   {day(9998, 12, 31), day(9999, 1, 31)},
                                   {day(9999, 12, 31), day(9999, 12, 31)}}) {
        EXPECT_EQ(game::oneMonthLater(from), to);
    }
    EXPECT_EQ(game::monthsElapsed(day(1859, 12, 31)), -1);
    EXPECT_EQ(game::monthsElapsed(day(1872, 4, 15)), 147);
    EXPECT_EQ(game::dateText(day(100, 12, 1)), "Dec 01, 0100");
}

TEST(Amount, TakesTheDigitsOfAnyText) {
    const Currency largest = 922'337'203'685'477;
    EXPECT_EQ(game::MakeNumber(""), 0);
    EXPECT_EQ(game::MakeNumber("-1.5 a4 \xD9\xA3"), 154) << "no digit of another script";
    EXPECT_EQ(game::MakeNumber("922337203685477"), largest);
    EXPECT_EQ(game::MakeNumber("123456789012345678901234567890"), largest);
}

TEST(Amount, OffersRoundStepsUpToTheMaximum) {
    using Row = std::tuple<Currency, std::size_t, Currency>;
    for (const auto& [maximum, entries, second] :
         {Row{1, 2, 1}, {19, 20, 1}, {20, 3, 10}, {Currency::highest(), 11, 100'000'000'000'000}}) {
        const std::vector<Currency> steps = game::amountSteps(maximum);
        EXPECT_EQ(std::tuple(steps.back(), steps.size(), steps.at(1)),
                  std::tuple(maximum, entries, second));
    }
    EXPECT_EQ(game::amountSteps(0), std::vector<Currency>{0});
    EXPECT_EQ(game::amountSteps(-1'210), std::vector<Currency>{-1'210});
}

TEST(Standing, NamesTheRankOfEveryScore) {
    std::string names;
    for (const Currency score : {-5, 500, 501, 999, 1'000, 7'999, 8'000, 49'999, 50'000}) {
        names.append(game::rankName(score)).append(", ");
    }
    EXPECT_EQ(names,
              "Galley Hand, Galley Hand, Compradore, Compradore, Zhenbao, Zhenbao, "
              "Master Zhenbao, Master Zhenbao, Ma Tsu, ");
}

TEST(Standing, ScoresNetWorthAgainstTime) {
    game::GameState state = test::newGame();
    state.gcurBank = 300'000;
    state.gcurDebt = 1'000;
    state.gcurRank = 777;
    game::updateStanding(state);
    EXPECT_EQ(state.gcurRank, 777) << "the first month keeps the last score";
    state.gdtmDate = day(1860, 2, 15);
    game::updateStanding(state);
    EXPECT_EQ(state.gcurNetWorth, 300'000);
    EXPECT_EQ(state.gcurRank, 3'000);
    EXPECT_EQ(state.gstrRank, "Zhenbao");
}

TEST(Standing, AnnouncesFortuneAndRuinAtTheirBounds) {
    game::GameState state;
    using Row = std::tuple<Currency, bool, bool, bool, bool>;
    for (const auto& [amount, announced, millionaire, trillionaire, bankrupt] :
         {Row{999'999, false, false, false, false},
          {1'000'000, false, true, false, false},
          {1'000'000, true, false, false, false},  // once a game
          {999'999'999'999, false, true, false, false},
          {1'000'000'000'000, false, false, true, true}}) {
        state.gcurNetWorth = state.gcurDebt = amount;
        state.gblnMillionaire = announced;
        EXPECT_EQ(game::millionaireNoticeDue(state), millionaire);
        EXPECT_EQ(game::isTrillionaire(state), trillionaire);
        EXPECT_EQ(game::isBankrupt(state), bankrupt);
    }
}

TEST(Orders, DependOnPortAndCondition) {
    game::GameState state = test::newGame();
    const auto never = std::optional{false};
    const auto always = std::optional{true};
    const std::optional<bool> asItWas;
    for (const auto& [port, condition, home, money, repair] :
         {std::tuple{"Hong Kong", 100, always, asItWas, never},
          {"Hong Kong", 99, always, asItWas, always},
          {"Manila", 99, never, never, never}}) {
        state.gstrLocation = port;
        state.gcurStatus = condition;
        std::vector<std::optional<bool>> allowed;
        for (const game::Order order : game::orders) {
            allowed.push_back(game::allowedInPort(state, order));
        }
        EXPECT_EQ(allowed, (std::vector{always, always, always, home, money, home, repair, asItWas,
                                        asItWas}));
    }
}

TEST(Report, PutsLineBreaksInFrontAndIndentsContinuations) {
    game::Report report;
    report.open(game::firstDay, " - Welcome Captain");
    report.append(".");
    report.addEntry(day(1860, 2, 15), " - A", " b");
    report.addEntry(day(1860, 3, 15), " - C");
    EXPECT_EQ(report.text(), "Jan 15, 1860 - Welcome Captain.\r\nFeb 15, 1860 - A\r\n" +
                                 std::string(23, ' ') + " b\r\nMar 15, 1860 - C");
}

TEST(Report, KeepsItsLastTwentyThousandCharacters) {
    game::Report report;
    report.append("ab\r\n" + std::string(19'996, 'x'));
    EXPECT_EQ(report.trim(), "") << "exactly 20,000 are left alone";
    report.append("\xC3\xA9z");  // an accented letter is one character
    EXPECT_EQ(report.trim(), "ab");
    report.append("yy");
    EXPECT_EQ(report.trim() + report.trim(), "\r\n");
    EXPECT_EQ(report.text().size(), 20'001U);
}

}  // namespace
