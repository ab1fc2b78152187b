#pragma once

#include <QtTest>
#include <QtWidgets>

#include "fake_desktop.h"
#include "find.h"
#include "frmMain.h"
#include "games.h"
#include "text.h"

namespace test {

/// What a player does in a window: "click BUTTON", "type FIELD TEXT", "paste FIELD TEXT",
/// "pick LIST ENTRY" or, for any control, "press CONTROL Left Ctrl+V".
inline void act(QWidget& window, const QString& what) {
    const QString verb = what.section(' ', 0, 0);
    auto* control = find<QWidget>(window, qPrintable(what.section(' ', 1, 1)));
    const QString with = what.section(' ', 2);
    auto* list = qobject_cast<QComboBox*>(control);
    QApplication::setActiveWindow(&window);  // as any window manager does
    control->setFocus();
    if (verb == "click") {
        qobject_cast<QAbstractButton*>(control)->click();
    } else if (verb == "type") {
        QTest::keyClicks(control, with);
    } else if (verb == "paste") {
        QGuiApplication::clipboard()->setText(with);
        (list != nullptr ? list->lineEdit() : qobject_cast<QLineEdit*>(control))->paste();
    } else if (verb == "pick") {
        list->showPopup();
        EXPECT_GE(list->findText(with), 0) << "no entry " << with.toStdString();
        list->view()->setCurrentIndex(list->model()->index(list->findText(with), 0));
        QTest::keyClick(list->view(), Qt::Key_Return);
    } else {
        for (const QString& key : with.split(' ')) {
            const QKeyCombination keys = QKeySequence(key)[0];
            QTest::keyClick(control, keys.key(), keys.keyboardModifiers());
        }
    }
}

/// What the player does in the next dialog that opens over all others. A dialog still open after
/// that is closed and fails the test.
inline void inNextDialog(const std::function<void(QDialog&)>& act) {
    QTimer::singleShot(0, qApp, [act] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr) << "no dialog opened";
        act(*dialog);
        if (QApplication::activeModalWidget() == dialog) {
            ADD_FAILURE() << dialog->objectName().toStdString() << " is still open";
            dialog->done(QDialog::Rejected);
        }
    });
}
inline void inNextDialog(const char* what) {
    inNextDialog([what](QDialog& dialog) { act(dialog, what); });
}

/// The real main window over a desktop without a screen.
struct Playing {
    /// A game just started, and what is different in it.
    using Change = void (*)(game::GameState&);

    Playing() { mainForm.show(); }
    explicit Playing(Change change) : Playing() { go(newGameWith(change)); }

    void go(const game::GameState& game) {
        record = game;
        mainForm.beginGame(" - Welcome Captain");
        mainForm.UpdateMainForm();
        told();
    }
    /// The entries of the report since it was asked for last, without their dates.
    std::string told() {
        QString report = find<QPlainTextEdit>(mainForm, "txtLog")->toPlainText();
        const qsizetype known = std::exchange(m_told, report.size());
        static const QRegularExpression date("(^|\n)[A-Z][a-z]{2} \\d\\d, \\d{4}");
        return report.mid(report.size() < known ? 0 : known).replace(date, "\\1").toStdString();
    }

    FakeDesktop desktop;
    ScriptedRandom draws;
    ui::frmMain mainForm{desktop, draws};
    game::GameState& record = mainForm.state();

private:
    qsizetype m_told = 0;
};

/// A dialog of the real main window.
template <class Dialog>
struct Opened : Playing {
    template <class... Arguments>
    explicit Opened(
        Change change = [](game::GameState&) {}, const std::vector<double>& first = {},
        Arguments... arguments)
        : Playing(change) {
        draws.add(first);
        dialog.emplace(mainForm, arguments...);
        dialog->show();
    }
    void act(const char* what) { test::act(*dialog, what); }
    std::string shown(const char* names) { return test::shown(*dialog, names); }
    /// What the controls show when the player has done something.
    std::string after(const char* what, const char* names) {
        act(what);
        return shown(names);
    }
    template <class Control>
    Control* find(const char* name) {
        return test::find<Control>(*dialog, name);
    }

    std::optional<Dialog> dialog;
};

}  // namespace test
