// What players get who use a screen reader, or who have switched animations off.

#include <gtest/gtest.h>
#include <private/qguiapplication_p.h>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

#include <QAccessible>
#include <QProxyStyle>
#include <set>

#include "every_window.h"
#include "opened.h"

namespace {

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
    const std::set<QAccessible::Role> inert{QAccessible::StaticText, QAccessible::Client,
                                            QAccessible::Separator, QAccessible::Grouping};
    const std::set<QAccessible::Role> figures{QAccessible::EditableText, QAccessible::ProgressBar,
                                              QAccessible::Slider, QAccessible::Graphic,
                                              QAccessible::ComboBox};
    const std::map<QString, std::string> spoken{
        {"txtSOpium", "Opium aboard"},
        {"txtWOpium", "Opium in the warehouse"},
        {"txtPGeneral", "General price"},
        {"txtLog", "Comprador's Report"},
        {"prgHold", "Ship's hold in use"},
        {"cmdMaxSilk", "Max Silk"},
        {"cboSilk", "Silk to buy"},
        {"cboDeposit", "Deposit"},
        {"cboShip", "Good to move to the warehouse: Opium"},
        {"sldRepair", "Condition to restore in percent"},
        {"lblNetValue", "Net Worth: $421,257"},
        {"picShips", "Enemy ships: 21"},
        {"cboWAmount", "Units to move to the ship"},
    };
    std::map<QString, std::string> heard;
    const test::EveryWindow all(test::prosperousGame(), [&](QWidget& window, const QString&) {
        std::set<QString> names;
        walk(QAccessible::queryAccessibleInterface(&window), [&](QAccessibleInterface& object) {
            const QString id = object.object() ? object.object()->objectName() : QString{};
            const QString name = object.text(QAccessible::Name).trimmed();
            const bool toolkit = id.startsWith(u"qt_");
            const bool inList = object.parent()->role() == QAccessible::ComboBox;
            if (object.state().focusable || (inert.count(object.role()) == 0 && !toolkit)) {
                EXPECT_FALSE(name.isEmpty()) << object.role() << ' ' << id.toStdString();
            }
            if (figures.count(object.role()) > 0 && !inList && !toolkit) {
                EXPECT_TRUE(names.insert(name).second) << name.toStdString() << " twice";
            }
            if (spoken.count(id) > 0) {
                heard.emplace(id, name.toStdString());
            }
        });
    });
    EXPECT_EQ(heard, spoken);
}

QString inserted;  ///< what assistive programs are told of the report

void hear(QAccessibleEvent* event) {
    if (event->type() == QAccessible::TextInserted && event->object()->objectName() == "txtLog") {
        inserted += static_cast<QAccessibleTextInsertEvent*>(event)->textInserted();
    }
}

struct AtMainWindow : testing::Test {
    test::FakeDesktop desktop;
    test::Unlucky random;
    ui::frmMain mainForm{desktop, random};
};

TEST_F(AtMainWindow, ScreenReadersAreToldOfNewEntriesAndOfEveryDot) {
    QPlatformAccessibility& platform =
        *QGuiApplicationPrivate::platformIntegration()->accessibility();
    mainForm.state() = test::prosperousGame();
    mainForm.beginGame(" - Welcome Captain");
    for (const bool active : {false, true}) {
        platform.setActive(active);
        const auto before = QAccessible::installUpdateHandler(hear);
        mainForm.appendEntry(" - Departing Hong Kong");
        mainForm.appendText(".");
        mainForm.appendText(".");
        mainForm.appendEntry(" - Kwan Tat has sent a lieutenant", "to see you");
        QAccessible::installUpdateHandler(before);
        platform.setActive(false);
        EXPECT_EQ(inserted.replace(QChar::ParagraphSeparator, u'\n').toStdString(),
                  active ? "\nAug 15, 1862 - Departing Hong Kong..\n"
                           "Aug 15, 1862 - Kwan Tat has sent a lieutenant"
                           "\n                       to see you"
                         : "");
    }
}

/// A desktop whose animations are switched off.
class StillStyle final : public QProxyStyle {
public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override {
        return hint == SH_Widget_Animation_Duration
                   ? 0
                   : QProxyStyle::styleHint(hint, option, widget, data);
    }
};

TEST_F(AtMainWindow, StillnessSparesAllFlashesAndNothingElse) {
    StillStyle still;
    auto* report = test::find<QPlainTextEdit>(mainForm, "txtLog");
    std::vector<QStringList> seen;
    for (QStyle* style : {QApplication::style(), static_cast<QStyle*>(&still)}) {
        seen.emplace_back();
        const auto watch = [&](test::FakeDesktop& times, QWidget* widget, QPoint place) {
            times.duringWait = [&seen, &times, widget, place] {
                seen.back() << widget->grab().toImage().pixelColor(place).name() + ' ' +
                                   QString::number(times.waited.count());
            };
        };
        desktop.waited = {};
        watch(desktop, report, {20, 20});
        mainForm.setStyle(style);
        mainForm.flashReport(game::Alert::Misfortune);
        mainForm.flashReport(game::Alert::News);

        test::Opened<ui::frmPirate> battle([](test::FakeMainForm& form) {
            form.record.gcurCannons = 2;
            form.draws.add({test::roll(4, 4)});
        });
        battle.draws.add({test::roll(7, 10)}, 6);
        battle.draws.add({test::roll(1, 25)});
        battle.dialog().setStyle(style);
        watch(battle.fakeDesktop, battle.find<QWidget>("picShips"), {424, 168});
        battle.press("cmdFight", {Qt::Key_Space});
    }
    EXPECT_EQ(seen.front().first(2), (QStringList{"#ff0000 20", "#00ffff 40"}));
    EXPECT_EQ(seen.front().filter("#ff0000").size(), 1 + 4);
    seen.front().replaceInStrings("#ff0000", "#000000").replaceInStrings("#00ffff", "#000000");
    EXPECT_EQ(seen.front(), seen.back());
}

}  // namespace
