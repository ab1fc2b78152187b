// The program as it is, with its real desktop, for as long as nobody could watch it.

#include <malloc.h>

#include "player.h"
#include "qt_desktop.h"

namespace {

/// The real desktop, save that time passes at once.
struct QuickDesktop final : ui::QtDesktop {
    void wait(game::Milliseconds /*duration*/) override {}
};

/// Somebody who runs from pirates and else presses Enter.
struct Voyages : testing::Test {
    Voyages() {
        mainForm.show();
        reachOut();
    }
    void reachOut() {
        QTimer::singleShot(0, &hand, [this] {
            reachOut();
            if (auto* top = QApplication::activeModalWidget(); top != nullptr) {
                auto* run = top->findChild<QWidget*>("cmdRun");
                QTest::keyClick(run != nullptr ? run : top->focusWidget(),
                                run != nullptr ? Qt::Key_Space : Qt::Key_Return);
            }
        });
    }

    QuickDesktop desktop;
    game::Generator chance{1'860};
    ui::frmMain mainForm{desktop, chance};
    QObject hand;
};

TEST_F(Voyages, MayBeTenThousand) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "sanitizers keep what is freed";
#endif
    test::find<QAction>(mainForm, "mnuNewItem")->trigger();
    QCoreApplication::sendPostedEvents();
    auto* report = test::find<QPlainTextEdit>(mainForm, "txtLog");
    std::size_t early = 0;
    for (int voyage = 1; voyage <= 10'000; ++voyage) {
        mainForm.state().gcurStatus = 100;
        mainForm.state().gcurBank = 0;
        test::act(mainForm, "click cmdLeave");
        QCoreApplication::sendPostedEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        ASSERT_LE(report->document()->characterCount(), 20'001) << voyage;
        early = voyage == 100 ? mallinfo2().uordblks : early;
    }
    EXPECT_LT(mallinfo2().uordblks, early + (1U << 20U)) << "bytes in use";
    EXPECT_LT(report->document()->blockCount(), 1'000) << "what a refresh has to go through";
    mainForm.state().gblnGameSaved = true;
}

TEST_F(Voyages, AreReportedAsLongAsTheyAreKept) {
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
        bar->setValue(0);
        mainForm.appendEntry(" - but an entry is shown to everybody");
        EXPECT_EQ(bar->value(), bar->maximum());
    }
}

}  // namespace
