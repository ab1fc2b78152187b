// Clicks, menus and the calls of assistive programs; other keys are in dialogs.txt.

#include "stage.h"

namespace {

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
        QWheelEvent wheel({}, {}, {}, {0, 120}, {}, {}, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(list, &wheel);
        EXPECT_EQ(list->currentText(), "$1,000");
    });
    stage.act("visit clicks");
}

TEST(Menus, GiveTheFocusBackAfterOneEscape) {
    test::Stage stage("frmMain |", [](QWidget& mainForm, const QString& /*state*/) {
        for (const char* keys : {"Alt+F", "F10", "Alt"}) {
            test::activate(mainForm);
            test::find<QWidget>(mainForm, "cmdLeave")->setFocus();
            test::press(mainForm, {keys, "Esc"});
            QCoreApplication::sendPostedEvents();
            EXPECT_EQ(mainForm.focusWidget()->objectName(), "cmdLeave") << keys;
        }
    });
    stage.act("visit menus");
}

TEST(Commands, OpenOneDialogAfterTheCallThatAsksForIt) {
    const QStringList all{"mnuNewItem", "mnuHelpItem", "mnuStatsItem", "mnuAboutItem",
                          "cmdBuy",     "cmdLeave",    "cmdVisit",     "cmdTransfer"};
    for (const QString& first : all) {
        SCOPED_TRACE(first.toStdString());
        test::Stage stage("frmMain | *", [&](QWidget& mainForm, const QString& /*state*/) {
            for (const QString& name : QStringList{first} + all) {  // at once
                name.startsWith("cmd") ? test::find<QPushButton>(mainForm, name)->click()
                                       : test::find<QAction>(mainForm, name)->trigger();
            }
            EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << "open inside the call";
        });
        const std::string result = stage.act("visit commands > close");
        EXPECT_EQ(result.find("closed frmMain"), std::string::npos) << "no dialog has opened";
    }
}

}  // namespace
