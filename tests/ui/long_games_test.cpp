// Games far longer than anybody plays.

#include <malloc.h>

#include "stage.h"

namespace {

/// A captain who runs from pirates and otherwise presses Enter.
class Captain final : public test::Stage {
public:
    Captain() : Stage("frmMain Debt=5000", {}, &chance) {}

    void sail() {
        m_game.gcurStatus = 100;
        m_game.gcurBank = 0;
        m_results.clear();
        test::find<QPushButton>(m_mainForm, "cmdLeave")->click();
        playFor(1);
    }

    ui::frmMain& mainForm = m_mainForm;
    QPlainTextEdit* report = test::find<QPlainTextEdit>(m_mainForm, "txtLog");

private:
    void wait(game::Milliseconds /*duration*/) override {}
    QString nextAct(QWidget& top) override {
        return top.objectName() == "frmPirate" ? "click cmdRun"
               : top.isModal()                 ? "press " + top.objectName() + " Return"
                                               : "";
    }

    static inline game::Generator chance{1'860};
};

TEST(LongGames, MemoryStaysFlat) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "sanitizers keep what is freed";
#endif
    Captain captain;
    std::size_t early = 0;
    for (int voyage = 1; voyage <= 10'000; ++voyage) {
        const game::GameDate before = captain.mainForm.state().gdtmDate;
        captain.sail();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        ASSERT_NE(captain.mainForm.state().gdtmDate, before) << "no voyage";
        ASSERT_LT(captain.report->document()->blockCount(), 1'000) << "a refresh goes through them";
        early = voyage == 100 ? mallinfo2().uordblks : early;
    }
    EXPECT_LT(mallinfo2().uordblks, early + (1U << 20U)) << "bytes in use";
}

TEST(LongGames, ReportKeepsItsLastEntries) {
    Captain captain;
    const QPlainTextEdit* report = captain.report;
    QString expected = report->toPlainText();
    for (int entry = 0; entry < 300; ++entry) {
        captain.mainForm.appendEntry(" - " + std::string(80, 'x'));
        captain.mainForm.UpdateMainForm();
        expected = (expected + "\r\nJan 15, 1860 - " + QString(80, 'x')).right(20'000);
        ASSERT_EQ(report->toPlainText(), QString(expected).remove('\r'));
    }
    auto* bar = report->verticalScrollBar();
    captain.mainForm.appendText(std::string(1'000, '.'));
    EXPECT_EQ(bar->value(), bar->maximum());
    bar->setValue(0);
    captain.mainForm.appendText(std::string(1'000, '.'));
    EXPECT_EQ(bar->value(), 0) << "dots leave the reader of older entries alone";
    captain.mainForm.appendEntry(" - every entry is scrolled to");
    EXPECT_EQ(bar->value(), bar->maximum());
}

}  // namespace
