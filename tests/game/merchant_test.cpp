#include "merchant.h"

#include <gtest/gtest.h>

/// Some hundred games of a sensible captain keep every promise of the record, month by month.
TEST(Merchant, KeepsTheBooksOfAHouse) {
    game::Generator random(1'860);
    for (int game = 0, months = 0; months < 20'000; ++game) {
        bench::Merchant merchant(
            random, game % 2 == 0 ? game::Scenario::CashAndDebt : game::Scenario::Cannons);
        for (int month = 0; month < 240 && !merchant.hasSunk(); ++month, ++months) {
            merchant.playMonth();
            ASSERT_EQ(merchant.brokenPromise(), std::nullopt) << "game " << game << ", " << month;
        }
    }
}
