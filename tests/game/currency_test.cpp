#include "currency.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <utility>

using game::Currency;

namespace {

constexpr Currency decimal(std::int64_t tenThousandths) {
    return Currency::fromTenThousandths(tenThousandths);
}
constexpr Currency highest = Currency::highest();
constexpr Currency lowest = Currency::lowest();

TEST(Currency, WritesMoneyInWholeDollars) {
    using Row = std::pair<Currency, const char*>;
    for (const auto& [amount, text] : {Row{decimal(4'999), "$0"},
                                       {decimal(5'000), "$1"},
                                       {decimal(-4'000), "$0"},
                                       {decimal(-5'000), "-$1"},
                                       {999, "$999"},
                                       {decimal(9'999'999), "$1,000"},
                                       {highest, "$922,337,203,685,478"},
                                       {lowest, "-$922,337,203,685,478"}}) {
        EXPECT_EQ(game::moneyText(amount), text);
    }
}

TEST(Currency, ReadsWhatItWrites) {
    using Row = std::pair<Currency, const char*>;
    for (const auto& [amount, text] : {Row{5'000, "5000"},
                                       {decimal(-122'500), "-12.25"},
                                       {decimal(1), "0.0001"},
                                       {highest, "922337203685477.5807"},
                                       {lowest, "-922337203685477.5808"}}) {
        EXPECT_EQ(game::plainText(amount), text);
        EXPECT_EQ(game::readDecimal(text), amount) << text;
    }
}

TEST(Currency, ReadsDecimalsExactlyOrNotAtAll) {
    using Row = std::pair<std::string_view, Currency>;
    for (const auto& [text, amount] : {Row{"007", 7},
                                       {"-0", 0},
                                       {"1.00005", decimal(10'001)},
                                       {{"1.00009", 6}, 1},  // what follows is not looked at
                                       {{"19", 1}, 1},
                                       {"-1.00004999", -1}}) {
        EXPECT_EQ(game::readDecimal(text), amount) << text;
    }
    for (const char* text :
         {"", "-", "+5", "5.", ".5", "1e3", " 5", "5 ", "0x10", "inf", "1,000", "--1", "1-",
          "1.2.3", "922337203685477.5808", "-922337203685477.5809", "922337203685477.58075",
          "99999999999999999999999999999999999999999999"}) {
        EXPECT_EQ(game::readDecimal(text), std::nullopt) << text;
    }
}

TEST(Currency, CountsExactlyAndStopsAtItsEnds) {
    using Row = std::pair<Currency, Currency>;
    int row = 0;
    for (const auto& [figure, expected] : {Row{highest + 1, highest},
                                           {lowest - 1, lowest},
                                           {-lowest, highest},
                                           {highest * 2, highest},
                                           {highest * -2, lowest},
                                           {std::numeric_limits<std::int64_t>::max(), highest},
                                           {highest.toInt(), std::numeric_limits<int>::max()},
                                           {lowest.toInt(), std::numeric_limits<int>::min()},
                                           {game::Int(1e300), highest},
                                           {game::Int(-1e300), lowest},
                                           {game::Int(std::nan("")), 0},
                                           {game::Int(-0.5), -1},
                                           {decimal(15'000) * decimal(15'000), decimal(22'500)},
                                           {decimal(1) * decimal(5'000), decimal(1)},
                                           {decimal(-1) * decimal(5'000), decimal(-1)},
                                           {decimal(1) * decimal(4'999), 0},
                                           {game::absolute(decimal(1)), decimal(1)},
                                           {game::wholeTimes(-50, 100), -1},
                                           {game::wholeTimes(5'000, 0), 0}}) {
        EXPECT_EQ(figure, expected) << "row " << row;
        ++row;
    }
}

}  // namespace
