// What the dialogs do, as scripts and where no script reaches.

#include "approved.h"
#include "frmAbout.h"
#include "frmBuy.h"
#include "frmHelp.h"
#include "frmLeave.h"
#include "frmMoney.h"
#include "frmNew.h"
#include "frmPirate.h"
#include "frmRepair.h"
#include "frmSell.h"
#include "frmStats.h"
#include "frmTransfer.h"
#include "frmVisit.h"
#include "player.h"
#include "standing.h"

using game::GameState;
using test::Opened;
using test::roll;

namespace {

template <class Dialog>
std::unique_ptr<QDialog> make(ui::MainForm& mainForm) {
    return std::make_unique<Dialog>(mainForm);
}
const std::map<std::string, std::unique_ptr<QDialog> (*)(ui::MainForm&)> dialogs{
    {"frmAbout", make<ui::frmAbout>},       {"frmBuy", make<ui::frmBuy>},
    {"frmLeave", make<ui::frmLeave>},       {"frmMoney", make<ui::frmMoney>},
    {"frmNew", make<ui::frmNew>},           {"frmPirate", make<ui::frmPirate>},
    {"frmRepair", make<ui::frmRepair>},     {"frmSell", make<ui::frmSell>},
    {"frmTransfer", make<ui::frmTransfer>}, {"frmVisit", make<ui::frmVisit>}};

/// A dialog over the main window, in which a script is played.
class Stage : test::Playing {
public:
    /// "frmBuy Cash=500 | 1/4": the dialog, the figures of its game and the draws to come.
    explicit Stage(const std::string& opening) {
        const std::size_t bar = std::min(opening.find(" |"), opening.size());
        const std::string name = opening.substr(0, opening.find(' '));
        go(test::newGame(opening.substr(name.size(), bar - name.size())));
        std::istringstream dice(opening.substr(std::min(bar + 2, opening.size())));
        for (std::string die; dice >> die;) {
            draws.add({test::drawn(die)});
        }
        desktop.answer = [this](const ui::Box& box) {
            m_told += "\n[" + box.title + "] " + box.text;
            return std::exchange(m_answer, ui::Answer::Yes);
        };
        m_dialog = dialogs.at(name)(mainForm);
        m_dialog->show();
        m_screen = screen();
    }

    /// Does what one line says, and tells what has changed on the screen and in the report.
    std::string act(const QString& what) {
        const QString object = what.section(' ', 1);
        m_told.clear();
        if (what.startsWith("answer ")) {
            m_answer = object == "No" ? ui::Answer::No : ui::Answer::Cancel;
        } else if (what.startsWith("choose ")) {
            test::find<QAction>(mainForm, qPrintable(object))->trigger();
        } else if (what == "close") {
            m_dialog->close();
        } else if (what.startsWith("open ")) {
            auto* list = test::find<QComboBox>(*m_dialog, qPrintable(object));
            list->showPopup();
            for (int row = 0; row < list->count(); ++row) {
                m_told += (row == 0 ? "\n" : " ") + list->itemText(row);
            }
            QTest::keyClick(list->view(), Qt::Key_Escape);
        } else {
            test::act(*m_dialog, what);
        }
        m_told += QString::fromStdString(told());
        const QMap<QString, QString> before = std::exchange(m_screen, screen());
        for (auto shown = m_screen.begin(); shown != m_screen.end(); ++shown) {
            if (before.value(shown.key()) != shown.value()) {
                m_told += "\n" + shown.key() + " " + shown.value();
            }
        }
        return m_told.mid(1).toStdString() + (m_told.isEmpty() ? "" : "\n");
    }

private:
    /// What both windows show, by name; what cannot be used stands in brackets.
    QMap<QString, QString> screen() {
        QMap<QString, QString> shown;
        for (QWidget* window : std::array<QWidget*, 2>{&mainForm, m_dialog.get()}) {
            for (auto* control :
                 window->findChildren<QWidget*>(QRegularExpression("^[a-z]{3}[A-Z]"))) {
                if (control->window() == window && control->objectName() != "txtLog") {
                    const QString text = '"' + test::textOf(*control) + '"';
                    shown[control->objectName()] = control->isEnabled() ? text : '(' + text + ')';
                }
            }
        }
        const QWidget* focus = m_dialog->focusWidget();
        shown["the focus"] = m_dialog->isVisible() && focus ? focus->objectName() : "";
        shown["the window"] = m_dialog->isVisible() ? "open" : "closed";
        shown["the time"] = QString::number(desktop.waited.count());
        shown["saved"] = record.gblnGameSaved ? "yes" : "no";
        for (const QUrl& link : desktop.openedLinks) {
            shown["link"] = link.toString(QUrl::FullyEncoded);
        }
        return shown;
    }

