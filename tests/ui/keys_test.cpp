// Clicks and assistive programs where it matters when something happens; keys are in dialogs.txt.

#include "stage.h"

namespace {

void click(QWidget& window, const QString& button) {
    test::find<QAbstractButton>(window, button)->click();
}

TEST(Clicks, SelectAnAmountOnlyWithTheOneThatBringsTheFocus) {
    test::Stage stage("frmVisit |", [](QWidget& bank, const QString& /*state*/) {
        auto* list = test::find<QComboBox>(bank, "cboDeposit");
        auto* elsewhere = test::find<QWidget>(bank, "cmdCancel");
        const auto selectedByClick = [field = list->lineEdit()] {
            QTest::mouseClick(field, Qt::LeftButton, {}, field->rect().center());
            return field->selectedText();
        };
        list->setFocus();
        test::press(bank, {"1", "2", "3", "4", "Ctrl+A"});
        EXPECT_EQ(selectedByClick(), "");
        elsewhere->setFocus();
        EXPECT_EQ(selectedByClick(), "1234");
        EXPECT_EQ(selectedByClick(), "");
        // The click that opens the list is not over when the focus has come.
        elsewhere->setFocus();
        list->setFocus(Qt::MouseFocusReason);
        list->showPopup();
        test::press(bank, {"End", "Return"});
        selectedByClick();
        EXPECT_EQ(selectedByClick(), "");
    });
    stage.act("visit clicks");
}

/// Asks for all of these at once, as assistive programs can.
void ask(QWidget& window, const QStringList& commands) {
    for (const QString& name : commands) {
        name.startsWith("cmd") ? click(window, name) : test::find<QAction>(window, name)->trigger();
    }
}

TEST(Commands, OpenOneDialogAfterTheCallThatAsksForIt) {
    const QStringList all{"mnuNewItem", "mnuHelpItem", "mnuStatsItem", "mnuAboutItem",
                          "cmdBuy",     "cmdLeave",    "cmdVisit",     "cmdTransfer"};
    for (const QString& first : all) {
        SCOPED_TRACE(first.toStdString());
        test::Stage stage("frmMain | *", [&](QWidget& mainForm, const QString& /*state*/) {
            ask(mainForm, QStringList{first} + all);
            EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << "open inside the call";
        });
        const std::string result = stage.act("visit commands > close");
        EXPECT_EQ(result.find("closed frmMain"), result.npos) << "no dialog has opened";
    }
}

TEST(Commands, DoNothingDuringAVoyage) {
    test::Stage stage("frmMain | *", [](QWidget& window, const QString& state) {
        if (state == "departure") {
            ask(window, {"cmdDepart", "cmdDepart"});
            EXPECT_TRUE(window.isVisible()) << "under way inside the call";
            return;
        }
        for (auto* item : window.findChildren<QAction*>(QRegularExpression("^mnu"))) {
            item->trigger();
            EXPECT_FALSE(item->isChecked());
        }
        for (auto* button : window.findChildren<QAbstractButton*>(QRegularExpression("^cmd"))) {
            button->click();  // in the dialog behind the voyage, too
        }
        EXPECT_FALSE(window.close());
        QCoreApplication::sendPostedEvents();
    });
    for (int wait = 1; wait <= 25; ++wait) {
        stage.act(QString("wait %1 visit passage").arg(wait));
    }
    const std::string result = stage.act("click cmdLeave > visit departure");
    EXPECT_NE(result.find("Date=Feb 15, 1860 At=Batavia"), result.npos) << result;
}

}  // namespace
