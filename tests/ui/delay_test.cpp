#include "delay.h"

#include <gtest/gtest.h>

#include <QtWidgets>

using namespace std::chrono_literals;

TEST(Delay, ReturnsLateRatherThanEarly) {
    for (const auto duration : {1ms, 2ms, 7ms, 30ms}) {
        const auto start = std::chrono::steady_clock::now();
        ui::Delay(duration);
        EXPECT_GE(std::chrono::steady_clock::now() - start, duration);
    }
}

TEST(Delay, HandlesWhatHappensMeanwhile) {
    QPushButton button;
    int clicks = 0;
    QObject::connect(&button, &QPushButton::clicked, &button, [&clicks] { ++clicks; });
    QMetaObject::invokeMethod(&button, &QPushButton::click, Qt::QueuedConnection);
    for (const auto nothing : {0ms, -1ms}) {
        ui::Delay(nothing);
        EXPECT_EQ(clicks, 0);
    }
    // A delay that begins meanwhile ends before the one around it.
    bool innerEnded = false;
    QTimer::singleShot(0, qApp, [&innerEnded] {
        ui::Delay(20ms);
        innerEnded = true;
    });
    ui::Delay(5ms);
    EXPECT_TRUE(innerEnded);
    EXPECT_EQ(clicks, 1);
}
