// The program with its real desktop, in games far longer than anybody plays.

#include <malloc.h>

#include "player.h"
#include "qt_desktop.h"

namespace {

/// The real desktop without its pauses.
struct QuickDesktop final : ui::QtDesktop {
    void wait(game::Milliseconds /*duration*/) override {}
};

/// A captain who runs from pirates and otherwise presses Enter.
struct LongGames : testing::Test {
    LongGames() {
        mainForm.show();
        game::startGame(mainForm.state(), chance, game::Scenario::Cannons, "Heron");
        mainForm.beginGame(" - Welcome Captain");
        mainForm.UpdateMainForm();
    }

    QuickDesktop desktop;
    game::Generator chance{1'860};
    ui::frmMain mainForm{desktop, chance};
    QPlainTextEdit* report = test::find<QPlainTextEdit>(mainForm, "txtLog");
};

TEST_F(LongGames, MemoryStaysFlat) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "sanitizers keep what is freed";
#endif
    const test::Hand hand([](QWidget* dialog) {
        if (dialog != nullptr) {
            auto* run = dialog->findChild<QPushButton*>("cmdRun");
            run != nullptr ? run->click() : test::press(*dialog, {"Return"});
        }
    });
    std::size_t early = 0;
    for (int voyage = 1; voyage <= 10'000; ++voyage) {
        const game::GameDate before = mainForm.state().gdtmDate;
        mainForm.state().gcurStatus = 100;
        mainForm.state().gcurBank = 0;
        test::find<QPushButton>(mainForm, "cmdLeave")->click();
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        ASSERT_NE(mainForm.state().gdtmDate, before) << "no voyage";
        ASSERT_LT(report->document()->blockCount(), 1'000) << "what a refresh has to go through";
        early = voyage == 100 ? mallinfo2().uordblks : early;
    }
    EXPECT_LT(mallinfo2().uordblks, early + (1U << 20U)) << "bytes in use";
}

TEST_F(LongGames, ReportKeepsItsLastEntries) {
    QString expected = report->toPlainText();
    for (int entry = 0; entry < 300; ++entry) {
        mainForm.appendEntry(" - " + std::string(80, 'x'));
        mainForm.UpdateMainForm();
        expected = (expected + "\r\nJan 15, 1860 - " + QString(80, 'x')).right(20'000);
        ASSERT_EQ(report->toPlainText(), QString(expected).remove('\r'));
    }
    auto* bar = report->verticalScrollBar();
    mainForm.appendText(std::string(1'000, '.'));
    EXPECT_EQ(bar->value(), bar->maximum());
    bar->setValue(0);
    mainForm.appendText(std::string(1'000, '.'));
    EXPECT_EQ(bar->value(), 0) << "dots leave the reader of older entries alone";
    mainForm.appendEntry(" - every entry is scrolled to");
    EXPECT_EQ(bar->value(), bar->maximum());
}

}  // namespace
