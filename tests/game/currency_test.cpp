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
    for (const auto& [amount, text] : {Row{0, "$0"},
                                       {decimal(4'999), "$0"},
                                       {decimal(5'000), "$1"},
                                       {decimal(-4'000), "$0"},
                                       {decimal(-5'000), "-$1"},
                                       {999, "$999"},
                                       {decimal(9'999'999), "$1,000"},
                                       {-4'600, "-$4,600"},
                                       {1'234'567'890, "$1,234,567,890"},
                                       {highest, "$922,337,203,685,478"},
                                       {lowest, "-$922,337,203,685,478"}}) {
        EXPECT_EQ(game::moneyText(amount), text);
    }
}

TEST(Currency, ReadsWhatItWrites) {
    using Row = std::pair<Currency, const char*>;
    for (const auto& [amount, text] : {Row{0, "0"},
                                       {5'000, "5000"},
                                       {decimal(12'345'000), "1234.5"},
                                       {decimal(-122'500), "-12.25"},
                                       {decimal(1), "0.0001"},
                                       {decimal(-9'999), "-0.9999"},
                                       {decimal(-1), "-0.0001"},
                                       {highest, "922337203685477.5807"},
                                       {lowest, "-922337203685477.5808"}}) {
        EXPECT_EQ(game::plainText(amount), text);
        EXPECT_EQ(game::readDecimal(text), amount) << text;
    }
}

TEST(Currency, ReadsDecimalsExactlyOrNotAtAll) {
    EXPECT_EQ(game::readDecimal("007"), Currency{7});
    EXPECT_EQ(game::readDecimal("-0"), Currency{0});
    EXPECT_EQ(game::readDecimal("1.00005"), decimal(10'001));
    EXPECT_EQ(game::readDecimal({"1.00009", 6}), Currency{1}) << "what follows is not looked at";
    EXPECT_EQ(game::readDecimal({"19", 1}), Currency{1});
    EXPECT_EQ(game::readDecimal("-1.00004999"), decimal(-10'000));
    for (const char* text :
         {"", "-", "+5", "5.", ".5", "1e3", " 5", "5 ", "0x10", "inf", "nan", "1,000", "--1", "1-",
          "1.2.3", "922337203685477.5808", "-922337203685477.5809", "922337203685477.58075",
          "99999999999999999999999999999999999999999999"}) {
        EXPECT_EQ(game::readDecimal(text), std::nullopt) << text;
    }
}

TEST(Currency, StopsAtItsEndsInsteadOfWrapping) {
    EXPECT_EQ(highest + 1, highest);
    EXPECT_EQ(lowest - 1, lowest);
    EXPECT_EQ(-lowest, highest);
    EXPECT_EQ(highest * 2, highest);
    EXPECT_EQ(highest * -2, lowest);
    EXPECT_EQ(Currency{std::numeric_limits<std::int64_t>::max()}, highest);
    EXPECT_EQ(highest.toInt(), std::numeric_limits<int>::max());
    EXPECT_EQ(lowest.toInt(), std::numeric_limits<int>::min());
    EXPECT_EQ(game::Int(std::numeric_limits<double>::infinity()), highest);
    EXPECT_EQ(game::Int(-1e300), lowest);
    EXPECT_EQ(game::Int(std::nan("")), Currency{0});
}

TEST(Currency, RoundsProductsAndFloorsQuotients) {
    EXPECT_EQ(decimal(15'000) * decimal(15'000), decimal(22'500));
    EXPECT_EQ(decimal(1) * decimal(5'000), decimal(1));
    EXPECT_EQ(decimal(-1) * decimal(5'000), decimal(-1));
    EXPECT_EQ(decimal(1) * decimal(4'999), Currency{0});
    EXPECT_EQ(game::absolute(decimal(1)), decimal(1));
    EXPECT_EQ(game::Int(-0.5), Currency{-1});
    EXPECT_EQ(game::wholeTimes(-50, 100), Currency{-1});
    EXPECT_EQ(game::wholeTimes(5'000, 600), Currency{8});
    EXPECT_EQ(game::wholeTimes(5'000, 0), Currency{0});
}

}  // namespace
