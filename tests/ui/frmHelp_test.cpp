#include "frmHelp.h"

#include <gtest/gtest.h>

#include <QtWidgets>
#include <array>

#include "opened.h"

namespace {

struct frmHelp : testing::Test {
    test::Opened<ui::frmHelp> visit;
    QPlainTextEdit* display = visit.find<QPlainTextEdit>("txtDisplay");

    QString ask(const char* button) {
        visit.click(button);
        return display->toPlainText();
    }
};

TEST_F(frmHelp, ShowsEachTextOnceHoweverOftenItIsAskedFor) {
    EXPECT_EQ(visit.shown("fraContent"), "Introduction ");
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
        EXPECT_EQ(visit.shown("fraContent"), frame);
        EXPECT_TRUE(text.startsWith(begins) && text.endsWith(ends)) << button;
        for (const char* focus : {"txtDisplay", button}) {
            visit.press(focus, {Qt::Key_Return, Qt::Key_X, Qt::Key_Delete});
        }
        EXPECT_EQ(display->toPlainText(), text) << "it is there to be read";
    }
    visit.press("txtDisplay", {Qt::Key_Escape});
    EXPECT_FALSE(visit.dialog().isVisible());
}

TEST_F(frmHelp, InstructionsFillAScreenOf40Columns) {
    const QString text = ask("cmdIntructions");
    EXPECT_EQ(text.count('\n'), 261);
    for (const QString& line : text.chopped(1).split('\n')) {
        EXPECT_EQ(line.size(), 40) << line.toStdString();
    }
    EXPECT_EQ(text, text.toUpper());
    EXPECT_TRUE(QFontInfo(display->font()).fixedPitch());
    EXPECT_EQ(display->horizontalScrollBar()->maximum(), 0);
}

}  // namespace
