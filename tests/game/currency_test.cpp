#include "currency.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

using game::Currency;

namespace {

constexpr Currency decimal(std::int64_t tenThousandths) {
    return Currency::fromTenThousandths(tenThousandths);
}
constexpr Currency highest = Currency::highest();
constexpr Currency lowest = Currency::lowest();

TEST(Currency, WritesMoneyInWholeDollars) {
    std::string texts;
    for (const Currency amount : {decimal(4'999), decimal(5'000), decimal(-4'000), decimal(-5'000),
                                  Currency{999}, decimal(9'999'999), highest, lowest}) {
        texts += game::moneyText(amount) + ' ';
    }
    EXPECT_EQ(texts, "$0 $1 $0 -$1 $999 $1,000 $922,337,203,685,478 -$922,337,203,685,478 ");
}

TEST(Currency, ReadsWhatItWrites) {
    std::string texts;
    for (const Currency amount :
         {Currency{5'000}, decimal(-122'500), decimal(-1), highest, lowest}) {
        texts += game::plainText(amount) + ' ';
        EXPECT_EQ(game::readDecimal(game::plainText(amount)), amount);
    }
    EXPECT_EQ(texts, "5000 -12.25 -0.0001 922337203685477.5807 -922337203685477.5808 ");
}

TEST(Currency, ReadsDecimalsExactlyOrNotAtAll) {
    EXPECT_EQ(game::readDecimal("007"), Currency{7});
    EXPECT_EQ(game::readDecimal("-0"), Currency{0});
    EXPECT_EQ(game::readDecimal("1.00005"), decimal(10'001));
    EXPECT_EQ(game::readDecimal({"19.00009", 1}), Currency{1}) << "what follows is not looked at";
    EXPECT_EQ(game::readDecimal({"1.00009", 6}), Currency{1}) << "nor is it here";
    EXPECT_EQ(game::readDecimal("-1.00004999"), Currency{-1});
    for (const char* text :
         {"", "-", "+5", "5.", ".5", "1e3", " 5", "5 ", "0x10", "inf", "1,000", "--1", "1-",
          "1.2.3", "922337203685477.5808", "-922337203685477.5809", "922337203685477.58075",
          "99999999999999999999999999999999999999999999"}) {
        EXPECT_EQ(game::readDecimal(text), std::nullopt) << text;
    }
}

TEST(Currency, CountsExactlyAndStopsAtItsEnds) {
    EXPECT_EQ(Currency{-5} * 2, Currency{-10});
    const std::vector<Currency> exact{
        decimal(15'000) * decimal(15'000), decimal(1) * decimal(5'000),
        decimal(-1) * decimal(5'000),      decimal(1) * decimal(4'999),
        game::absolute(decimal(1)),        game::Int(-0.5),
        game::Int(std::nan("")),           game::wholeTimes(-50, 100),
        game::wholeTimes(5'000, 0)};
    EXPECT_EQ(exact, (std::vector<Currency>{decimal(22'500), decimal(1), decimal(-1), 0, decimal(1),
                                            -1, 0, -1, 0}));
    for (const Currency beyond : {highest + 1, -lowest, highest * 2, game::Int(1e300),
                                  Currency{std::numeric_limits<std::int64_t>::max()}}) {
        EXPECT_EQ(beyond, highest);
    }
    for (const Currency beyond : {lowest - 1, highest * -2, game::Int(-1e300)}) {
        EXPECT_EQ(beyond, lowest);
    }
    EXPECT_EQ(highest.toInt(), std::numeric_limits<int>::max());
    EXPECT_EQ(lowest.toInt(), std::numeric_limits<int>::min());
}

}  // namespace
