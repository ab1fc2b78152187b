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
        const bool part = std::ranges::any_of(
            std::array{"QAbstractScrollArea", "QComboBox", "QLineEdit", "QMenuBar"},
            [&](const char* whole) { return control->parent()->inherits(whole); });
        if (!part && control->isVisibleTo(&window) && control->window() == &window) {
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

inline QKeyCombination keyOf(const QString& name) {
    const QKeyCombination key = QKeySequence(name)[0];
    return key.key() != 0 && key.key() != Qt::Key_unknown
               ? key
               : throw std::runtime_error("no such key: " + name.toStdString());
}

/// Presses keys such as "Ctrl+V" one after the other, wherever the focus of `window` is by then.
inline void press(QWidget& window, const QStringList& keys) {
    for (const QString& name : keys) {
        const QKeyCombination key = keyOf(name);
        QWidget* popup = QApplication::activePopupWidget();
        QWidget* top = popup != nullptr ? popup : &window;
        QWidget* focus = top->focusWidget() != nullptr ? top->focusWidget() : top;
        QTest::keyClick(focus, key.key(), key.keyboardModifiers());
    }
}

/// What the main window shows wrongly of a game in port.
inline std::string wrongDisplays(const QMainWindow& mainForm, const game::GameState& state) {
    using ui::fromRules, ui::money, ui::plain;
    const QString hold = plain(state.gcurHold) + " of " + plain(state.gcurMaxHold);
    QMap<QString, QString> right{
        {"txtDate", fromRules(game::dateText(state.gdtmDate))},
        {"prgStatus", plain(state.gcurStatus)},
        {"prgHold", plain(state.gcurHold)},
        {"fraStatus", "Ship's Status - " + plain(state.gcurStatus) + "% "},
        {"fraHold", "Ship's Hold - " + hold + ' '},
        {"fraPrices", "Prices at " + fromRules(state.gstrLocation) + ' '},
        {"fraHouse", "House of " + fromRules(state.gstrFirm).replace("&", "&&") + ", Hong Kong "}};
    eachMember([&](std::string_view member, auto figure) {  // displays are named after figures
        if constexpr (std::is_same_v<decltype(figure), game::Field>) {
            static const QRegularExpression dollars("txt(Cash|Debt|Bank|P)");
            const QString name = "txt" + fromRules(member);
            if (mainForm.centralWidget()->findChild<QLineEdit*>(name) != nullptr) {
                right[name] = name.contains(dollars) ? money(state.*figure) : plain(state.*figure);
            }
        }
    });
    QString wrong;
    for (const auto& [name, text] : right.asKeyValueRange()) {
        const QString shown = textOf(*find<QWidget>(mainForm, name));
        wrong += shown == text ? "" : name + " shows " + shown + ", not " + text + '\n';
    }
    const QString title =
        "Zhenbao - " + fromRules(state.gstrRank) + " [" + money(state.gcurNetWorth) + "]";
    wrong += mainForm.windowTitle() == title ? "" : "the title is not " + title + '\n';
    const int end = find<QProgressBar>(mainForm, "prgHold")->maximum();
    wrong += end == state.gcurMaxHold ? "" : "prgHold does not end at the ship's hold\n";
    game::GameState again = state;
    game::updateStanding(again);
    return wrong.toStdString() + changes(again, state);
}

}  // namespace test
