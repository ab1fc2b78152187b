#include "frmHelp.h"

#include <gtest/gtest.h>

#include <QFontInfo>
#include <QGroupBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <array>

#include "arrival.h"
#include "fake_main_form.h"
#include "find.h"
#include "purchases.h"
#include "standing.h"
#include "text.h"

namespace {

struct frmHelpTest : testing::Test {
    test::FakeMainForm mainForm;
    ui::frmHelp form{mainForm};
    QPlainTextEdit* display = test::find<QPlainTextEdit>(form, "txtDisplay");

    QString title() { return test::find<QGroupBox>(form, "fraContent")->title(); }
    QString ask(const char* button) {
        test::find<QPushButton>(form, button)->click();
        return display->toPlainText();
    }
};

TEST_F(frmHelpTest, ShowsEachTextOnceHoweverOftenItIsAskedFor) {
    EXPECT_EQ(title(), "Introduction ");
    EXPECT_EQ(display->blockCount(), 1) << "one paragraph";
    using Row = std::array<const char*, 4>;
    for (const auto& [button, frame, begins, ends] :
         {Row{"cmdIntroduction", "Introduction ", "The theme of Zhenbao", "its secrets away."},
          {"cmdIntructions", "Original Instuctions ",
           "II<=", "\n'MAY YOU LIVE IN INTERESTING TIMES!'    \n"},
          {"cmdHints", "Hints ", "Start with 5 cannons instead of cash.  It ",
           "Purchase larger ships whenever they are offered.\n\n\n\n"},
          {"cmdMoney", "Money Lender Bug ", "The money lender bug is a mistake",
           "at 10% interest.\n\nI decided to keep this bug, which can be toggled on and "
           "off in the options menu."}}) {
        const QString text = ask(button);
        EXPECT_EQ(ask(button), text);
        EXPECT_EQ(title(), frame);
        EXPECT_TRUE(text.startsWith(begins)) << button;
        EXPECT_TRUE(text.endsWith(ends)) << button;
    }
}

TEST_F(frmHelpTest, IsReadOnlyAndClosesByEscapeOnly) {
    form.show();
    const QString text = display->toPlainText();
    for (QWidget* focus : {static_cast<QWidget*>(display), form.findChild<QWidget*>("cmdHints")}) {
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_X, Qt::Key_Delete}) {
            QTest::keyClick(focus, key);
        }
    }
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(display->toPlainText(), text);
    QTest::keyClick(display, Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
}

TEST_F(frmHelpTest, InstructionsFillAScreenOf40ColumnsThatIsSeenWhole) {
    form.show();
    QStringList lines = ask("cmdIntructions").split('\n');
    EXPECT_EQ(lines.takeLast(), "") << "a break behind every line";
    EXPECT_EQ(lines.size(), 261);
    for (const QString& line : lines) {
        EXPECT_EQ(line.size(), 40) << line.toStdString();
        EXPECT_EQ(line, line.toUpper());
    }
    EXPECT_TRUE(QFontInfo(display->font()).fixedPitch());
    EXPECT_EQ(display->horizontalScrollBar()->maximum(), 0);
}

TEST_F(frmHelpTest, InstructionsStateTheRulesAsTheyAre) {
    const QString text = ask("cmdIntructions").simplified();
    const auto amount = [](game::Currency figure) { return ui::money(figure).mid(1); };
    const auto percent = [](double rate) { return QString::number(rate * 100) + '%'; };
    const auto price = [](const game::GoodRow& good, int steps) {
        return ui::money(game::Currency{good.priceStep} * steps);
    };

    test::ScriptedRandom prices{0, 0, 0, 0, 0, 0, 0, 0};
    game::GameState cash;
    game::startGame(cash, prices, game::Scenario::CashAndDebt, {});
    game::GameState cannons;
    game::startGame(cannons, prices, game::Scenario::Cannons, {});
    EXPECT_EQ(cannons.gcurCannons, 5);

    QStringList sentences{
        "SHIP WITH ROOM FOR " + amount(cash.gcurMaxHold) + " UNITS.",
        "BEGIN WITH " + ui::money(cash.gcurCash) + " IN CASH, NO GUNS AND A DEBT OF " +
            ui::money(cash.gcurDebt) + " TO THE MONEY LENDER.",
        "OR YOU MAY BEGIN WITH FIVE GUNS, OWING NOTHING",
        "AT " + percent(game::debtInterest) + " INTEREST PER MONTH.",
        "PAYS " + percent(game::bankInterest) + " A MONTH.",
        "TAKES " + amount(game::holdPerCannon) + " UNITS OF THE HOLD",
        "ROOM FOR " + amount(game::largerShipHold) + " MORE UNITS",
        "HOLDS " + amount(game::warehouseCapacity) + " UNITS",
    };
    for (const game::GoodRow& good : game::goods) {
        sentences << ui::fromRules(good.name).toUpper() + ' ' + price(good, 5) + " TO " +
                         price(good, 25);
    }
    for (const game::RankRow& rank : game::ranks) {
        if (rank.from > 0) {
            sentences << ui::fromRules(rank.name).toUpper() + " FROM " + amount(rank.from);
        }
    }
    for (const QString& sentence : sentences) {
        EXPECT_TRUE(text.contains(sentence)) << sentence.toStdString();
    }
}

}  // namespace
