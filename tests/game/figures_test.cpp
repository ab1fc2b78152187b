// How figures are drawn, counted, read and written.

#include <gtest/gtest.h>

#include <functional>

#include "amount.h"
#include "calendar.h"
#include "games.h"
#include "report.h"

using game::Currency;
using namespace std::chrono;

namespace {

using Text = const std::string&;

/// What `function` makes of each word.
std::string each(Text words, const std::function<std::string(Text)>& function) {
    std::istringstream left{words};
    std::string all;
    for (std::string word; left >> word;) {
        all += (all.empty() ? "" : " ") + function(word);
    }
    return all;
}
/// The text of an amount as it is written, or "no" where it cannot be read.
std::string read(Text text) {
    const std::string longer = text + '9';  // the last character must not be read
    const auto number = game::readDecimal(std::string_view{longer}.substr(0, text.size()));
    return number ? plainText(*number) : "no";
}
Currency amount(Text text) {
    return game::readDecimal(text).value();
}

TEST(Generator, DrawsEvenlyAndFinely) {
    game::Generator generator(1'860);
    double sum = 0;
    for (int draw = 0; draw < 100'000; ++draw) {
        sum += generator.Rnd();
    }
    EXPECT_NEAR(sum / 100'000, 0.5, 0.005);
    const double fine = generator.Rnd() * 0x1p40;
    EXPECT_NE(fine, std::floor(fine)) << "more than 40 bits";
}

TEST(Currency, IsReadAndWrittenExactly) {
    EXPECT_EQ(each("0.4999 999 -0.0001 007 -0 1.0000 12.50 1.00005 -1.00004999", read),
              "0.4999 999 -0.0001 7 0 1 12.5 1.0001 -1");
    EXPECT_EQ(each("922337203685477.5807 922337203685477.5808 922337203685477.58075", read),
              "922337203685477.5807 no no");
    EXPECT_EQ(each("-922337203685477.5808 -922337203685477.5809 99999999999999999999999999", read),
              "-922337203685477.5808 no no");
    EXPECT_EQ(each("- +5 5. .5 1e3 0x10 inf 1,000 --1 1- 1.2.3", read),
              "no no no no no no no no no no no");
    const auto money = [](Text text) { return moneyText(amount(text)); };
    EXPECT_EQ(each("0.4999 0.5 -0.4 -0.5 999 999.9999 -4600 922337203685477.5807", money),
              "$0 $1 $0 -$1 $999 $1,000 -$4,600 $922,337,203,685,478");
}

TEST(Currency, RoundsHalvesAwayFromZeroAndStopsAtItsEnds) {
    const auto times = [](Text factor) {
        return [factor](Text text) { return plainText(amount(text) * amount(factor)); };
    };
    EXPECT_EQ(each("1.5 -1.5", times("-1.5")), "-2.25 2.25");
    EXPECT_EQ(each("0.5 -0.5 0.4999", times("0.0001")), "0.0001 -0.0001 0");
    EXPECT_EQ(each("2 -2", times("922337203685477.5807")),
              "922337203685477.5807 -922337203685477.5808");
    EXPECT_EQ(Currency::highest() + 1, Currency::highest());
    EXPECT_EQ(Currency::lowest() - 1, Currency::lowest());
    EXPECT_EQ(Currency::highest().toInt(), std::numeric_limits<int>::max());
    EXPECT_EQ(Currency::lowest().toInt(), std::numeric_limits<int>::min());
    EXPECT_EQ(plainText(absolute(amount("-0.0001")) + absolute(amount("0.0002"))), "0.0003");
    const auto floor = [](Text text) { return plainText(game::Int(std::stod(text))); };
    EXPECT_EQ(each("-0.5 nan 940000000000000 1e300 -1e300", floor),
              "-1 0 922337203685477.5807 922337203685477.5807 -922337203685477.5808");
}

TEST(Amount, IsTypedInDigitsAndOfferedInRoundSteps) {
    const auto typed = [](Text text) { return plainText(game::MakeNumber(text)); };
    EXPECT_EQ(each("-1.5a4٣ 922337203685476 123456789012345678901234567890", typed),
              "154 922337203685476 922337203685477");
    const auto steps = [](Text maximum) {
        std::string all;
        for (const Currency step : game::amountSteps(amount(maximum))) {
            all += plainText(step) + "/";
        }
        return all;
    };
    EXPECT_EQ(each("-1210 0 1 19 20", steps),
              "-1210/ 0/ 0/1/ 0/1/2/3/4/5/6/7/8/9/10/11/12/13/14/15/16/17/18/19/ 0/10/20/");
    EXPECT_EQ(steps("922337203685477.5807"),
              "0/100000000000000/200000000000000/300000000000000/400000000000000/500000000000000/"
              "600000000000000/700000000000000/800000000000000/900000000000000/"
              "922337203685477.5807/");
}

TEST(Calendar, MovesToTheSameDayOfTheNextMonth) {
    EXPECT_EQ(game::oneMonthLater(1860y / 1 / 31), 1860y / 2 / 29);
    EXPECT_EQ(game::oneMonthLater(1860y / 3 / 31), 1860y / 4 / 30);
    EXPECT_EQ(game::oneMonthLater(9998y / 12 / 31), 9999y / 1 / 31);
    EXPECT_EQ(game::oneMonthLater(9999y / 12 / 31), 9999y / 12 / 31);
    std::string months;
    for (game::GameDate date = 99y / 11 / 1; date.year() < 101y;) {
        date = game::oneMonthLater(date);
        months += game::dateText(date).substr(0, 4);
    }
    EXPECT_EQ(months, "Dec Jan Feb Mar Apr May Jun Jul Aug Sep Oct Nov Dec Jan ");
    EXPECT_EQ(game::dateText(100y / 11 / 1), "Nov 01, 0100");
}

TEST(Report, KeepsItsLastTwentyThousandCharacters) {
    game::Report report;
    report.append(std::string(20'001, 'x'));
    EXPECT_EQ(report.trim(), "x");
    report.open(game::firstDay, " - Welcome Captain");
    report.append(".");
    report.addEntry(1860y / 2 / 15, " - A", " b");
    report.addEntry(1860y / 3 / 15, " - C");
    EXPECT_EQ(report.text(), "Jan 15, 1860 - Welcome Captain.\r\nFeb 15, 1860 - A\r\n" +
                                 std::string(23, ' ') + " b\r\nMar 15, 1860 - C");
    report.open(game::firstDay, "\xC3\xA9");  // an accented letter is one character
    report.append(std::string(19'987, 'x'));
    EXPECT_EQ(report.trim(), "") << "exactly 20,000 stay";
    report.append(std::string(14, 'x'));
    EXPECT_EQ(report.trim() + report.trim(), "Jan 15, 1860\xC3\xA9x");
    EXPECT_EQ(report.text(), std::string(20'000, 'x'));
}

}  // namespace
