#include "delay.h"

#include <gtest/gtest.h>

#include <QtTest>
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
    ui::Delay(2ms);
    EXPECT_EQ(clicks, 1);
}

TEST(Delay, EndsAfterOneThatBeginsMeanwhile) {
    QStringList ended;
    QTimer::singleShot(0, qApp, [&ended] {
        ui::Delay(20ms);
        ended << "the inner one";
    });
    ui::Delay(5ms);
    ended << "the outer one";
    EXPECT_EQ(ended, (QStringList{"the inner one", "the outer one"}));
}
