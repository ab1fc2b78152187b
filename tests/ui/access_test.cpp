// What players get who use the keyboard or a screen reader, or have switched animations off.

#include <private/qguiapplication_p.h>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

#include <set>

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

/// Whether one reads `a` before `b`. Of the panels or controls in which they part, the left one
/// comes first where they stand side by side, and else the upper one.
bool readsBefore(QWidget* a, QWidget* b) {
    const auto part = [](QWidget* control, QWidget* other) {
        while (!control->parentWidget()->isAncestorOf(other)) {
            control = control->parentWidget();
        }
        return control->geometry();
    };
    const QRect first = part(a, b);
    const QRect second = part(b, a);
    const bool sideBySide = first.top() < second.bottom() && second.top() < first.bottom();
    return sideBySide ? first.left() < second.left() : first.top() < second.top();
}

TEST(Keyboard, VisitsEveryControlInReadingOrderAndGoesBack) {
    const EveryWindow all(false, [](QWidget& window, const QString&) {
        QList<QWidget*> expected = tabStops(window);
        std::sort(expected.begin(), expected.end(), readsBefore);
        if (expected.isEmpty()) {
            return;  // while a battle runs its course
        }
        for (const bool forward : {true, false}) {
            QApplication::setActiveWindow(&window);
            expected.front()->setFocus();
            for (qsizetype stop = 0; stop <= expected.size(); ++stop) {
                const qsizetype at = forward ? stop : expected.size() - stop;
                EXPECT_EQ(window.focusWidget(), expected.at(at % expected.size()))
                    << window.focusWidget()->objectName().toStdString();
                QTest::keyClick(window.focusWidget(), forward ? Qt::Key_Tab : Qt::Key_Backtab);
            }
        }
    });
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

/// Hands every object below `parent` to `visit` that an assistive program comes to.
void walk(QAccessibleInterface* parent, const std::function<void(QAccessibleInterface&)>& visit) {
    for (int child = 0; child < parent->childCount(); ++child) {
        QAccessibleInterface* object = parent->child(child);
        ASSERT_TRUE(object != nullptr && object->parent()->object() == parent->object());
        visit(*object);
        walk(object, visit);
    }
}

TEST(ScreenReader, FindsFiguresByWhatTheyAreAndNothingWithoutAName) {
    using A = QAccessible;
    const std::set<A::Role> inert{A::StaticText, A::Client, A::Separator, A::Grouping};
    const std::map<QString, std::string> spoken{
        {"txtSOpium", "Opium aboard"},
        {"txtPGeneral", "General price"},
        {"prgHold", "Ship's hold in use"},
        {"cmdMaxSilk", "Max Silk"},
        {"cboSilk", "Silk to buy"},
        {"cboShip", "Good to move to the warehouse: Opium"},
        {"sldRepair", "Condition to restore in percent"},
        {"lblNetValue", "Net Worth: $421,257"},
        {"picShips", "Enemy ships: 21"},
    };
    std::map<QString, std::string> heard;
    const EveryWindow all(false, [&](QWidget& window, const QString&) {
        walk(A::queryAccessibleInterface(&window), [&](QAccessibleInterface& object) {
            const QString id = object.object() ? object.object()->objectName() : QString{};
            const QString name = object.text(A::Name).trimmed();
            if (object.state().focusable ||
                (inert.count(object.role()) == 0 && !id.startsWith("qt_"))) {
                EXPECT_FALSE(name.isEmpty()) << object.role() << ' ' << id.toStdString();
            }
            if (spoken.count(id) > 0) {
                heard.emplace(id, name.toStdString());
            }
        });
    });
    EXPECT_EQ(heard, spoken);
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
