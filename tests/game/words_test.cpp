// How figures are counted, read and written: amounts, dates, ranks and the report.

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <tuple>

#include "amount.h"
#include "games.h"
#include "report.h"
#include "standing.h"

using game::Currency;

namespace {

constexpr Currency decimal(std::int64_t tenThousandths) {
    return Currency::fromTenThousandths(tenThousandths);
}
constexpr Currency highest = Currency::highest();
constexpr Currency lowest = Currency::lowest();

game::GameDate day(int year, unsigned month, unsigned dayOfMonth) {
    return {std::chrono::year{year}, std::chrono::month{month}, std::chrono::day{dayOfMonth}};
}

TEST(Words, WriteAmountsAndReadThemAgain) {
    std::string money;
    for (const char* text : {"0.4999", "0.5", "-0.4", "-0.5", "999", "999.9999", "-0.0001",
                             "922337203685477.5807", "-922337203685477.5808"}) {
        const std::optional<Currency> amount = game::readDecimal(text);
        EXPECT_EQ(plainText(amount.value()), text);
        money += moneyText(amount.value()) + " ";
    }
    EXPECT_EQ(money, "$0 $1 $0 -$1 $999 $1,000 $0 $922,337,203,685,478 -$922,337,203,685,478 ");
}

TEST(Words, CountExactlyAndStopAtTheirEnds) {
    const auto times = [](std::int64_t a, std::int64_t b) { return decimal(a) * decimal(b); };
    EXPECT_EQ(times(-50'000, 20'000), -10);
    EXPECT_EQ(times(15'000, 15'000), decimal(22'500));
    EXPECT_EQ(times(1, 5'000), decimal(1));
    EXPECT_EQ(times(-1, 5'000), decimal(-1));
    EXPECT_EQ(times(1, 4'999), 0);
    EXPECT_EQ(absolute(decimal(1)), decimal(1));
    EXPECT_EQ(absolute(decimal(-1)), decimal(1));
    EXPECT_EQ(game::Int(-0.5), -1);
    EXPECT_EQ(game::Int(std::nan("")), 0);
    EXPECT_EQ(game::wholeTimes(-50, 100), -1);
    EXPECT_EQ(game::wholeTimes(5'000, 0), 0);
    EXPECT_EQ(highest.toInt(), std::numeric_limits<int>::max());
    EXPECT_EQ(lowest.toInt(), std::numeric_limits<int>::min());
    for (const Currency beyond : {highest + 1, -lowest, highest * 2, game::Int(1e300),
                                  Currency{std::numeric_limits<std::int64_t>::max()}, -(lowest - 1),
                                  -(highest * -2), -game::Int(-1e300)}) {
        EXPECT_EQ(beyond, highest);
    }
}

TEST(Words, AreReadExactlyOrNotAtAll) {
    EXPECT_EQ(game::readDecimal("007"), Currency{7});
    EXPECT_EQ(game::readDecimal("-0"), Currency{0});
    EXPECT_EQ(game::readDecimal("1.00005"), decimal(10'001));
    EXPECT_EQ(game::readDecimal("-1.00004999"), Currency{-1});
    EXPECT_EQ(game::readDecimal({"19.00009", 1}), Currency{1}) << "what follows is not looked at";
    EXPECT_EQ(game::readDecimal({"1.00009", 6}), Currency{1}) << "nor is it here";
    for (const char* text :
         {"", "-", "+5", "5.", ".5", "1e3", " 5", "5 ", "0x10", "inf", "1,000", "--1", "1-",
          "1.2.3", "922337203685477.5808", "-922337203685477.5809", "922337203685477.58075",
          "99999999999999999999999999999999999999999999"}) {
        EXPECT_EQ(game::readDecimal(text), std::nullopt) << text;
    }
    EXPECT_EQ(game::MakeNumber(""), 0);
    EXPECT_EQ(game::MakeNumber("-1.5 a4 \xD9\xA3"), 154) << "no digit of another script";
    EXPECT_EQ(game::MakeNumber("922337203685477"), Currency{922'337'203'685'477});
    EXPECT_EQ(game::MakeNumber("123456789012345678901234567890"), Currency{922'337'203'685'477});
}

TEST(Words, OfferRoundStepsUpToTheMaximum) {
    std::string offers;
    for (const Currency maximum : std::vector<Currency>{-1'210, 0, 1, 19, 20, highest}) {
        const std::vector<Currency> steps = game::amountSteps(maximum);
        offers += std::to_string(steps.size()) + ": " + plainText(steps.at(1 % steps.size())) +
                  " to " + plainText(steps.back()) + ", ";
    }
    EXPECT_EQ(offers,
              "1: -1210 to -1210, 1: 0 to 0, 2: 1 to 1, 20: 1 to 19, 3: 10 to 20, "
              "11: 100000000000000 to 922337203685477.5807, ");
}

TEST(Words, CountAndWriteMonths) {
    EXPECT_EQ(game::oneMonthLater(day(1860, 1, 31)), day(1860, 2, 29));
    EXPECT_EQ(game::oneMonthLater(day(9998, 12, 31)), day(9999, 1, 31));
    EXPECT_EQ(game::oneMonthLater(day(9999, 12, 31)), day(9999, 12, 31));
    EXPECT_EQ(game::monthsElapsed(day(1859, 12, 31)), -1);
    EXPECT_EQ(game::monthsElapsed(day(1872, 4, 15)), 147);
    EXPECT_EQ(game::dateText(day(100, 12, 1)), "Dec 01, 0100");
}

TEST(Words, NameTheStanding) {
    std::string ranks;
    for (const Currency score : {-5, 500, 501, 999, 1'000, 7'999, 8'000, 49'999, 50'000}) {
        ranks.append(game::rankName(score)).append(", ");
    }
    EXPECT_EQ(ranks,
              "Galley Hand, Galley Hand, Compradore, Compradore, Zhenbao, Zhenbao, "
              "Master Zhenbao, Master Zhenbao, Ma Tsu, ");
    const game::GameState before = test::newGame("Bank=300000 Debt=1000 Score=777");
    game::GameState state = before;
    game::updateStanding(state);  // the first month keeps the last score
    EXPECT_EQ(test::changes(before, state), " NetWorth=300000 Rank=Compradore");
    state.gdtmDate = day(1860, 2, 15);
    game::updateStanding(state);
    EXPECT_EQ(test::changes(before, state),
              " Date=Feb 15, 1860 NetWorth=300000 Score=3000 Rank=Zhenbao");
    std::string told;
    for (const std::string worth : {"999999", "1000000", "999999999999", "1000000000000"}) {
        state = test::newGame("NetWorth=" + worth + " Debt=" + worth);
        told += game::millionaireNoticeDue(state) ? "rich " : "";
        state.gblnMillionaire = true;  // he is told once a game
        told += game::millionaireNoticeDue(state) ? "again " : "";
        told += game::isTrillionaire(state) && game::isBankrupt(state)   ? "both "
                : game::isTrillionaire(state) || game::isBankrupt(state) ? "one "
                                                                         : "none ";
    }
    EXPECT_EQ(told, "none rich none rich none both ");
}

TEST(Words, FillTheReportUpToTwentyThousandCharacters) {
    game::Report report;
    report.open(game::firstDay, " - Welcome Captain");
    report.append(".");
    report.addEntry(day(1860, 2, 15), " - A", " b");
    report.addEntry(day(1860, 3, 15), " - C");
    EXPECT_EQ(report.text(), "Jan 15, 1860 - Welcome Captain.\r\nFeb 15, 1860 - A\r\n" +
                                 std::string(23, ' ') + " b\r\nMar 15, 1860 - C");
    game::Report full;
    full.append("ab\r\n" + std::string(19'996, 'x'));
    EXPECT_EQ(full.trim(), "") << "exactly 20,000 are left alone";
    full.append("\xC3\xA9z");  // an accented letter is one character
    EXPECT_EQ(full.trim(), "ab");
    full.append("yy");
    EXPECT_EQ(full.trim() + full.trim(), "\r\n");
    EXPECT_EQ(full.text().size(), 20'001U);
}

}  // namespace
