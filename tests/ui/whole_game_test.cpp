// The program as it is, with its real desktop, for as long as nobody could watch it.

#include <gtest/gtest.h>
#include <malloc.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDirIterator>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "find.h"
#include "frmMain.h"
#include "qt_desktop.h"

namespace {

/// The real desktop, save that time passes at once and the program's end is not this one's.
class QuickDesktop final : public ui::Desktop {
public:
    ui::Answer show(QWidget* owner, const ui::Box& box) override { return m_real.show(owner, box); }
    QString chooseFileToLoad(QWidget* owner) override { return m_real.chooseFileToLoad(owner); }
    QString chooseFileToSave(QWidget* owner) override { return m_real.chooseFileToSave(owner); }
    void openLink(const QUrl& /*link*/) override {}
    void wait(game::Milliseconds /*duration*/) override {}
    [[noreturn]] void endProgram() override { std::abort(); }

private:
    ui::QtDesktop m_real;
};

struct WholeGame : testing::Test {
    WholeGame() {
        mainForm.show();
        reachOut();
    }

    /// Does in every dialog that opens what its name asks for.
    void reachOut() {
        QTimer::singleShot(0, &hand, [this] {
            reachOut();
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (dialog == nullptr) {
                return;
            }
            opened.insert(dialog->objectName());
            if (dialog->objectName() == "dlgFile") {
                auto* name = test::find<QLineEdit>(*dialog, "fileNameEdit");
                name->setText("game.zhb");
                QTest::keyClick(name, Qt::Key_Return);
            } else if (auto* box = qobject_cast<QMessageBox*>(dialog)) {
                box->button(box->standardButtons() & QMessageBox::Yes ? QMessageBox::Yes
                                                                      : QMessageBox::Ok)
                    ->click();
            } else {
                for (const char* name : {"cmdStart", "cmdDepart", "cmdRun", "cmdSellAll"}) {
                    if (auto* command = dialog->findChild<QPushButton*>(name)) {
                        return command->click();
                    }
                }
                if (auto* most = dialog->findChild<QPushButton*>("cmdMaxGeneral")) {
                    most->click();
                    return test::find<QPushButton>(*dialog, "cmdBuy")->click();
                }
                dialog->close();
            }
        });
    }
    void order(const char* name) {
        test::find<QPushButton>(mainForm, name)->click();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    void choose(const char* item) { test::find<QAction>(mainForm, item)->trigger(); }

    const QTemporaryDir home;
    const bool moved = qputenv("HOME", home.path().toLocal8Bit()) && qunsetenv("XDG_CONFIG_HOME") &&
                       qunsetenv("XDG_DATA_HOME") && qunsetenv("XDG_CACHE_HOME");
    QuickDesktop desktop;
    game::Generator chance{1'860};
    ui::frmMain mainForm{desktop, chance};
    QObject hand;
    QSet<QString> opened;
};

TEST_F(WholeGame, LeavesNothingBehindButTheSavedGame) {
    choose("mnuNewItem");
    mainForm.state().gcurCash = 1'000;
    for (const char* name : {"cmdBuy", "cmdLeave", "cmdSell", "cmdLeave"}) {
        order(name);
    }
    for (const char* item : {"mnuSaveItem", "mnuLoadItem", "mnuStatsItem", "mnuHelpItem",
                             "mnuAboutItem", "mnuItemUpdates", "mnuExitItem"}) {
        choose(item);
    }
    EXPECT_TRUE(opened.contains(QSet<QString>{"frmNew", "frmBuy", "frmSell", "frmLeave", "frmStats",
                                              "frmHelp", "frmAbout", "dlgFile"}));
    EXPECT_FALSE(mainForm.isVisible());
    QStringList left;
    QDirIterator files(home.path(), QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        left.append(files.next().mid(home.path().size() + 1));
    }
    EXPECT_EQ(left, QStringList{"game.zhb"});
}

TEST_F(WholeGame, MayLastTenThousandVoyages) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "sanitizers keep what is freed";
#endif
    choose("mnuNewItem");
    auto* report = test::find<QPlainTextEdit>(mainForm, "txtLog");
    std::size_t early = 0;
    int blocks = 0;
    for (int voyage = 1; voyage <= 10'000; ++voyage) {
        mainForm.state().gcurStatus = 100;
        mainForm.state().gcurBank = 0;
        order("cmdLeave");
        ASSERT_LE(report->document()->characterCount(), 20'001) << voyage;
        blocks = std::max(blocks, report->document()->blockCount());
        if (voyage == 100) {
            early = mallinfo2().uordblks;
        }
    }
    EXPECT_LT(mallinfo2().uordblks, early + (1U << 20U)) << "bytes in use";
    EXPECT_LT(blocks, 1'000);
    mainForm.state().gblnGameSaved = true;
}

}  // namespace
