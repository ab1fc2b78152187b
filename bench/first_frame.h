#pragma once

#include <QApplication>
#include <QEvent>
#include <QFile>
#include <QWidget>
#include <cstdio>

namespace bench {

/// Ends the program when `window` has been painted for the first time, telling its resident size.
class FirstFrame final : public QObject {
public:
    explicit FirstFrame(QWidget& window) { window.installEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            watched->removeEventFilter(this);
            // The controls are painted after their window and before the next event.
            QMetaObject::invokeMethod(
                this, [] { finish(); }, Qt::QueuedConnection);
        }
        return false;
    }

private:
    static void finish() {
        QFile status(QStringLiteral("/proc/self/status"));
        if (status.open(QIODevice::ReadOnly)) {
            for (const QByteArray& line : status.readAll().split('\n')) {
                if (line.startsWith("VmRSS")) {
                    std::puts(line.simplified().constData());
                }
            }
        }
        QApplication::quit();
    }
};

}  // namespace bench
