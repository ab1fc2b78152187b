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

TEST(Words, WriteAndReadAmountsThatStopAtTheirEnds) {
    const char* most = "922337203685477.5807 $922,337,203,685,478";
    const char* least = "-922337203685477.5808 -$922,337,203,685,478";
    using Row = std::pair<Currency, std::string>;
    for (const auto& [amount, text] : {
             Row{decimal(4'999), "0.4999 $0"},
             {decimal(5'000), "0.5 $1"},
             {decimal(-4'000), "-0.4 $0"},
             {decimal(-5'000), "-0.5 -$1"},
             {999, "999 $999"},
             {decimal(9'999'999), "999.9999 $1,000"},
             {Currency{-5} * 2, "-10 -$10"},
             {decimal(15'000) * decimal(15'000), "2.25 $2"},
             {decimal(1) * decimal(5'000), "0.0001 $0"},
             {decimal(-1) * decimal(5'000), "-0.0001 $0"},
             {decimal(1) * decimal(4'999), "0 $0"},
             {game::absolute(decimal(1)), "0.0001 $0"},
             {game::Int(-0.5), "-1 -$1"},
             {game::Int(std::nan("")), "0 $0"},
             {game::wholeTimes(-50, 100), "-1 -$1"},
             {game::wholeTimes(5'000, 0), "0 $0"},
             {highest + 1, most},
             {-lowest, most},
             {highest * 2, most},
             {game::Int(1e300), most},
             {std::numeric_limits<std::int64_t>::max(), most},
             {lowest - 1, least},
             {highest * -2, least},
             {game::Int(-1e300), least},
             {highest.toInt(), "2147483647 $2,147,483,647"},
             {lowest.toInt(), "-2147483648 -$2,147,483,648"},
         }) {
        EXPECT_EQ(plainText(amount) + " " + moneyText(amount), text);
        EXPECT_EQ(game::readDecimal(plainText(amount)), amount);
    }
}

TEST(Words, AreReadExactlyOrNotAtAll) {
    using Row = std::pair<std::string_view, std::optional<Currency>>;
    for (const auto& [text, amount] : {Row{"007", 7},
                                       {"-0", 0},
                                       {"1.00005", decimal(10'001)},
                                       {"-1.00004999", -1},
                                       {{"19.00009", 1}, 1},
                                       {{"1.00009", 6}, 1}}) {
        EXPECT_EQ(game::readDecimal(text), amount) << text;
    }
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
    using Row = std::tuple<Currency, std::size_t, Currency>;
    for (const auto& [maximum, entries, second] :
         {Row{1, 2, 1}, {19, 20, 1}, {20, 3, 10}, {highest, 11, 100'000'000'000'000}}) {
        const std::vector<Currency> steps = game::amountSteps(maximum);
        EXPECT_EQ(std::tuple(steps.back(), steps.size(), steps.at(1)),
                  std::tuple(maximum, entries, second));
    }
    EXPECT_EQ(game::amountSteps(0), std::vector<Currency>{0});
    EXPECT_EQ(game::amountSteps(-1'210), std::vector<Currency>{-1'210});
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
    std::string announced;
    for (const char* worth : {"999999", "1000000", "999999999999", "1000000000000"}) {
        state = test::newGame("NetWorth=" + std::string{worth} + " Debt=" + worth);
        for (const bool once : {false, true}) {
            state.gblnMillionaire = once;
            announced += game::millionaireNoticeDue(state) ? "millionaire " : "";
        }
        announced += game::isTrillionaire(state) ? "trillionaire " : "";
        announced += game::isBankrupt(state) ? "bankrupt " : "";
        announced += worth + std::string{"\n"};
    }
    EXPECT_EQ(announced,
              "999999\nmillionaire 1000000\nmillionaire 999999999999\n"
              "trillionaire bankrupt 1000000000000\n");
}

TEST(Words, FillTheReportUpToTwentyThousandCharacters) {
    game::Report report;
    report.open(game::firstDay, " - Welcome Captain");
    report.append(".");
    report.addEntry(day(1860, 2, 15), " - A", " b");
    report.addEntry(day(1860, 3, 15), " - C");
    const std::string text = "Jan 15, 1860 - Welcome Captain.\r\nFeb 15, 1860 - A\r\n" +
                             std::string(23, ' ') + " b\r\nMar 15, 1860 - C";
    EXPECT_EQ(report.text(), text);
    report.append("\xC3\xA9" + std::string(19'999 - text.size(), 'x'));
    EXPECT_EQ(report.trim(), "") << "exactly 20,000 are left alone";
    report.append(std::string(text.size() - 3, 'y'));
    EXPECT_EQ(report.trim(), text.substr(0, text.size() - 3));
    report.append("yyyy");
    EXPECT_EQ(report.trim() + report.trim(), "- C\xC3\xA9");
    EXPECT_EQ(report.text().size(), 20'000U);
}

}  // namespace
