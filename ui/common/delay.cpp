#include "delay.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>

namespace ui {

void Delay(game::Milliseconds duration) {
    using game::Milliseconds;
    if (duration <= Milliseconds::zero()) {
        return;
    }
    const QDeadlineTimer end(duration, Qt::PreciseTimer);

    // Even a precise timer wakes a little late, which adds up over 48 short waits in a row. The
    // event loop sleeps until shortly before the end, and the rest is polled.
    constexpr Milliseconds polled{1};
    if (duration > polled) {
        QEventLoop loop;
        QTimer::singleShot(duration - polled, Qt::PreciseTimer, &loop, &QEventLoop::quit);
        loop.exec();
    }
    while (!end.hasExpired()) {
        QCoreApplication::processEvents();
    }
}

}  // namespace ui
