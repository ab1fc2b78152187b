#pragma once

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QTest>

#include "find.h"

namespace test {

/// Opens the list and picks the entry as a player does with the keyboard.
inline void pick(QComboBox* list, const QString& entry) {
    list->showPopup();
    const int row = list->findText(entry);
    EXPECT_GE(row, 0) << "no entry " << entry.toStdString();
    list->view()->setCurrentIndex(list->model()->index(row, list->modelColumn()));
    QTest::keyClick(list->view(), Qt::Key_Return);
}
inline void pick(QWidget& window, const char* list, const QString& entry) {
    pick(find<QComboBox>(window, list), entry);
}

/// What the list offers when it is opened, and closed again without a pick.
inline QStringList offered(QComboBox* list) {
    list->showPopup();
    QStringList entries;
    for (int row = 0; row < list->count(); ++row) {
        entries.append(list->itemText(row));
    }
    QTest::keyClick(list->view(), Qt::Key_Escape);
    return entries;
}

}  // namespace test
