// The program as it is, with its real desktop, for as long as nobody could watch it.

#include <malloc.h>

#include "player.h"
#include "qt_desktop.h"

namespace {

/// The real desktop, save that time passes at once.
struct QuickDesktop final : ui::QtDesktop {
    void openLink(const QUrl& /*link*/) override {}
    void wait(game::Milliseconds /*duration*/) override {}
};

/// Somebody who buys all there is room for, sells all, runs from pirates and else presses Enter.
struct WholeGame : testing::Test {
    WholeGame() {
        mainForm.show();
        reachOut();
    }
    void reachOut() {
        QTimer::singleShot(0, &hand, [this] {
            reachOut();
            if (auto* top = QApplication::activeModalWidget(); top != nullptr) {
                answer(*top);
            }
        });
    }
    static void answer(QWidget& dialog) {
        if (auto* name = dialog.findChild<QLineEdit*>("fileNameEdit")) {
            name->setText("game.zhb");
        }
        for (const char* command : {"cmdRun", "cmdSellAll", "cmdMaxGeneral"}) {
            if (auto* button = dialog.findChild<QPushButton*>(command)) {
                button->click();
            }
        }
        if (dialog.isVisible() && dialog.focusWidget() != nullptr) {
            QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
        }
        if (dialog.isVisible() && dialog.objectName() != "frmPirate") {
            dialog.close();
        }
    }
    void order(const char* name) {
        test::act(mainForm, QString("click ") + name);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    const QTemporaryDir home;
    const bool moved = qputenv("HOME", home.path().toLocal8Bit()) && qunsetenv("XDG_CONFIG_HOME") &&
                       qunsetenv("XDG_DATA_HOME") && qunsetenv("XDG_CACHE_HOME");
    QuickDesktop desktop;
    game::Generator chance{1'860};
    ui::frmMain mainForm{desktop, chance};
    QObject hand;
};

TEST_F(WholeGame, LeavesNothingBehindButTheSavedGame) {
    test::find<QAction>(mainForm, "mnuNewItem")->trigger();
    mainForm.state().gcurCash = 1'000;
    for (const char* name : {"cmdBuy", "cmdLeave", "cmdSell", "cmdLeave"}) {
        order(name);
    }
    for (const char* item : {"mnuSaveItem", "mnuLoadItem", "mnuStatsItem", "mnuHelpItem",
                             "mnuAboutItem", "mnuItemUpdates", "mnuExitItem"}) {
        test::find<QAction>(mainForm, item)->trigger();
    }
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
    test::find<QAction>(mainForm, "mnuNewItem")->trigger();
    auto* report = test::find<QPlainTextEdit>(mainForm, "txtLog");
    std::size_t early = 0;
    for (int voyage = 1; voyage <= 10'000; ++voyage) {
        mainForm.state().gcurStatus = 100;
        mainForm.state().gcurBank = 0;
        order("cmdLeave");
        ASSERT_LE(report->document()->characterCount(), 20'001) << voyage;
        early = voyage == 100 ? mallinfo2().uordblks : early;
    }
    EXPECT_LT(mallinfo2().uordblks, early + (1U << 20U)) << "bytes in use";
    EXPECT_LT(report->document()->blockCount(), 1'000) << "what a refresh has to go through";
    mainForm.state().gblnGameSaved = true;
}

TEST_F(WholeGame, IsReportedAsLongAsItIsKept) {
    mainForm.beginGame(" - Welcome Captain");
    const QString date = QString::fromStdString(game::dateText(mainForm.state().gdtmDate));
    QString expected = date + " - Welcome Captain";
    auto* report = test::find<QPlainTextEdit>(mainForm, "txtLog");
    for (int entry = 0; entry < 300; ++entry) {
        mainForm.appendEntry(" - " + std::string(80, 'x'));
        mainForm.UpdateMainForm();
        expected = (expected + "\r\n" + date + " - " + QString(80, 'x')).right(20'000);
        ASSERT_EQ(report->toPlainText(), QString(expected).remove('\r'));
    }
    for (const bool reading : {true, false}) {  // who reads what was before is left alone
        auto* bar = report->verticalScrollBar();
        bar->setValue(reading ? 0 : bar->maximum());
        mainForm.appendText(std::string(1'000, '.'));
        EXPECT_EQ(bar->value(), reading ? 0 : bar->maximum());
    }
}

}  // namespace
