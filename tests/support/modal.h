#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QTimer>
#include <functional>

namespace test {

/// What the player does in the next dialog that opens over all others. A dialog still open after
/// that is closed and fails the test.
inline void inNextDialog(const std::function<void(QDialog&)>& act) {
    QTimer::singleShot(0, qApp, [act] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr) << "no dialog opened";
        act(*dialog);
        if (QApplication::activeModalWidget() == dialog) {
            ADD_FAILURE() << dialog->objectName().toStdString() << " is still open";
            dialog->done(QDialog::Rejected);
        }
    });
}

}  // namespace test
