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
    for (const auto& [from, to] : {std::pair{game::firstDay, day(1860, 2, 15)},
                                   {day(1860, 12, 15), day(1861, 1, 15)},
                                   {day(1860, 1, 31), day(1860, 2, 29)},
                                   {day(1861, 1, 31), day(1861, 2, 28)},
                                   {day(9998, 12, 31), day(9999, 1, 31)},
                                   {day(9999, 12, 31), day(9999, 12, 31)}}) {
        EXPECT_EQ(game::oneMonthLater(from), to);
    }
    EXPECT_EQ(game::monthsElapsed(day(1860, 1, 31)), 0);
    EXPECT_EQ(game::monthsElapsed(day(1859, 12, 31)), -1);
    EXPECT_EQ(game::monthsElapsed(day(1872, 4, 15)), 147);
    EXPECT_EQ(game::dateText(day(100, 12, 1)), "Dec 01, 0100");
}

TEST(Amount, TakesTheDigitsOfAnyText) {
    using Row = std::pair<const char*, Currency>;
    for (const auto& [text, amount] : {Row{"", 0},
                                       {"007", 7},
                                       {"$1,000", 1'000},
                                       {"-1.5 a4", 154},
                                       {"\xD9\xA3", 0},  // a digit of another script
                                       {"922337203685477", 922'337'203'685'477},
                                       {"922337203685478", 922'337'203'685'477},
                                       {"123456789012345678901234567890", 922'337'203'685'477}}) {
        EXPECT_EQ(game::MakeNumber(text), amount) << text;
    }
}

TEST(Amount, OffersRoundStepsUpToTheMaximum) {
    using Row = std::tuple<Currency, std::size_t, Currency>;
    for (const auto& [maximum, entries, second] :
         {Row{1, 2, 1},
          {19, 20, 1},
          {20, 3, 10},
          {199, 21, 10},
          {200, 3, 100},
          {1'000, 11, 100},
          {Currency::highest(), 11, 100'000'000'000'000}}) {
        const std::vector<Currency> steps = game::amountSteps(maximum);
        EXPECT_EQ(steps.size(), entries);
        EXPECT_EQ(steps.front(), 0);
        EXPECT_EQ(steps.at(1), second);
        EXPECT_EQ(steps.back(), maximum);
    }
    EXPECT_EQ(game::amountSteps(0), std::vector<Currency>{0});
    EXPECT_EQ(game::amountSteps(-1'210), std::vector<Currency>{-1'210});
}

TEST(Standing, NamesTheRankOfEveryScore) {
    using Row = std::pair<Currency, const char*>;
    for (const auto& [score, rank] : {Row{-5, "Galley Hand"},
                                      {500, "Galley Hand"},
                                      {501, "Compradore"},
                                      {999, "Compradore"},
                                      {1'000, "Zhenbao"},
                                      {7'999, "Zhenbao"},
                                      {8'000, "Master Zhenbao"},
                                      {49'999, "Master Zhenbao"},
                                      {50'000, "Ma Tsu"}}) {
        EXPECT_EQ(game::rankName(score), rank);
    }
}

TEST(Standing, ScoresNetWorthAgainstTime) {
    game::GameState state = test::newGame();
    state.gcurBank = 300'000;
    state.gcurDebt = 1'000;
    state.gcurRank = 777;
    game::updateStanding(state);
    EXPECT_EQ(state.gcurNetWorth, 300'000);
    EXPECT_EQ(state.gcurRank, 777) << "the first month keeps the last score";

    state.gdtmDate = day(1860, 2, 15);
    game::updateStanding(state);
    EXPECT_EQ(state.gcurRank, 3'000);
    EXPECT_EQ(state.gstrRank, "Zhenbao");
    EXPECT_EQ(game::score(-50, 1), -1);
}

TEST(Standing, AnnouncesFortuneAndRuinAtTheirBounds) {
    game::GameState state = test::newGame();
    using Row = std::tuple<Currency, bool, bool>;
    for (const auto& [netWorth, millionaire, trillionaire] : {Row{999'999, false, false},
                                                              {1'000'000, true, false},
                                                              {999'999'999'999, true, false},
                                                              {1'000'000'000'000, false, true}}) {
        state.gcurNetWorth = netWorth;
        EXPECT_EQ(game::millionaireNoticeDue(state), millionaire);
        EXPECT_EQ(game::isTrillionaire(state), trillionaire);
    }
    state.gcurNetWorth = game::million;
    state.gblnMillionaire = true;
    EXPECT_FALSE(game::millionaireNoticeDue(state)) << "once a game";
    state.gcurDebt = 999'999'999'999;
    EXPECT_FALSE(game::isBankrupt(state));
    state.gcurDebt += 1;
    EXPECT_TRUE(game::isBankrupt(state));
}

TEST(Orders, DependOnPortAndCondition) {
    using game::Order;
    game::GameState state = test::newGame();
    using Row = std::tuple<const char*, Currency, bool, std::optional<bool>, bool>;
    for (const auto& [port, condition, visit, money, repair] :
         {Row{"Hong Kong", 100, true, std::nullopt, false},
          {"Hong Kong", 99, true, std::nullopt, true},
          {"Manila", 99, false, false, false},
          {"hong kong", 99, false, false, false}}) {
        state.gstrLocation = port;
        state.gcurStatus = condition;
        for (const Order everywhere : {Order::Buy, Order::Sell, Order::Leave}) {
            EXPECT_EQ(game::allowedInPort(state, everywhere), true);
        }
        EXPECT_EQ(game::allowedInPort(state, Order::Visit), visit);
        EXPECT_EQ(game::allowedInPort(state, Order::Transfer), visit);
        EXPECT_EQ(game::allowedInPort(state, Order::Money), money);
        EXPECT_EQ(game::allowedInPort(state, Order::Repair), repair);
        EXPECT_EQ(game::allowedInPort(state, Order::Cannon), std::nullopt);
        EXPECT_EQ(game::allowedInPort(state, Order::Ship), std::nullopt);
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
    EXPECT_EQ(report.trim(), "\r\n");
    EXPECT_EQ(report.text().size(), 20'001U);
    EXPECT_EQ(report.trim(), "");
}

}  // namespace
