// Whole games in the real windows, played by somebody who never rests and presses anything. A
// game is a run of the program in a process of its own, which may end as the real one does.
//
//     ZHENBAO_SEED=7 tells the story of game 7; ZHENBAO_GAMES=20000 plays more of them.

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QRadioButton>
#include <QSlider>
#include <QTemporaryDir>
#include <QTest>
#include <atomic>
#include <iostream>
#include <thread>

#include "absurd_games.h"
#include "amount_field.h"
#include "books.h"
#include "find.h"
#include "frmMain.h"
#include "game_file.h"
#include "qt_desktop.h"
#include "saved_game.h"

namespace {

using game::Currency;
using game::GameState;
using test::find;
using test::Findings;

/// What has to happen in some game or other: windows, boxes and their answers, entries, endings.
constexpr std::array things{"frmNew",
                            "frmStats",
                            "frmBuy",
                            "frmSell",
                            "frmTransfer",
                            "frmVisit",
                            "frmMoney",
                            "frmLeave",
                            "frmPirate",
                            "frmRepair",
                            "frmHelp",
                            "frmAbout",
                            "acts during a wait",
                            "link",
                            "goods bought",
                            "goods sold",
                            "moved aboard",
                            "moved ashore",
                            "deposit",
                            "withdrawal",
                            "loan",
                            "repayment",
                            "repair",
                            "cannon bought",
                            "ship bought",
                            "departure",
                            "cannon lost",
                            "booty",
                            "blown off course",
                            "storm",
                            "arrival",
                            "cannon offered",
                            "ship offered",
                            "opium seized",
                            "robbery",
                            "theft",
                            "price shock",
                            "lieutenant",
                            "Dunmore",
                            "tribute paid",
                            "game saved",
                            "game started",
                            "game loaded",
                            "absurd game loaded",
                            "Do you want to save: Yes",
                            "Do you want to save: No",
                            "Do you want to save: Cancel",
                            "Insufficient Funds: OK",
                            "Insufficient Hold: OK",
                            "Insufficient Cargo: OK",
                            "Insufficient Storage: OK",
                            "Maximum Loan Exceeded: OK",
                            "Over Payment: OK",
                            "Kwan Tat asks for: Yes",
                            "Kwan Tat asks for: No",
                            "Adding Difference to Debt: OK",
                            "You got some booty: OK",
                            "Error Opening File: OK",
                            "Error Saving File: OK",
                            "Are you sure you want to dump: Yes",
                            "Are you sure you want to dump: No",
                            "Do you want to quit: Yes",
                            "Do you want to quit: No",
                            "Do you really want to quit: Yes",
                            "Do you really want to quit: No",
                            "Zhenbao, you have sunk: Yes",
                            "Zhenbao, you have sunk: No",
                            "Zhenbao, you are Bankrupt: Yes",
                            "Zhenbao, you are Bankrupt: No",
                            "a million",
                            "a trillion",
                            "retired",
                            "window closed",
                            "still playing",
                            "steps"};

/// Counts for all processes that play.
using Tally = std::array<std::atomic<std::uint64_t>, things.size()>;

// --- What has to hold whenever the player looks. --------------------------------------------

struct Sight {
    ui::frmMain& mainForm;
    const GameState& state;
    const test::Books& books;
    QWidget* window;  ///< that takes the orders: the main window or the dialog on top
    bool waiting;     ///< in the middle of a wait
};

QString text(QWidget& window, const char* name) {
    return find<QLineEdit>(window, name)->text();
}
QString title(QWidget& window, const char* name) {
    return find<QGroupBox>(window, name)->title();
}
bool enabled(QWidget& window, const char* name) {
    return find<QWidget>(window, name)->isEnabled();
}
QString dollars(Currency amount) {
    return ui::money(amount);
}

void theRecordIsSound(const Sight& sight, Findings& findings) {
    const GameState& state = sight.state;
    findings.same("hold in use", state.gcurHold, test::Books::holdInUse(state));
    findings.holds(state.gcurHold <= state.gcurMaxHold, "more aboard than fits");
    findings.holds(game::totalStock(state, game::Place::Warehouse) <= 10'000, "a full warehouse");
    for (const game::GoodRow& good : game::goods) {
        findings.holds(state.*good.ship >= 0 && state.*good.warehouse >= 0, "stock below zero");
        findings.holds(state.*good.price >= 1, "no price");
    }
    findings.holds(state.gcurCash >= 0 && state.gcurBank >= 0, "money below zero");
    findings.holds(state.gcurCannons >= 0, "cannons below zero");
    findings.holds(
        state.gcurStatus >= (sight.mainForm.isEnabled() ? 0 : 1) && state.gcurStatus <= 100,
        "condition");
    findings.holds(!state.gblnActiveGame || !state.gblnGameOver, "active and over");
}

void theMainWindowShowsTheRecord(const Sight& sight, Findings& findings) {
    const GameState& state = sight.state;
    ui::frmMain& form = sight.mainForm;
    for (const game::GoodRow& good : game::goods) {
        const QString name = ui::fromRules(good.name);
        const auto shown = [&](char column) {
            return text(form, qPrintable(QString("txt%1%2").arg(column).arg(name)));
        };
        findings.same(name + " aboard", shown('S'), ui::plain(state.*good.ship));
        findings.same(name + " ashore", shown('W'), ui::plain(state.*good.warehouse));
        findings.same(name + " price", shown('P'), dollars(state.*good.price));
    }
    findings.same("cash", text(form, "txtCash"), dollars(state.gcurCash));
    findings.same("bank", text(form, "txtBank"), dollars(state.gcurBank));
    findings.same("debt", text(form, "txtDebt"), dollars(state.gcurDebt));
    findings.same("cannons", text(form, "txtCannons"), ui::plain(state.gcurCannons));
    findings.same("date", text(form, "txtDate"), ui::fromRules(game::dateText(state.gdtmDate)));
    const auto percent = [](int part, Currency whole) {
        return std::clamp(part, 0, std::max(1, whole.toInt()));
    };
    findings.same("status title", title(form, "fraStatus"),
                  "Ship's Status - " + ui::plain(state.gcurStatus) + "% ");
    findings.same("hold bar", find<QProgressBar>(form, "prgHold")->value(),
                  percent(state.gcurHold.toInt(), state.gcurMaxHold));
    findings.same("status bar", find<QProgressBar>(form, "prgStatus")->value(),
                  percent(state.gcurStatus.toInt(), 100));
    findings.same(
        "hold title", title(form, "fraHold"),
        "Ship's Hold - " + ui::plain(state.gcurHold) + " of " + ui::plain(state.gcurMaxHold) + " ");
    if (sight.books.lawful()) {
        findings.same("prices title", title(form, "fraPrices"),
                      "Prices at " + ui::fromRules(state.gstrLocation) + " ");
        findings.same("firm", title(form, "fraHouse").replace("&&", "&"),
                      "House of " + ui::fromRules(state.gstrFirm) + ", Hong Kong ");
    }
}

void theStandingIsThatOfTheFigures(const Sight& sight, Findings& findings) {
    const GameState& state = sight.state;
    const Currency worth = state.gcurCash + state.gcurBank - state.gcurDebt;
    findings.same("net worth", state.gcurNetWorth, worth);
    const int months = (static_cast<int>(state.gdtmDate.year()) - 1860) * 12 +
                       static_cast<int>(static_cast<unsigned>(state.gdtmDate.month())) - 1;
    if (sight.books.lawful() && months > 0) {
        findings.same("score", state.gcurRank,
                      static_cast<std::int64_t>(std::floor(worth.toDouble() / (100.0 * months))));
    }
    const Currency score = state.gcurRank;
    findings.same("rank", ui::fromRules(state.gstrRank),
                  score < 501      ? "Galley Hand"
                  : score < 1'000  ? "Compradore"
                  : score < 8'000  ? "Zhenbao"
                  : score < 50'000 ? "Master Zhenbao"
                                   : "Ma Tsu");
    findings.same("window title", sight.mainForm.windowTitle(),
                  "Zhenbao - " + ui::fromRules(state.gstrRank) + " [" + dollars(worth) + "]");
    findings.holds(worth < 1'000'000 || worth >= 1'000'000'000'000 || state.gblnMillionaire,
                   "a million nobody told of");
}

void theOrdersFitThePort(const Sight& sight, Findings& findings) {
    const GameState& state = sight.state;
    const bool home = state.gstrLocation == "Hong Kong";
    const auto order = [&](const char* name, bool allowed) {
        findings.holds(enabled(sight.mainForm, name) == allowed,
                       QString(name) + (allowed ? " disabled" : " enabled"));
    };
    const bool inPort = state.gdtmDate != game::zeroDate && !sight.books.underWay;
    for (const char* name : {"cmdBuy", "cmdSell", "cmdLeave"}) {
        order(name, inPort);
    }
    order("cmdVisit", inPort && home);
    order("cmdTransfer", inPort && home);
    order("cmdRepair", inPort && home && state.gcurStatus < 100);
    order("cmdMoney", sight.books.lender && (inPort || enabled(sight.mainForm, "cmdMoney")));
    order("cmdCannon", sight.books.cannonOffered);
    order("cmdShip", sight.books.shipOffered);
}

void theMenusAreOpenInPort(const Sight& sight, Findings& findings) {
    const bool begun = sight.state.gdtmDate != game::zeroDate;
    for (const char* item : {"mnuSaveItem", "mnuStatsItem"}) {
        findings.holds(find<QAction>(sight.mainForm, item)->isEnabled() == begun, item);
    }
}

void theReportStaysShort(const Sight& sight, Findings& findings) {
    auto* report = find<QPlainTextEdit>(sight.mainForm, "txtLog");
    findings.holds(report->document()->characterCount() <= 20'001, "a report of too many letters");
}

/// Amounts typed, and the command that they allow.
void theCommandFollowsTheAmounts(const Sight& sight, Findings& findings, const char* command) {
    Currency sum;
    for (const auto* field : sight.window->findChildren<ui::AmountField*>()) {
        sum += field->amount();
    }
    findings.holds(enabled(*sight.window, command) == (sum > 0), command);
    if (auto* warehouse = sight.window->findChild<QRadioButton*>("optWarehouse")) {
        findings.holds(warehouse->isEnabled() == game::inHongKong(sight.state), "optWarehouse");
    }
}

void theBattleIsShownAsItIs(const Sight& sight, Findings& findings) {
    QWidget& form = *sight.window;
    const GameState& state = sight.state;
    int ships = 0;
    for (const auto* picture : find<QWidget>(form, "picShips")->findChildren<QLabel*>()) {
        ships += picture->isVisible() ? 1 : 0;
    }
    findings.same("enemy ships", text(form, "txtEnemy"), QString::number(ships));
    findings.same("status in battle", text(form, "txtStatus"), ui::plain(state.gcurStatus) + "%");
    findings.same("status beside the battle", title(sight.mainForm, "fraStatus"),
                  "Ship's Status - " + ui::plain(state.gcurStatus) + "% ");
    findings.same("cannons in battle", text(form, "txtCannons"), ui::plain(state.gcurCannons));
    const bool ordersWanted = text(form, "txtReport") == "Zhenbao, what shall we do?";
    bool cargo = false;
    for (const game::GoodRow& good : game::goods) {
        cargo = cargo || state.*good.ship >= 1;
    }
    findings.holds(enabled(form, "cmdFight") == (ordersWanted && state.gcurCannons > 0),
                   "cmdFight");
    findings.holds(enabled(form, "cmdDeath") == (ordersWanted && state.gcurCannons > 0),
                   "cmdDeath");
    findings.holds(enabled(form, "cmdRun") == ordersWanted, "cmdRun");
    findings.holds(enabled(form, "cmdDump") == (ordersWanted && cargo), "cmdDump");
    findings.holds(!sight.waiting || !ordersWanted || enabled(form, "cmdRun"), "");
}

void theRepairCostsWhatItSays(const Sight& sight, Findings& findings) {
    const Currency chosen = find<QSlider>(*sight.window, "sldRepair")->value();
    const Currency better = chosen - sight.state.gcurStatus;
    const Currency price = better * sight.state.gcurMaxHold * 10;
    findings.holds(better >= 0 && price <= sight.state.gcurCash, "a repair out of bounds");
    findings.same("price of the repair", text(*sight.window, "txtPrice"), dollars(price));
    findings.same("condition chosen", text(*sight.window, "txtStatus"), ui::plain(chosen) + "%");
    findings.same("condition previewed", title(sight.mainForm, "fraStatus"),
                  "Ship's Status - " + ui::plain(chosen) + "% ");
    findings.holds(enabled(*sight.window, "cmdRepair") == (better > 0), "cmdRepair");
}

void theStatisticsAreThoseOfTheRecord(const Sight& sight, Findings& findings) {
    const auto shown = [&](const char* name) { return find<QLabel>(*sight.window, name)->text(); };
    const GameState& state = sight.state;
    findings.same("statistics of worth", shown("lblNetValue"), dollars(state.gcurNetWorth));
    findings.same("statistics of the ship", shown("lblShipValue"), ui::plain(state.gcurMaxHold));
    findings.same("statistics of cannons", shown("lblCannonsValue"), ui::plain(state.gcurCannons));
    findings.same("statistics of score", shown("lblTotalValue"), ui::plain(state.gcurRank));
    findings.same("statistics of rank", shown("lblRankValue"), ui::fromRules(state.gstrRank));
    findings.holds(enabled(*sight.window, "cmdRetire") == (state.gcurNetWorth >= 1'000'000),
                   "cmdRetire");
}

void theDestinationIsAnotherPort(const Sight& sight, Findings& findings) {
    int chosen = 0;
    for (const auto* port : sight.window->findChildren<QRadioButton*>()) {
        const bool here = port->text() == ui::fromRules(sight.state.gstrLocation);
        findings.holds(port->isEnabled() != here, "port " + port->text());
        findings.holds(!here || !port->isChecked(), "the own port chosen");
        chosen += port->isChecked() ? 1 : 0;
    }
    findings.holds(chosen == 1, "not one port chosen");
}

void look(const Sight& sight, Findings& findings) {
    const QString name = sight.window->objectName();
    const bool atMain = sight.window == &sight.mainForm;
    const bool begun = sight.state.gdtmDate != game::zeroDate;
    if (sight.books.lawful() && sight.state.gblnActiveGame) {
        theRecordIsSound(sight, findings);
    }
    if (begun && atMain && !sight.books.underWay) {
        theMainWindowShowsTheRecord(sight, findings);
        theStandingIsThatOfTheFigures(sight, findings);
        theReportStaysShort(sight, findings);
    }
    if ((sight.books.lawful() || !begun) && !(name == "msgBox" && sight.books.underWay)) {
        theOrdersFitThePort(sight, findings);
        theMenusAreOpenInPort(sight, findings);
    }
    if (name == "frmBuy") {
        theCommandFollowsTheAmounts(sight, findings, "cmdBuy");
    } else if (name == "frmSell") {
        theCommandFollowsTheAmounts(sight, findings, "cmdSell");
    } else if (name == "frmTransfer") {
        theCommandFollowsTheAmounts(sight, findings, "cmdTransfer");
    } else if (name == "frmPirate") {
        theBattleIsShownAsItIs(sight, findings);
    } else if (name == "frmRepair" && sight.books.lawful()) {
        theRepairCostsWhatItSays(sight, findings);
    } else if (name == "frmStats") {
        theStatisticsAreThoseOfTheRecord(sight, findings);
    } else if (name == "frmLeave") {
        theDestinationIsAnotherPort(sight, findings);
    } else if (name == "frmNew") {
        findings.holds(enabled(*sight.window, "cmdCancel") != sight.state.gblnGameOver,
                       "cmdCancel");
    }
}

// --- The player. ----------------------------------------------------------------------------

/// Plays until the program ends, which ends this process.
class Player final : public QObject, public ui::Desktop {
public:
    Player(std::uint64_t seed, Tally& tally, const QString& folder, bool tells)
        : m_seed(seed),
          m_tally(tally),
          m_folder(folder),
          m_tells(tells),
          m_dice(seed * 2 + 1),
          m_chance(seed * 2),
          m_mainForm(*this, m_chance) {
        m_folly = std::array{2, 10, 40, 100}.at(static_cast<std::size_t>(dice(4)) - 1);
        m_borrows = dice(4) == 1;
        m_fights = dice(2) == 1;
        m_steps = 200 + dice(700);
        qApp->installEventFilter(this);
        m_mainForm.show();
        wake();
    }

    [[noreturn]] void play() {
        QApplication::exec();
        end("window closed");
    }

    // The desktop as the player sees it.
    ui::Answer show(QWidget* owner, const ui::Box& box) override {
        expect(m_boxes == 0, "two questions at a time");
        ++m_boxes;
        const ui::Answer answer = m_desktop.show(owner, box);
        --m_boxes;
        countBox(box.text, answer);
        if (box.text.startsWith("Are you sure you want to dump") && answer == ui::Answer::Yes) {
            m_books.dumpCargo();
        }
        return answer;
    }
    QString chooseFileToLoad(QWidget* /*owner*/) override {
        const QDir laidOut(m_folder, dice(4) == 1 ? "absurd*" : "turn*");
        return m_file = any(QStringList{"", m_folder + "/missing", ownFile(), ownFile(),
                                        laidOut.filePath(any(laidOut.entryList())),
                                        laidOut.filePath(any(laidOut.entryList()))});
    }
    QString chooseFileToSave(QWidget* /*owner*/) override {
        return m_savedTo = any(QStringList{"", m_folder, m_folder + "/missing/game", ownFile(),
                                           ownFile(), ownFile()});
    }
    void openLink(const QUrl& /*link*/) override { count("link"); }
    void wait(game::Milliseconds /*duration*/) override {
        if (dice(100) <= m_folly / 4 + 1) {
            const QScopedValueRollback waiting(m_waiting, true);
            QCoreApplication::processEvents();
        }
    }
    [[noreturn]] void endProgram() override { end("retired"); }

protected:
    bool event(QEvent* event) override {
        if (event->type() != QEvent::User) {
            return QObject::event(event);
        }
        wake();  // first, since an act may open a window that wants the next
        step();
        return true;
    }
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Show && watched->isWidgetType()) {
            const auto name = watched->objectName();
            if (name.startsWith("frm") && name != "frmMain") {
                count(name);
            }
            if (name == "frmStats") {
                const QString title = qobject_cast<QWidget*>(watched)->windowTitle();
                if (title.startsWith("You are a")) {
                    count(title.contains("Million") ? "a million" : "a trillion");
                }
            }
        }
        return false;
    }

private:
    // --- Steps.
    void wake() {
        QCoreApplication::postEvent(this, new QEvent(QEvent::User), Qt::LowEventPriority);
    }

    void step() {
        if (!m_mainForm.isVisible()) {
            return;  // the program is about to end
        }
        count("steps");
        if (++m_step > m_steps) {
            end("still playing");
        }
        QWidget* top = QApplication::activeModalWidget();
        top = top != nullptr ? top : &m_mainForm;
        readReport();
        const bool alone = top == &m_mainForm && !m_waiting;
        const bool atRest = alone && thread()->loopLevel() == 1;
        m_top = top->objectName();
        m_books.underWay = !m_mainForm.menuBar()->actions().constFirst()->isEnabled();
        expect(!m_books.underWay || !atRest, "closed menus in port");
        expect(m_books.underWay || m_top != "frmPirate", "open menus at sea");
        // A loop may still be busy with the last events of a dialog that has closed.
        if (QApplication::activePopupWidget() == nullptr && (atRest || !alone)) {
            Findings findings;
            look({m_mainForm, m_mainForm.state(), m_books, top, m_waiting}, findings);
            if (atRest) {
                m_books.compare(m_mainForm.state(), findings);
            }
            expect(findings);
        }
        if (m_waiting) {
            count("acts during a wait");
        }
        if (!top->isActiveWindow()) {
            top->activateWindow();
        }
        if (auto* popup = QApplication::activePopupWidget()) {
            choose(popup);
        } else if (dice(100) <= m_folly) {
            actFoolishly(top);
        } else {
            actSensibly(top);
        }
    }

    /// Enters what is new in the report into the books.
    void readReport() {
        const GameState& state = m_mainForm.state();
        QString report = find<QPlainTextEdit>(m_mainForm, "txtLog")->toPlainText();
        report.replace("\n" + QString(23, ' '), "|");
        if (report == m_read) {
            if (Findings same; !report.contains('\n') && !report.isEmpty()) {
                begin(report.contains(" - Welcome"), same);  // perhaps once more
            }
            return;
        }
        const auto known = m_read.right(2'000);
        auto from = known.isEmpty() ? -1 : report.lastIndexOf(known);
        const bool afresh =
            report.startsWith(ui::fromRules(game::dateText(state.gdtmDate)) + " - ") &&
            (report.mid(12).startsWith(" - Game Loaded") ||
             report.mid(12).startsWith(" - Welcome")) &&
            from != 0;
        Findings findings;
        if (afresh) {
            begin(report.contains(" - Welcome"), findings);
            from = report.indexOf('\n') < 0 ? report.size() : report.indexOf('\n');
        } else {
            findings.holds(from >= 0, "the report forgot its past");
            from += known.size();
        }
        // Dots may still trail the departure that was read before.
        for (const QString& entry : report.mid(from).split('\n', Qt::SkipEmptyParts)) {
            if (entry.startsWith('.')) {
                continue;
            }
            tell(entry);
            const QString kind = m_books.lawful() ? m_books.post(entry, findings) : QString();
            if (!kind.isEmpty()) {
                count(kind);
            }
            if (kind == "game saved") {
                findings.holds(written(state) == fileContent(m_savedTo), "another game saved");
            }
        }
        m_read = report;
        expect(findings);
    }

    void begin(bool anew, Findings& findings) {
        const GameState& state = m_mainForm.state();
        if (anew) {
            findings.holds(
                state.gdtmDate == game::firstDay && game::inHongKong(state) &&
                    state.gcurStatus == 100 && state.gcurMaxHold == 60 && state.gcurBank == 0 &&
                    state.gcurPayoff == 0 && game::totalStock(state, game::Place::Ship) == 0 &&
                    game::totalStock(state, game::Place::Warehouse) == 0 &&
                    ((state.gcurCash == 400 && state.gcurDebt == 5'000 && state.gcurCannons == 0) ||
                     (state.gcurCash == 0 && state.gcurDebt == 0 && state.gcurCannons == 5)),
                "a strange beginning");
        } else {
            const auto saved = game::readSavedGame(fileContent(m_file).toStdString());
            GameState expected = saved.value_or(GameState{});
            findings.holds(written(expected) == written(state) ||
                               (expected.gblnMillionaire != state.gblnMillionaire),
                           "another game loaded");
        }
        if (!findings.all().isEmpty()) {
            return;
        }
        m_books.open(state);
        tell(anew ? "a new game" : "loaded " + m_file);
        count(anew ? "game started" : m_books.lawful() ? "game loaded" : "absurd game loaded");
    }
    static QByteArray written(const GameState& state) {
        return QByteArray::fromStdString(game::writeSavedGame(state));
    }
    static QByteArray fileContent(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    // --- Acts, all of them clicks and keys.
    int dice(int sides) { return game::roll(m_dice, sides); }
    template <class List>
    typename List::value_type any(const List& list) {
        return list[static_cast<typename List::size_type>(dice(static_cast<int>(list.size())) - 1)];
    }
    QString ownFile() { return m_folder + QString("/own/%1-%2").arg(getpid()).arg(dice(2)); }

    void click(QWidget* control) {
        if (control == nullptr || !control->isVisible()) {
            return;
        }
        tell("click " + control->objectName());
        const QPointer<QWindow> window = control->window()->windowHandle();
        const QPoint inside(std::min(control->width() / 2, 12), control->height() / 2);
        const QPoint place = control->mapTo(control->window(), inside);
        m_time += 1'000;
        for (const bool down : {true, false}) {
            if (window) {
                qt_handleMouseEvent(window, place, window->mapToGlobal(place),
                                    down ? Qt::LeftButton : Qt::NoButton, Qt::LeftButton,
                                    down ? QEvent::MouseButtonPress : QEvent::MouseButtonRelease,
                                    Qt::NoModifier, m_time);
            }
        }
    }
    void click(QWidget* window, const char* name) { click(window->findChild<QWidget*>(name)); }
    void press(QWidget* at, int key, Qt::KeyboardModifiers modifiers = {},
               const QString& text = {}) {
        tell("press " + QKeySequence(key | static_cast<int>(modifiers)).toString());
        const QPointer<QWindow> window = at->window()->windowHandle();
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            if (window) {
                qt_handleKeyEvent(window, type, key, modifiers, text);
            }
        }
    }
    void type(QWidget* window, const QString& text) {
        const QPointer<QWidget> still = window;
        for (const QChar letter : text) {
            if (still) {
                press(window, letter.toUpper().unicode(), {}, letter);
            }
        }
    }
    void typeInto(QWidget* window, const char* field, Currency amount) {
        auto* edit = find<QComboBox>(*window, field)->lineEdit();
        click(edit);
        press(window, Qt::Key_A, Qt::ControlModifier);
        type(window, ui::plain(amount));
    }
    /// Wanders through an open menu or list.
    void choose(QWidget* popup) {
        for (int steps = dice(6); steps > 1; --steps) {
            press(popup, dice(4) == 1 ? Qt::Key_Up : Qt::Key_Down);
        }
        press(popup, dice(5) == 1 ? Qt::Key_Escape : Qt::Key_Return);
    }

    void actFoolishly(QWidget* top) {
        static const QList<int> keys{
            Qt::Key_Escape,    Qt::Key_Return,   Qt::Key_Enter, Qt::Key_Tab, Qt::Key_Backtab,
            Qt::Key_Space,     Qt::Key_Left,     Qt::Key_Right, Qt::Key_Up,  Qt::Key_Down,
            Qt::Key_PageUp,    Qt::Key_PageDown, Qt::Key_Home,  Qt::Key_End, Qt::Key_Delete,
            Qt::Key_Backspace, Qt::Key_F1,       Qt::Key_F4,    Qt::Key_F10};
        static const QStringList rubbish{"0",
                                         "7",
                                         "1000",
                                         "99999999999999999999",
                                         "-5",
                                         "x",
                                         "$1,2 3",
                                         "3.5",
                                         "\"",
                                         "Smith & Sons",
                                         QString(3'000, '9'),
                                         "\n\r\t",
                                         "\u0663\u4E2D\uFFFD"};
        const auto visible = [](const QList<QWidget*>& all) {
            QList<QWidget*> seen;
            std::copy_if(all.begin(), all.end(), std::back_inserter(seen), [](QWidget* widget) {
                return widget->isVisible() && !widget->objectName().isEmpty();
            });
            return seen;
        };
        switch (dice(12)) {
            case 1:
            case 2:
            case 3:
                return click(any(visible(top->findChildren<QWidget*>()) << top));
            case 4:  // what lies behind, out of reach
                return click(any(visible(m_mainForm.findChildren<QWidget*>())));
            case 5: {
                const int key = any(keys);
                return press(top, key, {},
                             key == Qt::Key_Return  ? "\r"
                             : key == Qt::Key_Space ? " "
                                                    : "");
            }
            case 6:
                return press(top, any(keys),
                             any(QList<Qt::KeyboardModifiers>{Qt::ShiftModifier, Qt::AltModifier,
                                                              Qt::ControlModifier}));
            case 7:
                return type(top, any(rubbish).left(20));
            case 8:
                QGuiApplication::clipboard()->setText(any(rubbish));
                return press(top, Qt::Key_V, Qt::ControlModifier);
            case 9:
                return press(top,
                             any(QList<int>{Qt::Key_N, Qt::Key_L, Qt::Key_S, Qt::Key_A, Qt::Key_Z}),
                             Qt::ControlModifier);
            case 10:
                return press(top, any(QList<int>{Qt::Key_F, Qt::Key_O, Qt::Key_H}),
                             Qt::AltModifier);
            case 11:
                tell("close box of " + top->objectName());
                static_cast<void>(dice(4) == 1 && top->close());
                return;
            default:
                return actSensibly(top);
        }
    }

    void actSensibly(QWidget* top) {
        using Act = void (Player::*)(QWidget*);
        static const QMap<QString, Act> acts{{"frmMain", &Player::atHome},
                                             {"frmNew", &Player::begins},
                                             {"frmBuy", &Player::buys},
                                             {"frmSell", &Player::sells},
                                             {"frmTransfer", &Player::moves},
                                             {"frmVisit", &Player::banks},
                                             {"frmMoney", &Player::borrowsOrRepays},
                                             {"frmRepair", &Player::repairs},
                                             {"frmLeave", &Player::leaves},
                                             {"frmPirate", &Player::battles},
                                             {"frmStats", &Player::prides},
                                             {"frmHelp", &Player::reads},
                                             {"frmAbout", &Player::reads},
                                             {"msgBox", &Player::answers}};
        (this->*acts.value(top->objectName()))(top);
    }

    const GameState& state() { return m_mainForm.state(); }
    bool can(const char* order) { return enabled(m_mainForm, order); }
    /// How dear a good is, from 5 to 25.
    Currency dearness(const game::GoodRow& good) {
        return game::wholeTimes(state().*good.price, good.priceStep);
    }
    void atHome(QWidget* top) {
        if (m_books.underWay) {
            return;
        }
        if (!state().gblnActiveGame) {
            return press(top, dice(3) == 1 ? Qt::Key_L : Qt::Key_N, Qt::ControlModifier);
        }
        if (dice(60) == 1) {
            return press(top, any(QList<int>{Qt::Key_S, Qt::Key_S, Qt::Key_L}),
                         Qt::ControlModifier);
        }
        if (dice(60) == 1) {
            return press(top, Qt::Key_O, Qt::AltModifier);
        }
        const bool home = game::inHongKong(state());
        Currency cargo;
        bool dear = false;
        for (const game::GoodRow& good : game::goods) {
            cargo += state().*good.ship + (home ? state().*good.warehouse : 0);
            dear = dear || (state().*good.ship > 0 && dearness(good) >= 14);
        }
        if (can("cmdShip") && state().gcurPShip * 2 <= state().gcurCash) {
            return click(top, "cmdShip");
        }
        if (can("cmdCannon") && m_fights && dice(2) == 1) {
            return click(top, "cmdCannon");
        }
        if (can("cmdMoney") && dice(m_borrows ? 2 : 6) == 1) {
            return click(top, "cmdMoney");
        }
        if (can("cmdRepair") && dice(state().gcurStatus < 70 ? 3 : 12) == 1) {
            return click(top, "cmdRepair");
        }
        if (can("cmdVisit") && dice(10) == 1) {
            return click(top, cargo > 0 && dice(2) == 1 ? "cmdTransfer" : "cmdVisit");
        }
        if (dear || (cargo > 0 && dice(8) == 1)) {
            return click(top, "cmdSell");
        }
        if (cargo == 0 && dice(4) > 1) {
            return click(top, "cmdBuy");
        }
        click(top, "cmdLeave");
    }
    void begins(QWidget* form) {
        if (dice(2) == 1) {
            type(form, "wu & sons");
        }
        if (dice(2) == 1) {
            click(form, "optCash");
        }
        if (dice(4) > 1) {
            press(form, Qt::Key_Return);
        }
    }
    void buys(QWidget* form) {
        if (enabled(*form, "cmdBuy") && dice(4) > 1) {
            return dice(2) == 1 ? click(form, "cmdBuy") : press(form, Qt::Key_Return);
        }
        if (dice(6) == 1) {
            form->close();
            return;
        }
        if (dice(10) == 1) {
            return click(form, "optWarehouse");
        }
        game::GoodRow best = any(game::goods);
        for (const game::GoodRow& good : game::goods) {
            if (state().*good.price <= state().gcurCash && dearness(good) <= 11) {
                best = good;
                break;
            }
        }
        click(form, qPrintable("cmdMax" + ui::fromRules(best.name)));
    }
    void sells(QWidget* form) {
        if (dice(5) == 1) {
            click(form, any(QList<const char*>{"optWarehouse", "cmdMaxOpium", "cmdMaxGeneral",
                                               "cmdSell"}));
        } else {
            click(form, "cmdSellAll");
        }
    }
    void moves(QWidget* form) {
        game::GoodRow good = any(game::goods);
        for (const game::GoodRow& other : game::goods) {
            good = state().*other.ship + state().*other.warehouse > 0 ? other : good;
        }
        const bool ashore = state().*good.ship > 0;
        find<QComboBox>(*form, ashore ? "cboShip" : "cboWarehouse")
            ->setCurrentIndex(static_cast<int>(game::index(good.good)));
        const Currency stock = state().*(ashore ? good.ship : good.warehouse);
        typeInto(form, ashore ? "cboSAmount" : "cboWAmount", stock + (dice(4) == 1 ? 1 : 0));
        press(form, dice(3) == 1 ? Qt::Key_Escape : Qt::Key_Return);
    }
    void banks(QWidget* form) {
        const bool brings = state().gcurBank == 0 || dice(2) == 1;
        const Currency all = brings ? state().gcurCash : state().gcurBank;
        typeInto(form, brings ? "cboDeposit" : "cboWithdraw",
                 brings ? game::wholeTimes(all, dice(3)) : all + (dice(8) == 1 ? 1 : 0));
        press(form, dice(4) == 1 ? Qt::Key_Escape : Qt::Key_Return);
    }
    void borrowsOrRepays(QWidget* form) {
        if (m_borrows || state().gcurCash < 5'000) {
            typeInto(
                form, "cboBorrow",
                std::min(state().gcurCash * 2, Currency{100'000'000}) + (dice(8) == 1 ? 1 : 0));
        } else {
            typeInto(form, "cboRepay",
                     std::min(std::max(state().gcurDebt, Currency{0}), state().gcurCash) +
                         (dice(8) == 1 ? 1 : 0));
        }
        press(form, dice(6) == 1 ? Qt::Key_Escape : Qt::Key_Return);
    }
    void repairs(QWidget* form) {
        if (dice(2) == 1) {
            return click(form, "cmdRepairMax");
        }
        find<QSlider>(*form, "sldRepair")->setFocus();
        press(form, any(QList<int>{Qt::Key_Right, Qt::Key_PageUp, Qt::Key_End, Qt::Key_Home}));
        if (dice(3) == 1) {
            press(form, any(QList<int>{Qt::Key_Return, Qt::Key_Return, Qt::Key_Escape}));
        }
    }
    void leaves(QWidget* form) {
        if (dice(3) == 1) {
            press(form, Qt::Key_Down);
        }
        if (dice(4) == 1 && !game::inHongKong(state())) {
            click(form, "optHongKong");
        }
        dice(20) == 1 ? press(form, Qt::Key_Escape) : press(form, Qt::Key_Return);
    }
    void battles(QWidget* form) {
        if (m_waiting) {
            if (dice(10) == 1) {
                form->close();
            }
            return;
        }
        if (dice(20) == 1) {
            return click(form, "cmdDump");
        }
        if (enabled(*form, "cmdFight") && (m_fights || dice(3) == 1)) {
            return click(form, dice(3) == 1 ? "cmdDeath" : "cmdFight");
        }
        click(form, "cmdRun");
    }
    void prides(QWidget* form) {
        if (enabled(*form, "cmdRetire") && dice(6) == 1) {
            return click(form, "cmdRetire");
        }
        press(form, enabled(*form, "cmdOK") ? Qt::Key_Return : Qt::Key_Escape);
    }
    void reads(QWidget* form) {
        if (dice(3) == 1) {
            return press(form, Qt::Key_Escape);
        }
        click(form,
              any(QList<const char*>{"cmdHints", "cmdIntructions", "lblHomepage", "cmdMoney"}));
    }
    void answers(QWidget* box) {
        const auto buttons = box->findChildren<QPushButton*>();
        const QString text = qobject_cast<QMessageBox*>(box)->text();
        if (text.contains("quit") && dice(10) > 1) {
            return press(box, Qt::Key_Escape);
        }
        if (text.contains("play again") && dice(3) > 1) {
            return press(box, Qt::Key_Return);
        }
        click(any(buttons));
    }

    // --- Accounts.
    void count(const QString& thing) {
        const auto at = std::find(things.begin(), things.end(), thing.toStdString());
        if (at == things.end()) {
            expect(false, "never heard of: " + thing);
        }
        ++m_tally.at(static_cast<std::size_t>(at - things.begin()));
        m_ending = thing;
    }
    void countBox(const QString& text, ui::Answer answer) {
        static const QStringList answers{": OK", ": Yes", ": No", ": Cancel"};
        for (const QString thing : things) {
            const QString begin = thing.section(": ", 0, 0);
            if (thing.contains(": ") && text.startsWith(begin) &&
                thing.endsWith(answers.at(static_cast<int>(answer)))) {
                return count(thing);
            }
        }
        expect(false, "a strange box: " + text);
    }
    void expect(bool fact, const QString& otherwise) {
        Findings findings;
        findings.holds(fact, otherwise);
        expect(findings);
    }
    void expect(const Findings& findings) {
        if (findings.all().isEmpty()) {
            return;
        }
        std::cerr << "game " << m_seed << ", step " << m_step << ", " << m_top.toStdString() << ": "
                  << findings.all().join("; ").toStdString() << "\n    ZHENBAO_SEED=" << m_seed
                  << " ui_tests --gtest_filter=Restless.* tells the story\n";
        _exit(EXIT_FAILURE);
    }
    [[noreturn]] void end(const QString& ending) {
        count(ending);
        tell("the end: " + ending);
        _exit(EXIT_SUCCESS);
    }
    void tell(const QString& what) {
        if (m_tells) {
            std::cerr << m_step << (m_waiting ? " (waiting) " : " ") << what.toStdString() << '\n';
        }
    }

    std::uint64_t m_seed;
    Tally& m_tally;
    QString m_folder;
    bool m_tells;
    game::Generator m_dice;    ///< what the player does
    game::Generator m_chance;  ///< what the game does
    ui::QtDesktop m_desktop;
    ui::frmMain m_mainForm;
    test::Books m_books;
    QString m_read;  ///< of the report, so far
    QString m_file;
    QString m_savedTo;
    QString m_top;
    QString m_ending;
    int m_folly;  ///< of a hundred acts
    bool m_borrows;
    bool m_fights;
    int m_steps;
    int m_step = 0;
    int m_boxes = 0;
    int m_time = 0;
    bool m_waiting = false;
};

/// A game that differs from a new one in two figures.
struct Turn {
    game::Field field;
    std::int64_t figure;
    game::Field other;
    std::int64_t otherFigure;
};

/// Games to go on with: at the turns of a fortune, and such as no play leads to.
void layOutFiles(const QString& folder) {
    int number = 0;
    const auto write = [&](const char* name, const GameState& state) {
        if (state.gstrFirm.size() < 1'000 && state.gstrFirm.find('\r') == std::string::npos) {
            ui::writeGameFile(folder + QString("/%1%2").arg(name).arg(++number), state);
        }
    };
    for (const GameState& state : test::absurdGames()) {
        write("absurd", state);
    }
    for (const auto& [field, figure, other, otherFigure] :
         {Turn{&GameState::gcurDebt, 940'000'000'000, &GameState::gcurBank, 1},
          {&GameState::gcurStatus, 3, &GameState::gcurDebt, 999'999},
          {&GameState::gcurCash, 999'999, &GameState::gcurPayoff, 11},
          {&GameState::gcurBank, 999'999'000'000, &GameState::gcurCash, 1'000},
          {&GameState::gcurMaxHold, 460, &GameState::gcurCash, 9'999'999},
          {&GameState::gcurWOpium, 9'990, &GameState::gcurStatus, 99}}) {
        GameState state = test::newGame();
        state.*field = figure;
        state.*other = otherFigure;
        write("turn", state);
    }
    for (const char* content : {"", "#1860-01-15#\r\n", "no game at all"}) {
        QFile file(folder + QString("/absurd%1").arg(++number));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) >= 0);
    }
}
pid_t playInProcess(std::uint64_t seed, Tally& tally, const QString& folder, bool tells) {
    const pid_t child = fork();
    if (child == 0) {
        alarm(240);

        Player(seed, tally, folder, tells).play();
    }
    return child;
}

TEST(Restless, PlaysWholeGamesAndFindsNoFault) {
    const QTemporaryDir folder;
    layOutFiles(folder.path());
    ASSERT_TRUE(QDir(folder.path()).mkdir("own"));
    QApplication::setDoubleClickInterval(0);
    auto* shared =
        mmap(nullptr, sizeof(Tally), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    auto& tally = *new (shared) Tally{};
    const bool one = qEnvironmentVariableIsSet("ZHENBAO_SEED");
    const auto games = static_cast<std::uint64_t>(
        one ? 1 : std::max(qEnvironmentVariableIntValue("ZHENBAO_GAMES"), 0));
    const std::uint64_t first =
        static_cast<std::uint64_t>(qEnvironmentVariableIntValue("ZHENBAO_SEED"));
    const std::uint64_t last = first + (games == 0 ? 200 : games);
    std::map<pid_t, std::uint64_t> playing;
    for (std::uint64_t seed = first; seed < last || !playing.empty();) {
        if (seed < last && playing.size() < std::max(1U, std::thread::hardware_concurrency())) {
            playing[playInProcess(seed, tally, folder.path(), one)] = seed;
            ++seed;
            continue;
        }
        int status = 0;
        const pid_t ended = waitpid(-1, &status, 0);
        ASSERT_GT(ended, 0);
        EXPECT_EQ(status, 0) << "game " << playing[ended];
        playing.erase(ended);
    }
    for (std::size_t thing = 0; thing < things.size(); ++thing) {
        std::cout << things.at(thing) << ' ' << tally.at(thing) << '\n';
        EXPECT_TRUE(one || tally.at(thing) > 0) << things.at(thing);
    }
}

}  // namespace
