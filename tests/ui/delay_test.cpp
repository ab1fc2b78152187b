#include "delay.h"

#include <gtest/gtest.h>

#include <QtWidgets>

using namespace std::chrono_literals;

TEST(Delay, HandlesWhatHappensMeanwhile) {
    bool innerEnded = false;
    QTimer::singleShot(0, qApp, [&innerEnded] {
        ui::Delay(20ms);  // ends before the one around it
        innerEnded = true;
    });
    ui::Delay(0ms);
    ui::Delay(-1ms);
    EXPECT_FALSE(innerEnded);
    ui::Delay(5ms);
    EXPECT_TRUE(innerEnded);
}
