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

/// What has to happen in some game or other: windows, entries, boxes and their answers, endings.
const QStringList things =
    QString(
        "frmNew;frmStats;frmBuy;frmSell;frmTransfer;frmVisit;frmMoney;frmLeave;frmPirate;"
        "frmRepair;frmHelp;frmAbout;goods bought;goods sold;moved aboard;moved ashore;deposit;"
        "withdrawal;loan;repayment;repair;cannon bought;ship bought;departure;cannon lost;booty;"
        "blown off course;storm;arrival;cannon offered;ship offered;opium seized;robbery;theft;"
        "price shock;lieutenant;Dunmore;tribute paid;game saved;game started;game loaded;"
        "absurd game loaded;link;act during a wait;Do you want to save: Yes;"
        "Do you want to save: No;Do you want to save: Cancel;Insufficient Funds: OK;"
        "Insufficient Hold: OK;Insufficient Cargo: OK;Insufficient Storage: OK;"
        "Maximum Loan Exceeded: OK;Over Payment: OK;Kwan Tat asks for: Yes;Kwan Tat asks for: No;"
        "Adding Difference to Debt: OK;You got some booty: OK;Error Opening File: OK;"
        "Error Saving File: OK;Are you sure you want to dump: Yes;"
        "Are you sure you want to dump: No;Do you want to quit: Yes;Do you want to quit: No;"
        "Do you really want to quit: Yes;Do you really want to quit: No;"
        "Zhenbao, you have sunk: Yes;Zhenbao, you have sunk: No;Zhenbao, you are Bankrupt: Yes;"
        "Zhenbao, you are Bankrupt: No;a million;a trillion;end of the program;window closed;"
        "still playing;steps")
        .split(u';');

/// Counts for all the processes that play.
using Tally = std::array<std::atomic<std::uint64_t>, 100>;

// --- What has to hold whenever the player looks. --------------------------------------------

struct Sight {
    QWidget& mainForm;
    const GameState& state;
    const test::Books& books;
    QWidget& window;  ///< on top: the main window or a dialog
};

QString dollars(Currency amount) {
    return ui::money(amount);
}
QString plain(Currency amount) {
    return ui::plain(amount);
}
bool enabled(QWidget& window, const char* name) {
    return find<QWidget>(window, name)->isEnabled();
}
/// What a display, a label or the title of a panel shows.
QString shown(QWidget& window, const QString& name) {
    auto* widget = find<QWidget>(window, qPrintable(name));
    if (auto* panel = qobject_cast<QGroupBox*>(widget)) {
        return panel->title();
    }
    return widget->property("text").toString();
}
void expectTexts(Findings& findings, QWidget& window,
                 std::initializer_list<std::pair<QString, QString>> texts) {
    for (const auto& [name, text] : texts) {
        findings.same(name, shown(window, name), text);
    }
}
void expectEnabled(Findings& findings, QWidget& window,
                   std::initializer_list<std::pair<const char*, bool>> controls) {
    for (const auto& [name, allowed] : controls) {
        findings.holds(enabled(window, name) == allowed,
                       QString(name) + (allowed ? " disabled" : " enabled"));
    }
}
QString statusTitle(Currency percent) {
    return "Ship's Status - " + plain(percent) + "% ";
}

void recordIsSound(const Sight& sight, Findings& findings) {
    const GameState& state = sight.state;
    findings.same("hold in use", state.gcurHold, test::Books::holdInUse(state));
    findings.holds(test::Books::isLawful(state), "a record that no play leads to");
    findings.holds(!state.gblnActiveGame || !state.gblnGameOver, "active and over");
}

