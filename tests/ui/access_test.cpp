// What players get who use a screen reader, or who have switched animations off.

#include <gtest/gtest.h>
#include <private/qguiapplication_p.h>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

#include <QAccessible>
#include <QProxyStyle>
#include <QPushButton>
#include <QTest>
#include <set>

#include "controls.h"
#include "every_window.h"
#include "fake_main_form.h"

using test::find;

namespace {

QString spokenName(QObject* control) {
    return QAccessible::queryAccessibleInterface(control)->text(QAccessible::Name);
}

/// Hands every object below `parent` to `visit` that an assistive program comes to.
void walk(QAccessibleInterface* parent, const std::function<void(QAccessibleInterface&)>& visit) {
    for (int child = 0; child < parent->childCount(); ++child) {
        QAccessibleInterface* object = parent->child(child);
        ASSERT_NE(object, nullptr);
        ASSERT_EQ(object->parent()->object(), parent->object());
        visit(*object);
        walk(object, visit);
    }
}

TEST(ScreenReader, FindsNothingWithoutANameAndNoTwoFiguresOfOne) {
    const std::set<QAccessible::Role> inert{QAccessible::StaticText, QAccessible::Client,
                                            QAccessible::Separator, QAccessible::Grouping};
    const std::set<QAccessible::Role> figures{QAccessible::EditableText, QAccessible::ProgressBar,
                                              QAccessible::Slider, QAccessible::Graphic,
                                              QAccessible::ComboBox};
    const test::EveryWindow all(test::prosperousGame(), [&](QWidget& window, const QString&) {
        std::set<QString> names;
        walk(QAccessible::queryAccessibleInterface(&window), [&](QAccessibleInterface& object) {
            const QString id =
                object.object() == nullptr ? QString{} : object.object()->objectName();
            const QString name = object.text(QAccessible::Name).trimmed();
            const bool toolkit = id.startsWith(u"qt_");
            const bool inList = object.parent()->role() == QAccessible::ComboBox;
            if (object.state().focusable || (inert.count(object.role()) == 0 && !toolkit)) {
                EXPECT_FALSE(name.isEmpty()) << object.role() << ' ' << id.toStdString();
            }
            if (figures.count(object.role()) > 0 && !inList && !toolkit) {
                EXPECT_TRUE(names.insert(name).second) << name.toStdString();
            }
        });
    });
}

TEST(ScreenReader, CallsFiguresByWhatTheyAre) {
    const std::map<std::string, std::string> spoken{
        {"txtSOpium", "Opium aboard"},
        {"txtWOpium", "Opium in the warehouse"},
        {"txtPGeneral", "General price"},
        {"txtCash", "Cash"},
        {"txtLog", "Comprador's Report"},
        {"prgStatus", "Ship's status in percent"},
        {"prgHold", "Ship's hold in use"},
        {"cmdMaxSilk", "Max Silk"},
        {"cboSilk", "Silk to buy"},
        {"cboDeposit", "Deposit"},
        {"cboRepay", "Repay"},
        {"cboShip", "Good to move to the warehouse: Opium"},
        {"txtPrice", "Cost of Repair"},
        {"sldRepair", "Condition to restore in percent"},
        {"txtFirm", "Name of Firm"},
        {"lblNetValue", "Net Worth: $421,257"},
        {"picShips", "Enemy ships: 21"},
        {"txtReport", "Captain's Report"},
        {"cboWAmount", "Units to move to the ship"},
    };
    std::map<std::string, std::string> heard;
    const test::EveryWindow all(test::prosperousGame(), [&](QWidget& window, const QString&) {
        for (const auto& [name, unused] : spoken) {
            if (auto* control = window.findChild<QWidget*>(QString::fromStdString(name))) {
                heard.emplace(name, spokenName(control).toStdString());
            }
        }
    });
    EXPECT_EQ(heard, spoken);

    ui::AmountField field(QStringLiteral("cbo"), ui::plain);
    ui::nameControl(&field, QStringLiteral("Opium to buy"));
    EXPECT_EQ(spokenName(field.lineEdit()), QStringLiteral("Opium to buy"));
    auto* list = QAccessible::queryAccessibleInterface(&field);
    list->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    EXPECT_TRUE(list->state().expanded);
    list->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    EXPECT_FALSE(list->state().expanded);
}

QString inserted;  ///< what assistive programs are told of the report

void hear(QAccessibleEvent* event) {
    if (event->type() == QAccessible::TextInserted &&
        event->object()->objectName() == QStringLiteral("txtLog")) {
        inserted += static_cast<QAccessibleTextInsertEvent*>(event)->textInserted();
    }
}

TEST(ScreenReader, IsToldOfNewEntriesAndOfEveryDot) {
    QPlatformAccessibility& platform =
        *QGuiApplicationPrivate::platformIntegration()->accessibility();
    test::FakeDesktop desktop;
    test::Unlucky random;
    ui::frmMain mainForm(desktop, random);
    mainForm.state() = test::prosperousGame();
    mainForm.beginGame(" - Welcome Captain");
    for (const bool active : {false, true}) {
        platform.setActive(active);
        const auto before = QAccessible::installUpdateHandler(hear);
        inserted.clear();
        mainForm.appendEntry(" - Departing Hong Kong");
        for (int dot = 0; dot < 3; ++dot) {
            mainForm.appendText(".");
        }
        mainForm.appendEntry(" - Kwan Tat has sent a lieutenant", "to see you");
        QAccessible::installUpdateHandler(before);
        platform.setActive(false);
        inserted.replace(QChar::ParagraphSeparator, u'\n');
        EXPECT_EQ(inserted, active ? QStringLiteral("\nAug 15, 1862 - Departing Hong Kong...\n"
                                                    "Aug 15, 1862 - Kwan Tat has sent a lieutenant"
                                                    "\n                       to see you")
                                   : QString{});
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

/// A round of a battle as it is watched: each wait and what is seen and heard meanwhile. `red`
/// counts the waits with a red sea.
std::string watchedBattle(QStyle* style, int& red) {
    test::FakeMainForm mainForm;
    mainForm.record.gcurCannons = 2;
    const auto hit = test::roll(7, 10);
    mainForm.draws.add({test::roll(4, 4), hit, hit, hit, hit, hit, hit, test::roll(1, 25)});
    ui::frmPirate form{mainForm};
    form.setStyle(style);
    form.show();
    auto* fleet = find<QWidget>(form, "picShips");
    test::Transcript transcript;
    mainForm.fakeDesktop.duringWait = [&] {
        const QColor sea = fleet->grab().toImage().pixelColor(424, 168);
        red += sea == Qt::red ? 1 : 0;
        EXPECT_TRUE(sea == Qt::red || sea == Qt::black);
        transcript.line(std::to_string(mainForm.fakeDesktop.waited.count()) + ' ' +
                        find<QLineEdit>(form, "txtReport")->text().toStdString() + ' ' +
                        find<QLineEdit>(form, "txtStatus")->text().toStdString() + ' ' +
                        spokenName(fleet).toStdString());
    };
    QTest::keyClick(form.focusWidget(), Qt::Key_Space);
    EXPECT_EQ(fleet->grab().toImage().pixelColor(424, 168), Qt::black);
    return transcript.take();
}

TEST(Stillness, SparesTheFlashesOfABattleAndNothingElse) {
    StillStyle still;
    int flashes = 0;
    const std::string lively = watchedBattle(QApplication::style(), flashes);
    EXPECT_EQ(flashes, 4);
    EXPECT_EQ(watchedBattle(&still, flashes), lively);
    EXPECT_EQ(flashes, 4) << "a flash although animations are off";
    EXPECT_NE(lively.find("100% Enemy ships: 4"), std::string::npos);
    EXPECT_NE(lively.find("97% Enemy ships: 4"), std::string::npos);
}

TEST(Stillness, SparesTheFlashesOfTheReport) {
    StillStyle still;
    test::FakeDesktop desktop;
    test::Unlucky random;
    ui::frmMain mainForm(desktop, random);
    auto* report = find<QPlainTextEdit>(mainForm, "txtLog")->viewport();
    std::vector<QColor> seen;
    desktop.duringWait = [&] { seen.push_back(report->palette().color(QPalette::Base)); };
    for (QStyle* style : {QApplication::style(), static_cast<QStyle*>(&still)}) {
        mainForm.setStyle(style);
        mainForm.flashReport(game::Alert::Misfortune);
        mainForm.flashReport(game::Alert::News);
    }
    EXPECT_EQ(seen, (std::vector<QColor>{Qt::red, Qt::cyan, Qt::black, Qt::black}));
    EXPECT_EQ(desktop.waited.count(), 4 * 20);
}

}  // namespace
