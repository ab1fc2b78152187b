// What players get who use the keyboard or a screen reader, or have switched animations off.

#include <private/qguiapplication_p.h>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

#include "approved.h"
#include "every_window.h"

namespace {

using test::EveryWindow;

/// The controls that the Tab key should come to.
QList<QWidget*> tabStops(QWidget& window) {
    QList<QWidget*> stops;
    for (QWidget* control : window.findChildren<QWidget*>()) {
        if ((control->focusPolicy() & Qt::TabFocus) != 0 && control->isVisible() &&
            control->isEnabled() && control->focusProxy() == nullptr) {
            stops.append(control);
        }
    }
    return stops;
}

TEST(Keyboard, SeesItsFocusInEveryWindowLightAndDark) {
    const QPalette light = QApplication::palette();
    for (const QColor& colour : {light.color(QPalette::Window), QColor(0x35, 0x35, 0x35)}) {
        QApplication::setPalette(QPalette(colour));
        const EveryWindow all(false, [](QWidget& window, const QString&) {
            EXPECT_TRUE(window.testAttribute(Qt::WA_KeyboardFocusChange)) << "seen after Tab only";
            const QList<QWidget*> stops = tabStops(window);
            for (QWidget* stop : stops) {
                if (stops.size() == 1) {
                    return;  // the button of a box, which never loses the focus
                }
                const auto picture = [&](QWidget* focused) {
                    focused->setFocus(Qt::TabFocusReason);
                    return window.grab({stop->mapTo(&window, QPoint()), stop->size()}).toImage();
                };
                QApplication::setActiveWindow(&window);
                const QImage with = picture(stop);
                const QImage without =
                    picture(stop == stops.front() ? stops.back() : stops.front());
                int dots = 0;
                for (int dot = 0; dot < with.width() * with.height(); ++dot) {
                    const QPoint place(dot % with.width(), dot / with.width());
                    dots += with.pixel(place) != without.pixel(place) ? 1 : 0;
                }
                EXPECT_GE(dots, std::max(stop->width(), 20)) << stop->objectName().toStdString();
            }
        });
    }
    QApplication::setPalette(light);
}

/// A control as other programs know it, its caption or text, and what a screen reader says of it.
QString described(QWidget& control) {
    const QMetaObject* kind = control.metaObject();
    while (kind->className()[0] != 'Q') {
        kind = kind->superClass();
    }
    const QString text = test::textOf(control).left(80).replace('\n', '|');
    const QString spoken = QAccessible::queryAccessibleInterface(&control)
                               ->text(QAccessible::Name)
                               .trimmed()
                               .replace('\n', '|');
    return QString("    %1 %2%3 \"%4\"%5\n")
        .arg(kind->className(), control.objectName(), control.isEnabled() ? "" : ", disabled", text,
             spoken == text.trimmed() ? "" : ", spoken \"" + spoken + '"');
}

/// Everything that has a name in every window, and the way of the Tab key through it.
TEST(Windows, AreNamedAndSpokenOfAndPassedThroughAsTheyShould) {
    QString told;
    const EveryWindow all(false, [&](QWidget& window, const QString&) {
        const QString title = window.objectName() + " \"" + window.windowTitle() + "\"\n";
        if (told.contains(title)) {
            return;  // another state of a window known
        }
        told += '\n' + title;
        for (auto* action : window.findChildren<QAction*>(QRegularExpression("^mnu.*Item"))) {
            told += QString("    %1 \"%2\" %3\n")
                        .arg(action->objectName(), action->text(), action->shortcut().toString());
        }
        for (auto* control : window.findChildren<QWidget*>(QRegularExpression("^(?!qt_|img).+"))) {
            told += control->window() == &window ? described(*control) : QString();
        }
        QList<QWidget*> stops;
        QApplication::setActiveWindow(&window);
        for (QWidget* stop = window.focusWidget(); stop != nullptr && !stops.contains(stop);
             stop = window.focusWidget()) {
            told += (stops.isEmpty() ? "    Tab: " : ", ") +
                    (stop->objectName().isEmpty() ? test::textOf(*stop) : stop->objectName());
            stops << stop;
            QTest::keyClick(stop, Qt::Key_Tab);
        }
        EXPECT_GE(stops.size(), tabStops(window).size());
    });
    test::expectApproved("windows.txt", told.toStdString());
}

QString inserted;  ///< what assistive programs are told of the report

TEST(ScreenReader, IsToldOfNewEntriesAndOfEveryDot) {
    test::Playing game(+[](game::GameState&) {});
    QPlatformAccessibility* platform =
        QGuiApplicationPrivate::platformIntegration()->accessibility();
    platform->setActive(true);
    const auto before = QAccessible::installUpdateHandler(+[](QAccessibleEvent* event) {
        if (event->type() == QAccessible::TextInserted) {
            inserted += static_cast<QAccessibleTextInsertEvent*>(event)->textInserted();
        }
    });
    game.mainForm.appendEntry(" - Departing Hong Kong");
    game.mainForm.appendText(".");
    game.mainForm.appendText(".");
    game.mainForm.appendEntry(" - Kwan Tat has sent a lieutenant", "to see you");
    QAccessible::installUpdateHandler(before);
    platform->setActive(false);
    EXPECT_EQ(inserted.replace(QChar::ParagraphSeparator, '\n').toStdString(),
              "\nJan 15, 1860 - Departing Hong Kong..\nJan 15, 1860 - Kwan Tat has sent a "
              "lieutenant\n                       to see you");
}

/// A desktop whose animations are switched off.
struct StillStyle final : QProxyStyle {
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override {
        return hint == SH_Widget_Animation_Duration
                   ? 0
                   : QProxyStyle::styleHint(hint, option, widget, data);
    }
};

TEST(Stillness, SparesAllFlashesAndNothingElse) {
    StillStyle still;
    std::vector<QStringList> seen;
    for (QStyle* style : {QApplication::style(), static_cast<QStyle*>(&still)}) {
        QStringList& colours = seen.emplace_back();
        test::Opened<ui::frmPirate> battle([](game::GameState& state) { state.gcurCannons = 2; },
                                           {test::roll(4, 4)});
        battle.draws.add({test::roll(7, 10)}, 6);
        battle.draws.add({test::roll(1, 25)});
        const auto watch = [&](QWidget* widget, QPoint place) {
            widget->window()->setStyle(style);
            battle.desktop.duringWait = [&, widget, place] {
                colours << widget->grab().toImage().pixelColor(place).name() + ' ' +
                               QString::number(battle.desktop.waited.count());
            };
        };
        watch(test::find<QWidget>(battle.mainForm, "txtLog"), {20, 20});
        battle.mainForm.flashReport(game::Alert::Misfortune);
        battle.mainForm.flashReport(game::Alert::News);
        watch(battle.find<QWidget>("picShips"), {424, 168});
        battle.act("press cmdFight Space");
    }
    EXPECT_EQ(seen.front().first(2), (QStringList{"#ff0000 20", "#00ffff 40"}));
    EXPECT_EQ(seen.front().filter("#ff0000").size(), 1 + 4);
    seen.front().replaceInStrings("#ff0000", "#000000").replaceInStrings("#00ffff", "#000000");
    EXPECT_EQ(seen.front(), seen.back());
}

}  // namespace
