#pragma once

#include <gtest/gtest.h>

#include <QtTest>
#include <QtWidgets>

#include "frmMain.h"
#include "games.h"
#include "standing.h"
#include "text.h"

namespace test {

/// The control of that name; a test cannot go on without it.
template <class Control>
Control* find(const QWidget& window, const QString& name) {
    auto* control = window.findChild<Control*>(name);
    if (control == nullptr) {
        throw std::runtime_error("no such control: " + name.toStdString());
    }
    return control;
}

/// The controls that a window lays out itself, without the parts that the toolkit builds them of.
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

/// Makes `window` the active one, as window managers do. No dialog may be open over it.
inline void activate(QWidget& window) {
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == &window; }));
}

/// Presses keys such as "Ctrl+V" one after the other.
inline void press(QWidget* control, const QStringList& keys) {
    for (const QString& key : keys) {
        const QKeyCombination combination = QKeySequence(key)[0];
        if (combination.key() == 0 || combination.key() == Qt::Key_unknown) {
            throw std::runtime_error("no such key: " + key.toStdString());
        }
        QTest::keyClick(control, combination.key(), combination.keyboardModifiers());
    }
}

/// What the main window shows wrongly of a game in port, a line each.
inline std::string wrongDisplays(const QMainWindow& mainForm, const game::GameState& state) {
    using ui::fromRules, ui::plain;
    const QWidget& house = *mainForm.centralWidget();
    std::string wrong;
    const auto check = [&](const QString& what, const QString& shown, const QString& wanted) {
        wrong +=
            shown == wanted ? "" : (what + " shows " + shown + ", not " + wanted).toStdString();
    };
    const auto checkDisplay = [&](const QString& name, const QString& wanted) {
        check(name, textOf(*find<QWidget>(house, name)), wanted);
    };
    eachMember([&](std::string_view member, auto figure) {  // displays are named after figures
        if constexpr (std::is_same_v<decltype(figure), game::Field>) {
            const QString name = "txt" + fromRules(member);
            if (house.findChild<QLineEdit*>(name) != nullptr) {
                static const QRegularExpression money("txt(Cash|Debt|Bank|P)");
                const auto text = name.contains(money) ? ui::money : plain;
                checkDisplay(name, text(state.*figure));
            }
        }
    });
    checkDisplay("txtDate", fromRules(game::dateText(state.gdtmDate)));
    checkDisplay("prgStatus", plain(state.gcurStatus));
    checkDisplay("prgHold", plain(state.gcurHold));
    checkDisplay("fraStatus", "Ship's Status - " + plain(state.gcurStatus) + "% ");
    checkDisplay("fraHold", "Ship's Hold - " + plain(state.gcurHold) + " of " +
                                plain(state.gcurMaxHold) + ' ');
    checkDisplay("fraPrices", "Prices at " + fromRules(state.gstrLocation) + ' ');
    checkDisplay("fraHouse",
                 "House of " + fromRules(state.gstrFirm).replace("&", "&&") + ", Hong Kong ");
    check("the title", mainForm.windowTitle(),
          "Zhenbao - " + fromRules(state.gstrRank) + " [" + ui::money(state.gcurNetWorth) + "]");
    check("the end of prgHold", plain(find<QProgressBar>(house, "prgHold")->maximum()),
          plain(state.gcurMaxHold));
    game::GameState again = state;
    game::updateStanding(again);
    return wrong + (again == state ? "" : "an old standing");
}

}  // namespace test
