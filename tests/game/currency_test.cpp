#include "currency.h"

#include <gtest/gtest.h>

#include <limits>

using game::Currency;

TEST(Currency, WritesMoneyInWholeDollars) {
    struct Case {
        std::int64_t tenThousandths;
        const char* text;
    };
    for (const Case& c : {Case{0, "$0"},
                          {4'999, "$0"},
                          {5'000, "$1"},
                          {-4'000, "$0"},
                          {-5'000, "-$1"},
                          {9'999'999, "$1,000"},
                          {-46'000'000, "-$4,600"},
                          {12'345'678'900'000, "$1,234,567,890"},
                          {Currency::highest().tenThousandths(), "$922,337,203,685,478"},
                          {Currency::lowest().tenThousandths(), "-$922,337,203,685,478"}}) {
        EXPECT_EQ(game::moneyText(Currency::fromTenThousandths(c.tenThousandths)), c.text);
    }
}
