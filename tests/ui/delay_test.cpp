#include "delay.h"

#include <gtest/gtest.h>

#include <QtWidgets>

using namespace std::chrono_literals;

TEST(Delay, ReturnsLateRatherThanEarlyAndHandlesWhatHappensMeanwhile) {
    bool innerEnded = false;
    QTimer::singleShot(0, qApp, [&innerEnded] {
        ui::Delay(20ms);  // ends before the one around it
        innerEnded = true;
    });
    ui::Delay(0ms);
    ui::Delay(-1ms);
    EXPECT_FALSE(innerEnded);
    for (const auto duration : {1ms, 5ms}) {
        const auto start = std::chrono::steady_clock::now();
        ui::Delay(duration);
        EXPECT_GE(std::chrono::steady_clock::now() - start, duration);
    }
    EXPECT_TRUE(innerEnded);
}
