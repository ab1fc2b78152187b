// How figures are drawn, counted, read and written.

#include <gtest/gtest.h>

#include <map>

#include "amount.h"
#include "calendar.h"
#include "report.h"
#include "script.h"

using game::Currency;

namespace {

constexpr const char* highest = "922337203685477.5807";
constexpr const char* lowest = "-922337203685477.5808";

/// An amount as it is written, or "-" where it cannot be read.
std::string read(const std::string& text) {
    const std::string longer = text + '9';  // the last character must not be read
    const auto number = game::readDecimal(std::string_view{longer}.substr(0, text.size()));
    return number ? plainText(*number) : "-";
}
Currency amount(const std::string& text) {
    return game::readDecimal(text).value();
}

TEST(Random, ReachesBothEndsOfASpan) {
    test::ScriptedRandom ends("0 1 0 1");
    EXPECT_EQ(roll(ends, 6), 1);
    EXPECT_EQ(roll(ends, 6), 6);
    EXPECT_EQ(drawFrom(ends, 300'000'000'000, 1'051), 300'000'000'000);
    EXPECT_EQ(drawFrom(ends, 300'000'000'000, 1'051), 300'000'001'050);
}

TEST(Random, GeneratesEveryFaceAboutAsOften) {
    game::Generator generator(1'860);
    std::array<int, 110> faces{};
    for (int count = 0; count < 110'000; ++count) {
        ++faces.at(static_cast<std::size_t>(roll(generator, 110)) - 1);
    }
    const auto [rarest, commonest] = std::ranges::minmax(faces);
    EXPECT_GT(rarest, 850);
    EXPECT_LT(commonest, 1'150);
    const double fine = generator.Rnd() * 0x1p40;
    EXPECT_NE(fine, std::floor(fine)) << "more than 40 bits";
}

TEST(Currency, ReadsAndWritesExactly) {
    const std::map<std::string, std::string> numbers{
        {"0.4999", "0.4999"}, {"999", "999"},    {"0.5", "0.5"},        {"-0.0001", "-0.0001"},
        {highest, highest},   {lowest, lowest},  {"007", "7"},          {"-0", "0"},
        {"1.0000", "1"},      {"12.50", "12.5"}, {"1.00005", "1.0001"}, {"-1.00004999", "-1"}};
    for (const auto& [text, number] : numbers) {
        EXPECT_EQ(read(text), number);
    }
    for (const char* refused :
         {"", "-", "+5", "5.", ".5", "1e3", " 5", "5 ", "0x10", "inf", "1,000", "--1", "1-",
          "1.2.3", "922337203685477.5808", "-922337203685477.5809", "922337203685477.58075",
          "99999999999999999999999999999999999999999999"}) {
        EXPECT_EQ(read(refused), "-") << refused;
    }
}

TEST(Currency, IsShownInWholeDollars) {
    const std::map<std::string, std::string> shown{
        {"0.4999", "$0"},     {"0.5", "$1"},
        {"-0.4", "$0"},       {"-0.5", "-$1"},
        {"999", "$999"},      {"999.9999", "$1,000"},
        {"-4600", "-$4,600"}, {highest, "$922,337,203,685,478"}};
    for (const auto& [number, text] : shown) {
        EXPECT_EQ(moneyText(amount(number)), text);
    }
}

TEST(Currency, StopsAtItsEndsAndRoundsHalvesAwayFromZero) {
    const auto product = [](const char* a, const char* b) {
        return plainText(amount(a) * amount(b));
    };
    EXPECT_EQ(product("1.5", "-1.5"), "-2.25");
    EXPECT_EQ(product("0.0001", "0.5"), "0.0001");
    EXPECT_EQ(product("-0.0001", "0.5"), "-0.0001");
    EXPECT_EQ(product("0.0001", "0.4999"), "0");
    EXPECT_EQ(product(highest, "2"), highest);
    EXPECT_EQ(product(highest, "-2"), lowest);
    EXPECT_EQ(Currency::highest() + 1, Currency::highest());
    EXPECT_EQ(Currency::lowest() - 1, Currency::lowest());
    EXPECT_EQ(Currency::highest().toInt(), std::numeric_limits<int>::max());
    EXPECT_EQ(Currency::lowest().toInt(), std::numeric_limits<int>::min());
    EXPECT_EQ(plainText(absolute(amount("-0.0001")) + absolute(amount("0.0002"))), "0.0003");
}

TEST(Currency, TakesTheFloorOfADouble) {
    EXPECT_EQ(game::Int(-0.5), -1);
    EXPECT_EQ(game::Int(std::nan("")), 0);
    EXPECT_EQ(game::Int(940'000'000'000'000), Currency::highest());
    EXPECT_EQ(game::Int(1e300), Currency::highest());
    EXPECT_EQ(game::Int(-1e300), Currency::lowest());
    EXPECT_EQ(game::wholeTimes(-50, 100), -1);
    EXPECT_EQ(game::wholeTimes(5'000, 0), 0);
}

TEST(Amount, IsReadFromTypedDigits) {
    EXPECT_EQ(game::MakeNumber("-1.5a4٣"), 154);
    EXPECT_EQ(plainText(game::MakeNumber("922337203685476")), "922337203685476");
    EXPECT_EQ(plainText(game::MakeNumber("123456789012345678901234567890")), "922337203685477");
}

TEST(Amount, IsOfferedInRoundSteps) {
    const auto steps = [](Currency maximum) {
        std::string text;
        for (const Currency step : game::amountSteps(maximum)) {
            text += plainText(step) + " ";
        }
        return text;
    };
    EXPECT_EQ(steps(-1'210), "-1210 ");
    EXPECT_EQ(steps(0), "0 ");
    EXPECT_EQ(steps(1), "0 1 ");
    EXPECT_EQ(steps(19), "0 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 ");
    EXPECT_EQ(steps(20), "0 10 20 ");
    EXPECT_EQ(steps(Currency::highest()),
              "0 100000000000000 200000000000000 300000000000000 400000000000000 500000000000000 "
              "600000000000000 700000000000000 800000000000000 900000000000000 "
              "922337203685477.5807 ");
}

TEST(Calendar, MovesToTheSameDayOfTheNextMonth) {
    using namespace std::chrono;
    EXPECT_EQ(game::oneMonthLater(1860y / 1 / 31), 1860y / 2 / 29);
    EXPECT_EQ(game::oneMonthLater(1860y / 3 / 31), 1860y / 4 / 30);
    EXPECT_EQ(game::oneMonthLater(9998y / 12 / 31), 9999y / 1 / 31);
    EXPECT_EQ(game::oneMonthLater(9999y / 12 / 31), 9999y / 12 / 31);
    std::string months;
    for (game::GameDate date = 99y / 12 / 1; date.year() < 101y;) {
        date = game::oneMonthLater(date);
        months += game::dateText(date).substr(0, 4);
    }
    EXPECT_EQ(months, "Jan Feb Mar Apr May Jun Jul Aug Sep Oct Nov Dec Jan ");
    EXPECT_EQ(game::dateText(100y / 11 / 1), "Nov 01, 0100");
}

TEST(Report, KeepsItsLastTwentyThousandCharacters) {
    using namespace std::chrono;
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
