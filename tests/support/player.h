#pragma once

#include <gtest/gtest.h>

#include <QtTest>
#include <QtWidgets>

#include "frmMain.h"
#include "games.h"
#include "text.h"

namespace test {

/// The control of that name; a test cannot go on without it.
template <class Control>
Control* find(const QWidget& window, const QString& name) {
    auto* control = window.findChild<Control*>(name);
    if (control == nullptr) {
        throw std::runtime_error("no control named " + name.toStdString());
    }
    return control;
}

/// The controls a window lays out itself, as opposed to what the toolkit builds them of.
inline QList<QWidget*> controlsOf(const QWidget& window) {
    QList<QWidget*> controls;
    for (auto* control : window.findChildren<QWidget*>()) {
        const QObject* parent = control->parent();
        if (control->isVisibleTo(&window) && control->window() == &window &&
            !parent->inherits("QAbstractScrollArea") && !parent->inherits("QComboBox") &&
            !parent->inherits("QLineEdit") && !parent->inherits("QMenuBar")) {
            controls.append(control);
        }
    }
    return controls;
}

/// What a control shows.
inline QString textOf(const QWidget& control) {
    for (const char* property : {"currentText", "value", "title", "text", "plainText"}) {
        if (const QVariant text = control.property(property); text.isValid()) {
            return text.toString();
        }
    }
    return {};
}

/// Makes `window` the active one, as window managers do for the window that takes the input. No
/// dialog may be open over it.
inline void activate(QWidget& window) {
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &window; }));
}

/// What a player does in a window: "click BUTTON", "type FIELD TEXT", "paste FIELD TEXT" where \n
/// breaks a line, "pick LIST ENTRY" or, for any control, "press CONTROL Left Ctrl+V".
inline void act(QWidget& window, const QString& what) {
    const QString verb = what.section(' ', 0, 0);
    auto* control = find<QWidget>(window, what.section(' ', 1, 1));
    const QString with = what.section(' ', 2);
    auto* list = qobject_cast<QComboBox*>(control);
    control->setFocus();
    if (verb == "click") {
        qobject_cast<QAbstractButton*>(control)->click();
    } else if (verb == "type") {
        QTest::keyClicks(control, with);
    } else if (verb == "paste") {
        QGuiApplication::clipboard()->setText(QString(with).replace("\\n", "\n"));
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

}  // namespace test
