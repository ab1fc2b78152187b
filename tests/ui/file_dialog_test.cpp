#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDirIterator>
#include <QFileDialog>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <algorithm>

#include "find.h"
#include "modal.h"
#include "qt_desktop.h"

namespace {

QStringList everythingIn(const QString& folder) {
    QDirIterator files(folder, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                       QDirIterator::Subdirectories);
    QStringList names;
    while (files.hasNext()) {
        names.append(files.next().mid(folder.size() + 1));
    }
    names.sort();
    return names;
}

/// Whether the open dialog comes to list exactly these files.
bool lists(QDialog& dialog, const QStringList& expected) {
    auto* view = test::find<QAbstractItemView>(dialog, "listView");
    return QTest::qWaitFor([&] {
        QStringList names;
        for (int row = 0; row < view->model()->rowCount(view->rootIndex()); ++row) {
            names.append(view->model()->index(row, 0, view->rootIndex()).data().toString());
        }
        names.sort();
        return names == expected;
    });
}

}  // namespace

TEST(FileDialog, OffersEveryFileAndLeavesNoTrace) {
    const QTemporaryDir home;
    qputenv("HOME", home.path().toLocal8Bit());
    for (const char* name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"}) {
        qunsetenv(name);
    }
    for (const char* name : {"game.zhb", "no dot"}) {
        ASSERT_TRUE(QFile(home.filePath(name)).open(QIODevice::WriteOnly));
    }
    QWidget owner;
    ui::QtDesktop desktop;
    bool seen = false;
    QTimer::singleShot(0, [&] {
        auto& dialog = dynamic_cast<QDialog&>(*QApplication::activeModalWidget());
        EXPECT_EQ(dialog.objectName(), "dlgFile");
        auto* filters = test::find<QComboBox>(dialog, "fileTypeCombo");
        EXPECT_EQ(filters->itemText(0), "Saved Game Files (*.zhb)");
        EXPECT_EQ(filters->itemText(1), "All Files (*.*)");
        EXPECT_TRUE(lists(dialog, {"game.zhb"}));
        filters->setCurrentIndex(1);
        emit filters->activated(1);
        EXPECT_TRUE(lists(dialog, {"game.zhb", "no dot"}));
        auto* name = test::find<QLineEdit>(dialog, "fileNameEdit");
        name->setText("as typed");
        QTest::keyClick(name, Qt::Key_Return);
        seen = true;
    });
    EXPECT_EQ(desktop.chooseFileToSave(&owner), home.filePath("as typed"));
    EXPECT_TRUE(seen);
    QTimer::singleShot(0, [&] {
        auto& dialog = dynamic_cast<QDialog&>(*QApplication::activeModalWidget());
        EXPECT_EQ(test::find<QLineEdit>(dialog, "fileNameEdit")->text(), "as typed");
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    EXPECT_EQ(desktop.chooseFileToSave(&owner), QString{});
    EXPECT_EQ(everythingIn(home.path()), (QStringList{"game.zhb", "no dot"}));
}

TEST(MessageBox, HasRoomForTheReasonInItsTitle) {
    const QString reason = QStringLiteral("Too many levels of symbolic links");
    QWidget owner;
    ui::QtDesktop desktop;
    test::inNextDialog([&](QDialog& box) {
        EXPECT_GT(box.width(), box.fontMetrics().horizontalAdvance(reason) + 100);
        box.accept();
    });
    desktop.show(&owner, {.text = QStringLiteral("Error Saving File   "), .title = reason});
}