    std::unique_ptr<QDialog> m_dialog;
    QMap<QString, QString> m_screen;
    QString m_told;
    ui::Answer m_answer = ui::Answer::Yes;
};

TEST(Dialogs, HoldAsApproved) {
    std::optional<Stage> stage;
    test::expectScripts("dialogs.txt", [&stage](const std::string& line) {
        if (line.starts_with(">> ")) {
            return stage->act(QString::fromStdString(line.substr(3)));
        }
        stage.emplace(line.substr(2));
        return std::string{};
    });
}

TEST(NewGame, NamesTheFirm) {
    for (const auto& [typed, name] : {std::pair{"   ", "Zhenbao"},
                                      {"  acme trading ", "Acme trading"},
                                      {"école", "École"},
                                      {"ßa", "ßa"},
                                      {"𐐨x", "𐐀x"}}) {
        EXPECT_EQ(ui::firmName(QString::fromUtf8(typed)).toStdString(), name);
    }
}

TEST(Battle, SinksShipsLineByLineWhileNothingElseCanBeOrdered) {
    Opened<ui::frmPirate> visit([](GameState& state) { state.gcurCannons = 2; }, {roll(1, 4)});
    const double hit = roll(7, 10);
    visit.draws.add({hit, hit, roll(4, 10), roll(1, 25)});  // one of three is left
    auto* third = visit.find<QLabel>("imgPirate2");
    std::vector<int> heights;
    visit.desktop.duringWait = [&] {
        EXPECT_EQ(third->isVisible(), visit.shown("txtEnemy") == "3");
        heights.push_back(third->height());
        visit.act("press cmdRun Esc Return Space");
    };
    visit.act("press cmdFight Space");
    EXPECT_TRUE(visit.dialog->isVisible());
    EXPECT_EQ(heights.at(1 + 24), 16) << "half way down";
    EXPECT_TRUE(std::is_sorted(heights.rbegin(), heights.rend()) && heights.back() == 0);
    EXPECT_EQ(visit.desktop.waited.count(), 2'000 + 2 * (200 + 48 * 5) + 2'000 + 2'000 + 10 + 200);
    EXPECT_EQ(visit.shown("txtStatus txtReport"), "99%; Zhenbao, what shall we do?");
    EXPECT_EQ(visit.dialog->focusWidget()->objectName(), "cmdFight");
}

TEST(Battle, AsksOnceWhetherToQuitAndThenQuits) {
    Opened<ui::frmPirate> visit([](GameState&) {}, {roll(1, 4)});
    int asked = 0;
    visit.desktop.answer = [&](const ui::Box&) {
        visit.dialog->close();  // behind the question
        return ++asked == 1 ? ui::Answer::No : ui::Answer::Yes;
    };
    visit.dialog->close();
    EXPECT_TRUE(asked == 1 && visit.dialog->isVisible());
    EXPECT_THROW(visit.dialog->close(), test::ProgramEnded);
}

TEST(Statistics, CanBeLeftByItsButtonOnlyFromATrillionOn) {
    using Occasion = ui::frmStats::Occasion;
    for (const auto& [occasion, leaves] : {std::pair{Occasion::Menu, true},
                                           {Occasion::Millionaire, true},
                                           {Occasion::Trillionaire, false}}) {
        Opened<ui::frmStats> visit(
            [](GameState& state) {
                state.gdtmDate = game::firstDay + std::chrono::months{1};
                state.gcurCash = game::trillion - 1;
                state.gblnMillionaire = true;
            },
            {}, occasion);
        EXPECT_EQ(visit.shown("lblTimeValue cmdOK"), leaves ? "1 Month; OK" : "1 Month; (OK)");
        visit.act("press cmdRetire Return");
        EXPECT_EQ(visit.dialog->isVisible(), !leaves) << "Enter is for OK";
        visit.desktop.expect("Do you really want to quit this game?   ", ui::Answer::No);
        visit.act("click cmdRetire");
        visit.record.gcurNetWorth = game::trillion;
        EXPECT_THROW(visit.act("click cmdRetire"), test::ProgramEnded);
    }
}

TEST(Help, ShowsFourTextsToBeReadAndDrawsItsInstructionsIn40Columns) {
    Opened<ui::frmHelp> visit;
    auto* display = visit.find<QPlainTextEdit>("txtDisplay");
    for (const auto& [button, frame, begins, ends] :
         {std::tuple{"cmdIntroduction", "Introduction ", "The theme of Zhenbao", "secrets away."},
          {"cmdHints", "Hints ", "Start with 5 cannons instead of cash.  It ", " offered.\n\n\n\n"},
          {"cmdMoney", "Money Lender Bug ", "The money lender bug is a mistake", "options menu."},
          {"cmdIntructions", "Original Instuctions ", "II<=", "INTERESTING TIMES!'    \n"}}) {
        const std::string click = std::string{"click "} + button;
        EXPECT_EQ(visit.after(click.c_str(), "fraContent"), frame);
        const QString text = display->toPlainText();
        EXPECT_TRUE(text.startsWith(begins) && text.endsWith(ends)) << button;
        visit.act("press txtDisplay Return X Del");
        visit.act(click.c_str());
        EXPECT_EQ(display->toPlainText(), text);
    }
    const QStringList lines = display->toPlainText().chopped(1).split('\n');
    EXPECT_EQ(lines.size(), 261);
    EXPECT_TRUE(std::all_of(lines.begin(), lines.end(), [](const QString& line) {
        return line.size() == 40 && line == line.toUpper();
    }));
    EXPECT_TRUE(QFontInfo(display->font()).fixedPitch());
    EXPECT_EQ(display->horizontalScrollBar()->maximum(), 0);
}

}  // namespace
