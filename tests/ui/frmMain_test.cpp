#include "frmMain.h"

#include <QAction>
#include <QGroupBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <tuple>

#include "fake_desktop.h"
#include "find.h"
#include "games.h"
#include "modal.h"
#include "orders.h"
#include "standing.h"

using game::GameState;
using test::find;
using test::inNextDialog;

namespace {

constexpr double uneventful = 0.99;
const QString saveQuestion = QStringLiteral("Do you want to save the current game?   ");

class MainWindow : public testing::Test {
protected:
    MainWindow() { mainForm.show(); }

    void trigger(const char* item) { find<QAction>(mainForm, item)->trigger(); }
    QPushButton* button(const char* name) { return find<QPushButton>(mainForm, name); }
    QString log() { return find<QPlainTextEdit>(mainForm, "txtLog")->toPlainText(); }
    QString title(const char* panel) { return find<QGroupBox>(mainForm, panel)->title(); }

    void expectNoOrders() {
        for (auto* order : find<QGroupBox>(mainForm, "fraOrders")->findChildren<QPushButton*>()) {
            EXPECT_FALSE(order->isEnabled()) << order->objectName().toStdString();
        }
    }
    /// Goes on with a game that is not of the player's making.
    void play(const GameState& state) {
        mainForm.state() = state;
        mainForm.beginGame(" - Welcome Captain");
        mainForm.UpdateMainForm();
    }
    /// Starts a new game from its dialog, prices at their lowest.
    void startInDialog() {
        draws.add({0}, 4);
        inNextDialog([](QDialog& form) { find<QPushButton>(form, "cmdStart")->click(); });
    }

