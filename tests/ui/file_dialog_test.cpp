#include <gtest/gtest.h>

#include <QtTest>
#include <QtWidgets>

#include "find.h"
#include "modal.h"
#include "qt_desktop.h"

namespace {

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

TEST(FileDialog, OffersEveryFileAndComesBackToTheLast) {
    const QTemporaryDir folder;
    for (const char* name : {"game.zhb", "no dot"}) {
        ASSERT_TRUE(QFile(folder.filePath(name)).open(QIODevice::WriteOnly));
    }
    qputenv("HOME", folder.path().toLocal8Bit());
    QWidget owner;
    ui::QtDesktop desktop;
    test::inNextDialog([&](QDialog& dialog) {
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
    });
    EXPECT_EQ(desktop.chooseFileToSave(&owner), folder.filePath("as typed"));
    test::inNextDialog([&](QDialog& dialog) {
        EXPECT_EQ(test::shown(dialog, "fileNameEdit"), "as typed");
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    EXPECT_EQ(desktop.chooseFileToSave(&owner), QString{});
}

TEST(MessageBox, HasRoomForTheReasonInItsTitleAndAnswersAsItSays) {
    using ui::Answer;
    const ui::Box box{.text = "Error Saving File   ",
                      .title = "Too many levels of symbolic links",
                      .buttons = {Answer::Yes, Answer::No, Answer::Cancel},
                      .byDefault = Answer::No,
                      .onEscape = Answer::Cancel};
    QWidget owner;
    ui::QtDesktop desktop;
    for (const auto& [key, answer] :
         {std::pair{Qt::Key_Return, Answer::No}, {Qt::Key_Escape, Answer::Cancel}}) {
        test::inNextDialog([&box, pressed = key](QDialog& dialog) {
            EXPECT_GT(dialog.width(), dialog.fontMetrics().horizontalAdvance(box.title) + 100);
            QTest::keyClick(&dialog, pressed);
        });
        EXPECT_EQ(desktop.show(&owner, box), answer);
    }
}

}  // namespace