void mainWindowShowsTheRecord(const Sight& sight, Findings& findings) {
    const GameState& state = sight.state;
    for (const game::GoodRow& good : game::goods) {
        const QString name = ui::fromRules(good.name);
        expectTexts(findings, sight.mainForm,
                    {{"txtS" + name, plain(state.*good.ship)},
                     {"txtW" + name, plain(state.*good.warehouse)},
                     {"txtP" + name, dollars(state.*good.price)}});
    }
    expectTexts(findings, sight.mainForm,
                {{"txtCash", dollars(state.gcurCash)},
                 {"txtBank", dollars(state.gcurBank)},
                 {"txtDebt", dollars(state.gcurDebt)},
                 {"txtCannons", plain(state.gcurCannons)},
                 {"txtDate", ui::fromRules(game::dateText(state.gdtmDate))},
                 {"fraStatus", statusTitle(state.gcurStatus)},
                 {"fraHold", "Ship's Hold - " + plain(state.gcurHold) + " of " +
                                 plain(state.gcurMaxHold) + ' '}});
    const auto expectBar = [&](const char* name, Currency value, Currency most) {
        const int whole = std::max(most.toInt(), 1);
        auto* bar = find<QProgressBar>(sight.mainForm, name);
        findings.same(name, bar->value(), std::clamp(value.toInt(), 0, whole));
        findings.same(name, bar->maximum(), whole);
    };
    expectBar("prgHold", state.gcurHold, state.gcurMaxHold);
    expectBar("prgStatus", state.gcurStatus, 100);
    if (sight.books.lawful()) {
        expectTexts(findings, sight.mainForm,
                    {{"fraPrices", "Prices at " + ui::fromRules(state.gstrLocation) + ' '},
                     {"fraHouse", "House of " + ui::fromRules(state.gstrFirm).replace("&", "&&") +
                                      ", Hong Kong "}});
    }
    auto* report = find<QPlainTextEdit>(sight.mainForm, "txtLog");
    findings.holds(report->document()->characterCount() <= 20'001, "a report of too many letters");
}

void standingIsThatOfTheFigures(const Sight& sight, Findings& findings) {
    const GameState& state = sight.state;
    const Currency worth = state.gcurCash + state.gcurBank - state.gcurDebt;
    findings.same("net worth", state.gcurNetWorth, worth);
    const int months = (static_cast<int>(state.gdtmDate.year()) - 1860) * 12 +
                       static_cast<int>(static_cast<unsigned>(state.gdtmDate.month())) - 1;
    const Currency score = state.gcurRank;
    if (sight.books.lawful() && months > 0) {
        findings.same("score", score, game::Int(worth.toDouble() / (100.0 * months)));
    }
    const QString rank = score < 501      ? "Galley Hand"
                         : score < 1'000  ? "Compradore"
                         : score < 8'000  ? "Zhenbao"
                         : score < 50'000 ? "Master Zhenbao"
                                          : "Ma Tsu";
    findings.same("window title", sight.mainForm.windowTitle(),
                  "Zhenbao - " + rank + " [" + dollars(worth) + "]");
    findings.holds(worth < 1'000'000 || worth >= 1'000'000'000'000 || state.gblnMillionaire,
                   "a million nobody told of");
}

void ordersFitThePort(const Sight& sight, Findings& findings) {
    const bool begun = sight.state.gdtmDate != game::zeroDate;
    const bool inPort = begun && !sight.books.underWay;
    const bool home = inPort && sight.state.gstrLocation == "Hong Kong";
    expectEnabled(findings, sight.mainForm,
                  {{"cmdBuy", inPort},
                   {"cmdSell", inPort},
                   {"cmdLeave", inPort},
                   {"cmdVisit", home},
                   {"cmdTransfer", home},
                   {"cmdRepair", home && sight.state.gcurStatus < 100},
                   {"cmdCannon", sight.books.cannonOffered},
                   {"cmdShip", sight.books.shipOffered}});
    if (inPort) {
        expectEnabled(findings, sight.mainForm, {{"cmdMoney", sight.books.lender}});
    }
    for (const char* item : {"mnuSaveItem", "mnuStatsItem"}) {
        findings.holds(find<QAction>(sight.mainForm, item)->isEnabled() == begun, item);
    }
}

void commandFollowsTheAmounts(const Sight& sight, Findings& findings) {
    Currency sum;
    for (const auto* field : sight.window.findChildren<ui::AmountField*>()) {
        sum += field->amount();
    }
    const QString command = sight.window.objectName().replace("frm", "cmd");
    expectEnabled(findings, sight.window, {{qPrintable(command), sum > 0}});
    if (sight.window.findChild<QWidget*>("optWarehouse") != nullptr) {
        expectEnabled(findings, sight.window, {{"optWarehouse", game::inHongKong(sight.state)}});
    }
}

void battleIsShownAsItIs(const Sight& sight, Findings& findings) {
    const GameState& state = sight.state;
    int ships = 0;
    for (const auto* picture : find<QWidget>(sight.window, "picShips")->findChildren<QLabel*>()) {
        ships += picture->isVisible() ? 1 : 0;
    }
    expectTexts(findings, sight.window,
                {{"txtEnemy", QString::number(ships)},
                 {"txtStatus", plain(state.gcurStatus) + '%'},
                 {"txtCannons", plain(state.gcurCannons)}});
    expectTexts(findings, sight.mainForm, {{"fraStatus", statusTitle(state.gcurStatus)}});
    const bool wanted = shown(sight.window, "txtReport") == "Zhenbao, what shall we do?";
    const bool armed = wanted && state.gcurCannons > 0;
    const bool cargo = std::any_of(game::goods.begin(), game::goods.end(),
                                   [&](const auto& good) { return state.*good.ship >= 1; });
    expectEnabled(findings, sight.window,
                  {{"cmdFight", armed},
                   {"cmdDeath", armed},
                   {"cmdRun", wanted},
                   {"cmdDump", wanted && cargo}});
    findings.holds(sight.books.underWay, "open menus at sea");
}

void repairCostsWhatItSays(const Sight& sight, Findings& findings) {
    if (!sight.books.lawful()) {
        return;
    }
    const Currency chosen = find<QSlider>(sight.window, "sldRepair")->value();
    const Currency better = chosen - sight.state.gcurStatus;
    const Currency price = better * sight.state.gcurMaxHold * 10;
    findings.holds(better >= 0 && price <= sight.state.gcurCash, "a repair out of bounds");
    expectTexts(findings, sight.window,
                {{"txtPrice", dollars(price)}, {"txtStatus", plain(chosen) + '%'}});
    expectTexts(findings, sight.mainForm, {{"fraStatus", statusTitle(chosen)}});
    expectEnabled(findings, sight.window, {{"cmdRepair", better > 0}});
}

void statisticsAreThoseOfTheRecord(const Sight& sight, Findings& findings) {
    const GameState& state = sight.state;
    expectTexts(findings, sight.window,
                {{"lblNetValue", dollars(state.gcurNetWorth)},
                 {"lblShipValue", plain(state.gcurMaxHold)},
                 {"lblCannonsValue", plain(state.gcurCannons)},
                 {"lblTotalValue", plain(state.gcurRank)},
                 {"lblRankValue", ui::fromRules(state.gstrRank)}});
    expectEnabled(findings, sight.window,
                  {{"cmdRetire", state.gcurNetWorth >= 1'000'000},
                   {"cmdOK", !sight.window.windowTitle().contains("Trillionaire")}});
}

void destinationIsAnotherPort(const Sight& sight, Findings& findings) {
    int chosen = 0;
    for (const auto* port : sight.window.findChildren<QRadioButton*>()) {
        const bool here = port->text() == ui::fromRules(sight.state.gstrLocation);
        findings.holds(port->isEnabled() != here, "port " + port->text());
        chosen += port->isChecked() && !here ? 1 : 0;
    }
    findings.same("ports chosen", chosen, 1);
}

void newGameCannotBeRefusedWhenOneIsOver(const Sight& sight, Findings& findings) {
    expectEnabled(findings, sight.window, {{"cmdCancel", !sight.state.gblnGameOver}});
}

void look(const Sight& sight, Findings& findings) {
    using Invariant = void (*)(const Sight&, Findings&);
    static const QMap<QString, Invariant> ofDialogs{
        {"frmBuy", commandFollowsTheAmounts},      {"frmSell", commandFollowsTheAmounts},
        {"frmTransfer", commandFollowsTheAmounts}, {"frmPirate", battleIsShownAsItIs},
        {"frmRepair", repairCostsWhatItSays},      {"frmStats", statisticsAreThoseOfTheRecord},
        {"frmLeave", destinationIsAnotherPort},    {"frmNew", newGameCannotBeRefusedWhenOneIsOver}};
    const QString name = sight.window.objectName();
    const bool begun = sight.state.gdtmDate != game::zeroDate;
    if (sight.books.lawful() && sight.state.gblnActiveGame && name != "msgBox") {
        recordIsSound(sight, findings);
    }
    if (begun && &sight.window == &sight.mainForm && !sight.books.underWay) {
        mainWindowShowsTheRecord(sight, findings);
        standingIsThatOfTheFigures(sight, findings);
    }
    if ((sight.books.lawful() || !begun) && name != "msgBox") {
        ordersFitThePort(sight, findings);
    }
    if (const Invariant invariant = ofDialogs.value(name)) {
        invariant(sight, findings);
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
        m_folly = std::array{2, 5, 15, 70}.at(static_cast<std::size_t>(dice(4)) - 1);
        m_fights = dice(2) == 1;
        m_steps = 100 + dice(500);
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
        const QString file = laidOut.filePath(any(laidOut.entryList()));
        return m_file = any(QStringList{"", m_folder + "/missing", ownFile(), file, file, file});
    }
    QString chooseFileToSave(QWidget* /*owner*/) override {
        return m_savedTo = any(QStringList{"", m_folder, m_folder + "/missing/game", ownFile(),
                                           ownFile(), ownFile()});
    }
    void openLink(const QUrl& /*link*/) override { count("link"); }
    void wait(game::Milliseconds duration) override {
        if (dice(100) <= (duration == game::pace::alertFlash ? 50 : m_folly / 4 + 1)) {
            const QScopedValueRollback waiting(m_waiting, true);
            QCoreApplication::processEvents();
        }
    }
    [[noreturn]] void endProgram() override { end("end of the program"); }

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
        m_books.underWay = !m_mainForm.menuBar()->actions().constFirst()->isEnabled();
        readReport();
        const bool alone = top == &m_mainForm && !m_waiting;
        const bool atRest = alone && thread()->loopLevel() == 1;
        m_top = top->objectName();
        expect(!m_books.underWay || !atRest, "closed menus in port");
        expect(!state().gblnGameOver || !atRest, "nothing follows the end of a game");
        // A loop may still be busy with the last events of a dialog that has closed.
        if (QApplication::activePopupWidget() == nullptr && (atRest || !alone)) {
            Findings findings;
            look({m_mainForm, state(), m_books, *top}, findings);
            if (atRest) {
                m_books.compare(m_mainForm.state(), findings);
            }
            expect(findings);
        }
        if (m_waiting) {
            count("act during a wait");
        }
        if (!top->isActiveWindow()) {
            top->activateWindow();
        }
        if (const QPointer popup = QApplication::activePopupWidget()) {
            doAnyOf(popup, "<Down> <Down> <Up> <End> <End>");
            if (popup) {
                doAnyOf(popup, "<Return> <Return> <Return> <Esc>");
            }
        } else if (dice(100) <= m_folly) {
            actFoolishly(top);
        } else {
            actSensibly(top);
        }
    }

    /// Enters what is new in the report into the books.
    void readReport() {
        QString report = find<QPlainTextEdit>(m_mainForm, "txtLog")->toPlainText();
        report.replace("\n" + QString(23, ' '), "|");
        const QString first = report.section('\n', 0, 0);
        const bool opening =
            first.endsWith(" - Welcome Captain") || first.endsWith(" - Game Loaded Successfully");
        const QString known = m_read.right(2'000);
        qsizetype from = report.lastIndexOf(known) + known.size();
        Findings findings;
        if (opening && (report == first || !report.startsWith(m_read))) {
            begin(first.endsWith("Captain"), report != m_read, findings);
            from = first.size();
        }
        findings.holds(from >= known.size() || opening, "the report forgot its past");
        // Dots may still trail the departure that was read before.
        for (const QString& entry :
             report.mid(from).remove(QRegularExpression("^\\.+")).split('\n', Qt::SkipEmptyParts)) {
            tell(entry);
            if (!m_books.lawful()) {
                continue;
            }
            const QString kind = m_books.post(entry, findings);
            count(kind);
            findings.holds(!m_books.underWay || !kind.endsWith("bought"), "an order at sea");
            if (kind == "game saved") {
                findings.holds(written(state()) == fileContent(m_savedTo), "another game saved");
            }
        }
        m_read = report;
        expect(findings);
    }

    /// A game was started or loaded, or perhaps once more: its first entry looks the same again.
    void begin(bool anew, bool surely, Findings& findings) {
        GameState fresh;
        test::ScriptedRandom prices{0, 0, 0, 0};
        const bool cash = state().gcurDebt > 0;
        game::startGame(fresh, prices, cash ? game::Scenario::CashAndDebt : game::Scenario::Cannons,
                        state().gstrFirm);
        for (const game::GoodRow& good : game::goods) {
            fresh.*good.price = state().*good.price;
        }
        fresh.gcurPCannon = state().gcurPCannon;
        fresh.gcurPShip = state().gcurPShip;
        const auto withoutNotice = [](const QByteArray& text) {
            return text.left(text.lastIndexOf('#', -4));
        };
        if (withoutNotice(written(state())) ==
            withoutNotice(anew ? written(fresh) : fileContent(m_file))) {
            m_books.open(state());
            if (surely) {
                count(anew               ? "game started"
                      : m_books.lawful() ? "game loaded"
                                         : "absurd game loaded");
            }
        } else {
            findings.holds(!surely, "another game than was asked for");
        }
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
        const QPoint place = control->mapTo(
            control->window(), QPoint(std::min(control->width() / 2, 12), control->height() / 2));
        m_time += 1'000;  // no click is the second half of a double click
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            if (window) {
                const bool down = type == QEvent::MouseButtonPress;
                qt_handleMouseEvent(window, place, window->mapToGlobal(place),
                                    down ? Qt::LeftButton : Qt::NoButton, Qt::LeftButton, type, {},
                                    m_time);
            }
        }
    }
    void press(QWidget* top, const QKeySequence& sequence) {
        tell("press " + sequence.toString());
        const QKeyCombination keys = sequence[0];
        const QPointer<QWindow> window = top->window()->windowHandle();
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            if (window) {
                const bool letter = keys.key() < 0x100 && !keys.keyboardModifiers();
                qt_handleKeyEvent(window, type, keys.key(), keys.keyboardModifiers(),
                                  letter ? QString(QChar(keys.key())) : QString());
            }
        }
    }
    void type(QWidget* top, const QString& text) {
        const QPointer<QWidget> still = top;
        for (qsizetype at = 0; at < text.size() && still; ++at) {
            press(top, QKeySequence(text.at(at).unicode()));
        }
    }
    /// One of some words: the name of a control to click, <a key>, or nothing to do.
    void doAnyOf(QWidget* top, const char* words) {
        const QString word = any(QString(words).split(' '));
        auto* control = top->findChild<QWidget*>(word);
        if (word.startsWith('<')) {
            press(top, word == "<Space>" ? QKeySequence(Qt::Key_Space)
                                         : QKeySequence(word.mid(1).chopped(1)));
        } else if (auto* list = qobject_cast<QComboBox*>(control); list && list->isEnabled()) {
            list->setFocus();
            press(top, QKeySequence("Alt+Down"));
        } else if (word == "close") {
            tell("close " + top->objectName());
            top->close();
        } else {
            click(control);
        }
    }

    void actFoolishly(QWidget* top) {
        static const QStringList rubbish{
            "0",   "7",  "1000",         "99999999999999999999", "-5",     "x",           "$1,2 3",
            "3.5", "\"", "Smith & Sons", QString(3'000, '9'),    "\n\r\t", "\u0663\u4E2D"};
        const auto anyVisible = [this](QWidget* window) {
            QList<QWidget*> seen{window};
            for (QWidget* widget : window->findChildren<QWidget*>()) {
                if (widget->isVisible() && !widget->objectName().isEmpty()) {
                    seen.append(widget);
                }
            }
            return any(seen);
        };
        switch (dice(8)) {
            case 1:
            case 2:
                return click(anyVisible(top));
            case 3:  // what lies behind, out of reach
                return click(anyVisible(&m_mainForm));
            case 4:
                return type(top, any(rubbish).left(20));
            case 5:
                QGuiApplication::clipboard()->setText(any(rubbish));
                return press(top, QKeySequence("Ctrl+V"));
            case 6:
                return doAnyOf(top,
                               "close . . . <Ctrl+N> <Ctrl+L> <Ctrl+S> <F1> <Alt+F> <Alt+O> "
                               "<Alt+H> <Ctrl+A> <Ctrl+Z> <F4> <F10> <Alt+Down> <Alt+Up>");
            case 7:
                return doAnyOf(top,
                               "<Esc> <Return> <Enter> <Tab> <Backtab> <Space> <Left> <Right> "
                               "<Up> <Down> <PgUp> <PgDown> <Home> <End> <Del> <Backspace>");
            default:
                return actSensibly(top);
        }
    }
    void actSensibly(QWidget* top) {
        static const QMap<QString, const char*> habits{
            {"frmNew", "txtFirm <W> <U> <&> optCash optDebt <Return> <Return> <Esc>"},
            {"frmSell", "cmdSellAll cmdSellAll cmdSellAll cmdMaxOpium cmdSell optWarehouse close"},
            {"frmTransfer",
             "cboShip cboWarehouse cboSAmount cboSAmount cboWAmount cboWAmount <9> <9> cmdCancel"},
            {"frmVisit", "cboDeposit cboDeposit cboWithdraw cboWithdraw <9> cmdOK cmdOK cmdCancel"},
            {"frmMoney", "cboBorrow cboBorrow cboRepay <9> cmdOK cmdOK cmdOK cmdCancel"},
            {"frmRepair", "cmdRepairMax sldRepair <Right> <PgUp> <End> <Home> cmdRepair cmdCancel"},
            {"frmLeave", "<Down> optHongKong <Return> <Return> <Return> <Return> <Esc>"},
            {"frmPirate",
             "cmdFight cmdFight cmdFight cmdDeath cmdDeath cmdRun cmdRun cmdDump close"},
            {"frmStats", "<Return> <Return> <Esc> cmdRetire cmdRetire"},
            {"frmHelp", "cmdHints cmdIntructions cmdMoney <Esc>"},
            {"frmAbout", "lblHomepage lblContact <Esc>"},
            {"msgBox", "<Return> <Return> <Return> <Esc> <Esc> <Esc>"}};
        const QString name = top->objectName();
        const bool home = game::inHongKong(state());
        if (name == "frmMain") {
            doAnyOf(top, whatToDoInPort());
        } else if (name == "frmBuy" && home &&
                   game::freeRoom(state(), game::Place::Warehouse) <= 0) {
            doAnyOf(top, "optWarehouse cboGeneral <9> <9> cmdBuy cmdBuy close");
        } else if (name == "frmBuy") {
            doAnyOf(top, enabled(*top, "cmdBuy")
                             ? "cmdBuy cmdBuy <Return> <9> <9> optWarehouse close"
                             : qPrintable(bestBuy() + " optWarehouse cboGeneral <9> close"));
        } else if (name == "frmTransfer" && enabled(*top, "cmdTransfer")) {
            doAnyOf(top, "cmdTransfer cmdTransfer cmdTransfer cmdTransfer <9> <9>");
        } else if (name == "msgBox" && dice(3) > 1) {
            click(any(top->findChildren<QPushButton*>()));
        } else if (!m_waiting || dice(8) == 1) {
            doAnyOf(top, habits[name]);
        }
    }
    const char* whatToDoInPort() {
        if (m_books.underWay) {
            return "cmdCannon cmdShip cmdLeave";
        }
        if (!state().gblnActiveGame) {
            return "<Ctrl+N> <Ctrl+L>";
        }
        if (dice(12) == 1) {
            return "<Ctrl+S> <Ctrl+L> <Ctrl+L> <Ctrl+N> <Alt+O> <Alt+O> <Alt+H> <Alt+H> cmdCannon";
        }
        const auto can = [&](const char* order) { return enabled(m_mainForm, order); };
        const bool home = game::inHongKong(state());
        bool cargo = false;
        bool dear = false;
        for (const game::GoodRow& good : game::goods) {
            const bool stocked = state().*good.ship + (home ? state().*good.warehouse : 0) > 0;
            cargo = cargo || stocked;
            dear = dear || (stocked && dearness(good) >= 14);
        }
        return can("cmdShip") && state().gcurPShip * 2 <= state().gcurCash ? "cmdShip"
               : can("cmdCannon") && m_fights                              ? "cmdCannon cmdLeave"
               : can("cmdMoney") && dice(4) == 1                           ? "cmdMoney"
               : can("cmdVisit") && dice(4) == 1                           ? "cmdVisit cmdTransfer"
               : can("cmdRepair") && dice(6) == 1                          ? "cmdRepair"
               : dear                                                      ? "cmdSell"
               : cargo ? "cmdLeave cmdLeave cmdSell cmdBuy cmdBuy"
                       : "cmdBuy cmdBuy cmdBuy cmdLeave";
    }
    /// How dear a good is, from 5 to 25 where nothing extraordinary happened.
    Currency dearness(const game::GoodRow& good) {
        return game::wholeTimes(state().*good.price, good.priceStep);
    }
    QString bestBuy() {
        for (const game::GoodRow& good : game::goods) {
            if (state().*good.price <= state().gcurCash && dearness(good) <= 11) {
                const QString name = " cmdMax" + ui::fromRules(good.name);
                return (name + name + name).mid(1);
            }
        }
        return "cmdMaxGeneral close close";
    }
    const GameState& state() { return m_mainForm.state(); }

    // --- Accounts.
    void count(const QString& thing) {
        const qsizetype at = things.indexOf(thing);
        expect(at >= 0, "never heard of: " + thing);
        ++m_tally.at(static_cast<std::size_t>(at));
    }
    void countBox(const QString& text, ui::Answer answer) {
        static const QStringList answers{": OK", ": Yes", ": No", ": Cancel"};
        for (const QString& thing : things) {
            if (thing.contains(": ") && text.startsWith(thing.section(": ", 0, 0)) &&
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
    int m_folly;  ///< of a hundred acts
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
          {&GameState::gcurStatus, 3, &GameState::gcurPayoff, 11},
          {&GameState::gcurStatus, 9, &GameState::gcurSOpium, 50},
          {&GameState::gcurWSilk, 10'000, &GameState::gcurSOpium, 9},
          {&GameState::gcurWArms, 10'000, &GameState::gcurCash, 50'000},
          {&GameState::gcurDebt, 980'000'000'000, &GameState::gcurPayoff, 12},
          {&GameState::gcurWGeneral, 40, &GameState::gcurBank, 77'000},
          {&GameState::gcurCash, 999'999, &GameState::gcurPayoff, 11},
          {&GameState::gcurBank, 999'999'000'000, &GameState::gcurCash, 1'000},
          {&GameState::gcurMaxHold, 460, &GameState::gcurCash, 9'999'999},
          {&GameState::gcurWOpium, 9'990, &GameState::gcurSSilk, 50}}) {
        GameState state = test::newGame();
        state.*field = figure;
        state.*other = otherFigure;
        state.gcurHold = test::Books::holdInUse(state);
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
        alarm(300);  // a game that hangs is a fault

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
    for (qsizetype thing = 0; thing < things.size(); ++thing) {
        const std::uint64_t times = tally.at(static_cast<std::size_t>(thing));
        std::cout << things.at(thing).toStdString() << ' ' << times << '\n';
        EXPECT_TRUE(one || times > 0) << things.at(thing).toStdString();
    }
}

}  // namespace