    test::FakeDesktop desktop;
    test::ScriptedRandom draws;
    ui::frmMain mainForm{desktop, draws};
};

TEST_F(MainWindow, OffersNothingUntilAGameBegins) {
    EXPECT_EQ(mainForm.windowTitle(), QStringLiteral("Zhenbao"));
    EXPECT_EQ(title("fraHold"), QStringLiteral("Ship's Hold - 0 of 60"));
    EXPECT_EQ(find<QLineEdit>(mainForm, "txtDate")->text(), QStringLiteral("Jan 15, 1860"));
    expectNoOrders();
    EXPECT_FALSE(find<QAction>(mainForm, "mnuSaveItem")->isEnabled());
    inNextDialog([](QDialog& form) { form.close(); });
    trigger("mnuNewItem");
    EXPECT_FALSE(button("cmdBuy")->isEnabled()) << "a cancelled new game begins nothing";

    startInDialog();
    trigger("mnuNewItem");
    EXPECT_EQ(mainForm.windowTitle(), QStringLiteral("Zhenbao - Galley Hand [$0]"));
    EXPECT_EQ(title("fraHold"), QStringLiteral("Ship's Hold - 50 of 60 "));
    EXPECT_EQ(find<QProgressBar>(mainForm, "prgHold")->value(), 50);
    EXPECT_TRUE(find<QAction>(mainForm, "mnuSaveItem")->isEnabled());
    EXPECT_TRUE(button("cmdMoney")->isEnabled());
    EXPECT_FALSE(button("cmdCannon")->isEnabled());
}

TEST_F(MainWindow, ShowsAnyFirmAsItStandsAndStaysAsWide) {
    const int width = mainForm.minimumSizeHint().width();
    play(test::newGame());
    EXPECT_EQ(title("fraHouse"), QStringLiteral("House of Heron && Sons, Hong Kong "));
    play(test::newGameWith([](auto& state) { state.gstrFirm = std::string(1'000'000, 'M'); }));
    EXPECT_LE(mainForm.minimumSizeHint().width(), width);
}

TEST_F(MainWindow, AsksToSaveWhereAGameWouldBeLost) {
    using Row = std::tuple<const char*, bool, bool>;
    for (const auto& [item, saved, asks] : {Row{"mnuNewItem", true, true},
                                            {"mnuLoadItem", true, false},
                                            {"mnuLoadItem", false, true},
                                            {"mnuExitItem", false, true}}) {
        SCOPED_TRACE(item);
        GameState before = test::newGame();
        before.gblnGameSaved = saved;
        play(before);
        before = mainForm.state();
        if (asks) {
            desktop.expect(saveQuestion, QStringLiteral("Zhenbao"), ui::Answer::Cancel);
        }
        trigger(item);
        EXPECT_EQ(mainForm.state(), before);
        EXPECT_TRUE(mainForm.isVisible());
    }
    desktop.expect(saveQuestion, QStringLiteral("Zhenbao"), ui::Answer::Yes);
    startInDialog();
    trigger("mnuNewItem");
    EXPECT_EQ(mainForm.state().gcurCannons, 5) << "it goes on although saving was cancelled";
    trigger("mnuExitItem");
    EXPECT_FALSE(mainForm.isVisible()) << "nothing to lose, nothing to ask";
}

TEST_F(MainWindow, TakesNoOrdersWhileTheShipIsAtSea) {
    play(test::newGameWith([](auto& state) { state.gcurStatus = 50; }));
    draws.add({test::roll(2, 7)});
    draws.add({uneventful}, 25);
    draws.add({0, 0, 0, 0, uneventful, uneventful, 0});
    draws.add({test::roll(1, 5), 0, test::roll(2, 12), 0});
    draws.add({uneventful}, 4);
    int waits = 0;
    desktop.duringWait = [&] {
        if (++waits > 25) {
            button("cmdCannon")->click();
        }
        if (waits != 3) {
            return;
        }
        mainForm.UpdateMainForm();
        expectNoOrders();
        for (const auto key : {Qt::Key_N, Qt::Key_L, Qt::Key_S}) {
            QTest::keyClick(&mainForm, key, Qt::ControlModifier);
        }
        QTest::keyClick(&mainForm, Qt::Key_F1);
        EXPECT_FALSE(mainForm.close());
        EXPECT_EQ(mainForm.cursor().shape(), Qt::BusyCursor);
        EXPECT_TRUE(log().endsWith(QStringLiteral("Departing Hong Kong...")));
    };
    inNextDialog([](QDialog& form) { find<QPushButton>(form, "cmdDepart")->click(); });
    button("cmdLeave")->click();

    EXPECT_EQ(waits, 26);
    EXPECT_EQ(mainForm.state().gcurCannons, 0) << "bought before the arrival was over";
    EXPECT_EQ(mainForm.cursor().shape(), Qt::ArrowCursor);
    EXPECT_TRUE(log().endsWith(QStringLiteral(
        "Departing Hong Kong.........................\nFeb 15, 1860 - Arriving at Shanghai\n"
        "Feb 15, 1860 - Zhenbao, a ship's cannon is available for $400\n"
        "Feb 15, 1860 - Zhenbao, you can trade in your ship for one with 50 more capacity\n"
        "                        by paying an additional $5,000")));
    EXPECT_EQ(title("fraPrices"), QStringLiteral("Prices at Shanghai "));
    EXPECT_TRUE(button("cmdLeave")->isEnabled());
    EXPECT_TRUE(button("cmdCannon")->isEnabled());
    EXPECT_FALSE(button("cmdRepair")->isEnabled());
    EXPECT_FALSE(mainForm.state().gblnGameSaved);
}

TEST_F(MainWindow, LetsAnOfferStandUntilItIsTaken) {
    play(test::newGameWith([](auto& state) {
        state.gcurPCannon = 1'001;
        state.gcurPShip = 1'000;
    }));
    mainForm.setOrderEnabled(game::Order::Cannon, true);
    mainForm.setOrderEnabled(game::Order::Ship, true);
    desktop.expect(QStringLiteral("Insufficient Funds     "), QStringLiteral("Sorry"));
    auto* report = find<QPlainTextEdit>(mainForm, "txtLog");
    report->moveCursor(QTextCursor::Start);
    button("cmdCannon")->click();
    EXPECT_TRUE(report->textCursor().atEnd());
    button("cmdShip")->click();
    EXPECT_TRUE(button("cmdCannon")->isEnabled());
    EXPECT_FALSE(button("cmdShip")->isEnabled());
    EXPECT_TRUE(log().endsWith(QStringLiteral(" - Bought a New Ship for $1,000")));
    EXPECT_EQ(title("fraHold"), QStringLiteral("Ship's Hold - 0 of 110 "));
}

TEST_F(MainWindow, AnnouncesTheFirstMillionOnce) {
    play(test::newGame());
    for (const auto& [cash, caption] : {std::pair{game::million, "You are a Millionaire!"},
                                        {game::trillion, "You are a Trillionaire!"}}) {
        mainForm.state().gcurCash = cash;
        inNextDialog([expected = caption](QDialog& form) {
            EXPECT_EQ(form.windowTitle(), QString::fromLatin1(expected));
            form.close();
        });
        mainForm.UpdateMainForm();
        EXPECT_TRUE(mainForm.state().gblnMillionaire);
        mainForm.state().gcurCash = game::million;
        mainForm.UpdateMainForm();
    }
}

TEST_F(MainWindow, LeadsFromBankruptcyToOneNewGameOrTheEnd) {
    const QString question =
        QStringLiteral("Zhenbao, you are Bankrupt.  Would you like to play again?   ");
    const auto ruined = test::newGameWith([](auto& state) { state.gcurDebt = game::trillion; });
    desktop.expect(question, QStringLiteral("Game Over"), ui::Answer::Yes);
    startInDialog();
    play(ruined);
    EXPECT_TRUE(mainForm.state().gblnActiveGame);
    EXPECT_EQ(mainForm.state().gcurCannons, 5);
    EXPECT_EQ(desktop.lastBox.onEscape, ui::Answer::Yes) << "only a click on No ends the program";

    desktop.expect(question, QStringLiteral("Game Over"), ui::Answer::No);
    EXPECT_THROW(play(ruined), test::ProgramEnded);
}

TEST_F(MainWindow, KeepsTheLogAndItsViewTheSame) {
    play(test::newGame());
    std::string expected = "Jan 15, 1860 - Welcome Captain";
    for (int entry = 0; entry < 300; ++entry) {
        mainForm.appendEntry(" - " + std::string(80, 'x'));
        expected += "\r\nJan 15, 1860 - " + std::string(80, 'x');
        mainForm.UpdateMainForm();
        expected = expected.substr(expected.size() < 20'000 ? 0 : expected.size() - 20'000);
        std::string seen = expected;
        std::erase(seen, '\r');
        ASSERT_EQ(log().toStdString(), seen) << "entry " << entry;
    }
}

}  // namespace
