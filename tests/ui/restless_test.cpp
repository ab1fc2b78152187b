// Whole games in the real windows, played by somebody who never rests and presses anything. A game
// is a run of the program in a process of its own, which may end as the real one does. The
// toolkit's threads do not come along, so nothing else may have been painted before.
//
//     ZHENBAO_SEED=7 tells the story of game 7; ZHENBAO_GAMES=20000 plays more of them.

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <iostream>
#include <thread>

#include "game_file.h"
#include "player.h"
#include "qt_desktop.h"
#include "saved_game.h"
#include "standing.h"

namespace {

using game::GameState;
using ui::fromRules, ui::plain;

/// The lines of an approved text that are no comments.
QStringList linesOf(const QString& name) {
    QFile file(QString(ZHENBAO_APPROVED "/") + name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return QString::fromUtf8(file.readAll()).split('\n').filter(QRegularExpression("^[^# ]"));
}

/// All that may come up and has to: windows, boxes, entries of the report and the like.
struct Occasions {
    QStringList rows = linesOf("windows.txt").filter(QRegularExpression("^frm(?!Main)")) +
                       linesOf("occasions.txt");
    QList<QRegularExpression> patterns;
    std::atomic<int>* counts = static_cast<std::atomic<int>*>(  // in all games
        mmap(nullptr, 4'096, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));

    Occasions() {
        for (const QString& row : rows) {  // `#` is a number, `*` anything
            QString pattern = QRegularExpression::escape(row);
            pattern.replace("\\#", "[\\d,]+").replace("\\*", ".*");
            patterns << QRegularExpression('^' + pattern + '$');
        }
    }
    bool include(const QString& what) const {
        qsizetype row = 0;
        while (row < rows.size() && !patterns.at(row).match(what).hasMatch()) {
            ++row;
        }
        counts[row] += 1;
        return row < rows.size();
    }
};

/// Plays until the program ends, which ends this process.
class Player final : public QObject, public ui::QtDesktop {
public:
    Player(int seed, const QDir& folder, const Occasions& occasions)
        : m_seed(seed), m_folder(folder), m_occasions(occasions) {
        const auto* report = test::find<QPlainTextEdit>(m_mainForm, "txtLog")->document();
        connect(report, &QTextDocument::contentsChange, this,
                [=, this](int at, int, int added) { read(report->toPlainText().mid(at, added)); });
        m_mainForm.show();
        wake();
        QApplication::exec();
        end("the window closed");
    }

    ui::Answer show(QWidget* owner, const ui::Box& box) override {
        expect(m_mainForm.findChildren<QMessageBox*>().isEmpty(), "two questions at a time");
        expect(std::exchange(m_question, box.text) != box.text, "a question asked twice");
        return QtDesktop::show(owner, box);
    }
    QString chooseFileToLoad(QWidget* /*owner*/) override {
        const QString file = any(m_folder.entryList({dice(6) == 1 ? "absurd*" : "turn*"}));
        return m_file = any(QStringList{"", m_folder.filePath("none"), ownFile(), ownFile(),
                                        m_folder.filePath(file), m_folder.filePath(file)});
    }
    QString chooseFileToSave(QWidget* /*owner*/) override {
        return m_file = any(QStringList{"", m_folder.path(), ownFile(), ownFile()});
    }
    void openLink(const QUrl& /*link*/) override { meet("a link"); }
    void wait(game::Milliseconds duration) override {
        if (dice(100) <= (duration == game::pace::alertFlash ? 50 : m_folly / 4 + 1)) {
            const QScopedValueRollback waiting(m_waiting, true);
            QCoreApplication::processEvents();
        }
    }
    [[noreturn]] void endProgram() override { end("the program ended"); }

private:
    /// Usually behind an order just given, which takes an event of the loop as well.
    void wake() {
        const auto stir = [this] {
            QMetaObject::invokeMethod(this, &Player::step,
                                      dice(4) == 1 ? Qt::DirectConnection : Qt::QueuedConnection);
        };
        QMetaObject::invokeMethod(this, stir, Qt::QueuedConnection);
    }
    void step() {
        wake();  // first, since an act may open a window that wants the next
        QWidget* modal = QApplication::activeModalWidget();
        m_top = modal != nullptr ? modal : &m_mainForm;
        m_name = m_top->objectName();
        if (!m_mainForm.isVisible()) {
            return;  // the program is about to end
        }
        if (++m_step > m_steps) {
            end("still playing");
        }
        const bool atRest = modal == nullptr && !m_waiting && thread()->loopLevel() == 1;
        const bool inMenu = QApplication::activePopupWidget() != nullptr ||
                            qobject_cast<QMenuBar*>(m_top->focusWidget()) != nullptr;
        // A loop may still be busy with the last events of a dialog that has closed.
        if (const auto* box = qobject_cast<QMessageBox*>(m_top)) {
            lookAtBox(*box);
        } else if (!inMenu && (atRest || m_waiting || modal != nullptr)) {
            look(atRest);
        }
        if (!m_top->isActiveWindow()) {
            m_top->activateWindow();
        } else if (inMenu) {
            pressAny("Down Down Down Up End End Return Return Return Return Esc Esc");
        } else if (const bool foolish = dice(100) <= m_folly;
                   foolish || !m_waiting || dice(8) == 1) {
            act(foolish);
        }
    }

    // --- Looking and reading.
    void lookAtBox(const QMessageBox& box) {
        static const QStringList icons{"", "Information", "Exclamation", "Stop", "Question"};
        QString seen = box.text() + '|' + box.windowTitle() + '|' + icons.at(box.icon());
        for (const auto* button : box.buttons()) {  // Enter presses that with a plus, Escape -
            seen += ' ' + button->text().remove('&') + (button == box.defaultButton() ? "+" : "") +
                    (button == box.escapeButton() ? "-" : "");
        }
        meet(seen);
    }
    void look(bool atRest) {
        m_question.clear();
        meet(m_top != &m_mainForm ? m_name + " \"" + m_top->windowTitle() + '"'
             : m_waiting          ? "a wait"
                                  : "a rest");
        expect(m_top->focusWidget() != nullptr ? m_top->focusWidget()->isEnabled()
                                               : controls().isEmpty() || !m_top->isActiveWindow(),
               "no focus");
        expect(!atRest || !m_now.gblnGameOver, "no new game after the last");
        const bool atSea = m_waiting || m_name == "frmPirate";
        for (const QAction* menu : m_mainForm.menuBar()->actions()) {
            expect(menu->isEnabled() ? !atSea : !atRest, "menus open at sea, or closed in port");
        }
        if (m_lawful && m_now.gblnActiveGame) {
            lookAtOrders();
            if (m_name == "frmPirate") {
                lookAtBattle();
            } else if (atRest) {
                audit();
            }
        }
    }
    void lookAtOrders() const {
        const bool port = m_mainForm.menuBar()->actions().constFirst()->isEnabled();
        const bool home = port && game::inHongKong(m_now);
        const QWidget* house = m_mainForm.centralWidget();
        expectEnabled(house, "cmdBuy cmdSell cmdLeave", port);
        expectEnabled(house, "cmdVisit cmdTransfer", home);
        expectEnabled(house, "cmdRepair", home && m_now.gcurStatus < 100);
        expectEnabled(house, port ? "cmdMoney" : "cmdBuy", home && !told("Borrowed"));
        expectEnabled(house, "cmdCannon", told("cannon is available") && !told("New Cannon"));
        expectEnabled(house, "cmdShip", told("50 more capacity") && !told("New Ship"));
    }
    void lookAtBattle() {
        const auto ships = test::find<QWidget>(*m_top, "picShips")->findChildren<QLabel*>();
        const auto left = std::count_if(ships.begin(), ships.end(),
                                        [](const QLabel* ship) { return ship->isVisible(); });
        const QString report = test::textOf(*test::find<QWidget>(*m_top, "txtReport"));
        const bool asked = report == "Zhenbao, what shall we do?";
        expectText(*m_top, "txtEnemy", QString::number(left));
        expectText(*m_top, "txtStatus", plain(m_now.gcurStatus) + '%');
        expectText(*m_top, "txtCannons", plain(m_now.gcurCannons));
        expectText(m_mainForm, "fraStatus", "Ship's Status - " + plain(m_now.gcurStatus) + "% ");
        expectEnabled(m_top, "cmdFight cmdDeath", asked && m_now.gcurCannons > 0);
        expectEnabled(m_top, "cmdRun", asked);
        expectEnabled(m_top, "cmdDump", asked && game::totalStock(m_now, game::Place::Ship) > 0);
    }
    /// What holds between two orders.
    void audit() {
        GameState again = m_now;
        game::updateStanding(again);
        expect(again == m_now, "an old standing");
        const game::Currency cargo = game::totalStock(m_now, game::Place::Ship);
        expect(m_now.gcurHold == cargo + m_now.gcurCannons * 10, "a wrong hold");
        test::eachMember([this](std::string_view name, auto member) {
            if constexpr (std::is_same_v<decltype(member), game::Field>) {
                expect(
                    m_now.*member >= 0 || name == "Debt" || name == "NetWorth" || name == "Score",
                    "less than nothing");
                for (const char* kind : {"txt", "prg"}) {  // the displays bear the figures' names
                    if (const QString display = kind + fromRules(name);
                        m_top->findChild<QWidget*>(display) != nullptr) {
                        expectText(*m_top, display, plain(m_now.*member));
                    }
                }
            }
        });
        expectText(*m_top, "txtDate", fromRules(game::dateText(m_now.gdtmDate)));
        expectText(m_mainForm, "fraStatus", "Ship's Status - " + plain(m_now.gcurStatus) + "% ");
        expectText(
            m_mainForm, "fraHold",
            "Ship's Hold - " + plain(m_now.gcurHold) + " of " + plain(m_now.gcurMaxHold) + ' ');
        expectText(m_mainForm, "fraPrices", "Prices at " + fromRules(m_now.gstrLocation) + ' ');
        expectText(m_mainForm, "fraHouse",
                   "House of " + fromRules(m_now.gstrFirm).replace("&", "&&") + ", Hong Kong ");
        expect(m_top->windowTitle() == "Zhenbao - " + fromRules(m_now.gstrRank) + " [" +
                                           ui::money(m_now.gcurNetWorth) + "]",
               "title " + m_top->windowTitle());
        expect(test::find<QProgressBar>(m_mainForm, "prgHold")->maximum() == m_now.gcurMaxHold,
               "a bar of another hold");
        expect(!game::millionaireNoticeDue(m_now), "a fortune without a notice");
        expect(m_before.gdtmDate == m_now.gdtmDate || !told("Arriving") ||
                   m_top->focusWidget()->objectName() == "cmdLeave",
               "no focus on the orders after a voyage");
        m_before.gblnGameSaved = m_now.gblnGameSaved;
        m_before.gblnMillionaire = m_now.gblnMillionaire;
        expect(std::exchange(m_news, false) || m_before == m_now, "a change without an entry");
        m_before = m_now;
    }
    void expectEnabled(const QWidget* window, const QString& names, bool wanted) const {
        for (const QString& name : names.split(' ')) {
            expect(window->findChild<QWidget*>(name)->isEnabled() == wanted,
                   name + (wanted ? " cannot be used" : " can be used"));
        }
    }
    void expectText(QWidget& window, const QString& name, const QString& wanted) {
        const QString shown = test::textOf(*test::find<QWidget>(window, qPrintable(name)));
        expect(shown == wanted || QString(shown).remove('$').remove(',') == wanted,
               name + ": " + shown + " for " + wanted);
    }
    bool told(const char* what) const { return m_entries.contains(what); }
    /// A part of the report that is new: an entry, or a dot.
    void read(const QString& part) {
        const QString entry = part.trimmed().mid(15).replace("\n" + QString(23, ' '), "|");
        if (entry.isEmpty()) {
            return;
        }
        tell(entry);
        static const QRegularExpression begins("^(Departing|Welcome|Game Loaded)");
        m_entries = entry.contains(begins) ? "" : m_entries + entry;
        m_news = true;
        m_lawful = entry.startsWith("Game Loaded") ? !m_file.contains("absurd") : m_lawful;
        if (entry.startsWith("Game ")) {
            const std::string changes = test::changes(ui::readGameFile(m_file), m_now);
            expect(changes.starts_with(" Active=yes Saved=yes"),
                   "the file is another:" + fromRules(changes));
        }
        meet(m_lawful ? entry : "an absurd game");
    }

    // --- Acting.
    /// What the keyboard comes to in the window on top.
    QList<QWidget*> controls() const {
        QList<QWidget*> all = test::controlsOf(*m_top);
        all.removeIf([](const QWidget* control) {
            return !control->isEnabled() || ((control->focusPolicy() & Qt::TabFocus) == 0 &&
                                             !control->inherits("QAbstractButton"));
        });
        return all;
    }
    void act(bool foolish) {
        static const QRegularExpression usual(
            "^cmd(Leave|Visit|Money|Transfer|Repair|Depart|Start|Retire|Cannon|Ship|OK)$|HongKong|"
            "Withdraw");
        QGuiApplication::clipboard()->setText(
            any(QStringList{"0", "7", "99999999999999999999", "-5", "x", "$1,2 3", "3.5", "\"",
                            "Smith & Sons", QString(3'000, '9'), "\n\r\t", "\u0663\u4E2D"}));
        // A fool also uses what is switched off or hidden.
        QList<QWidget*> all = foolish ? m_top->findChildren<QWidget*>() : controls();
        for (QWidget* control : controls()) {
            all << QList<QWidget*>(control->objectName().contains(usual) ? 4 : 0, control);
        }
        const bool home = m_top == &m_mainForm;
        if (home && !m_now.gblnActiveGame && !foolish) {
            pressAny("Ctrl+N Ctrl+L");
        } else if (!all.isEmpty() && dice(5) > (foolish ? 3 : 1)) {
            use(*any(all));
        } else if (foolish) {
            pressAny(
                "close Ctrl+N Ctrl+L Ctrl+S F1 Alt+F Alt+O Alt+H Ctrl+A Ctrl+Z F4 F10 Alt+Down "
                "Alt+Up Esc Return Enter Tab Backtab Space Left Right Up Down PgUp PgDown Home End "
                "Del Backspace 7 0 X & - $ Ctrl+V Ctrl+V Ctrl+V");
        } else {
            pressAny(home ? "Ctrl+N Ctrl+S Ctrl+L Ctrl+L Ctrl+L Alt+F Alt+O Alt+H"
                          : "9 Ctrl+V Return Return Esc close");
        }
    }
    /// Uses a control as its kind is used, by mouse or by keyboard.
    void use(QWidget& control) {
        tell("use " + control.objectName());
        const bool usable = controls().contains(&control);
        const bool byMouse = dice(2) == 1 && control.isVisible();
        if (byMouse) {
            const QPoint place(std::min(control.width() / 2, 12), control.height() / 2);
            QTest::mouseClick(&control, Qt::LeftButton, {}, place);
        } else if (usable) {
            control.setFocus(Qt::TabFocusReason);
        }
        if (usable && control.inherits("QComboBox")) {
            pressAny("Alt+Down,Down,Return Alt+Down,End,Return 9 9,9");
        } else if (usable && !byMouse) {
            pressAny("Space Space Return End");
        }
    }
    /// Presses any of these keys, or of several in a row.
    void pressAny(const QString& ways) {
        const QString way = any(ways.split(' '));
        tell(m_name + ", " + way);
        for (const QString& key : way.split(',')) {
            QWidget* popup = QApplication::activePopupWidget();
            QWidget* focus = QApplication::focusWidget();
            if (key == "close") {
                m_top->close();
            } else {
                const QKeyCombination keys = QKeySequence(key)[0];
                QTest::keyClick(popup != nullptr   ? popup
                                : focus != nullptr ? focus
                                                   : m_top,
                                keys.key(), keys.keyboardModifiers());
            }
        }
    }
    int dice(int sides) { return game::roll(m_dice, sides); }
    template <class List>
    typename List::value_type any(const List& list) {
        return list.at(dice(static_cast<int>(list.size())) - 1);
    }
    QString ownFile() const {
        return m_folder.filePath((m_lawful ? "own" : "own absurd") + QString::number(m_seed));
    }

    // --- Telling.
    void meet(const QString& what) const {
        expect(m_occasions.include(what) || !m_lawful, "something strange: " + what);
    }
    void expect(bool fact, const QString& otherwise) const {
        if (!fact) {
            std::cerr << "game " << m_seed << ", step " << m_step << ", " << m_name.toStdString()
                      << ": " << otherwise.toStdString() << "\n    ZHENBAO_SEED=" << m_seed
                      << " ui_tests --gtest_filter=Restless.* tells the story\n";
            _exit(EXIT_FAILURE);
        }
    }
    [[noreturn]] void end(const char* how) const {
        meet(how);
        tell(how);
        _exit(EXIT_SUCCESS);
    }
    void tell(const QString& what) const {
        if (qEnvironmentVariableIsSet("ZHENBAO_SEED")) {
            std::cerr << m_step << (m_waiting ? " (waiting) " : " ") << what.toStdString() << '\n';
        }
    }

    int m_seed;
    QDir m_folder;  ///< of the games to go on with
    const Occasions& m_occasions;
    game::Generator m_dice{static_cast<std::uint64_t>(m_seed) * 2 + 1};  ///< what the player does
    game::Generator m_chance{static_cast<std::uint64_t>(m_seed) * 2};    ///< what the game does
    ui::frmMain m_mainForm{*this, m_chance};
    const GameState& m_now = m_mainForm.state();
    GameState m_before;            ///< as of the last rest in port
    QWidget* m_top = &m_mainForm;  ///< the window on top
    QString m_name;                ///< of it
    QString m_question;            ///< the last one, until something else was seen
    QString m_file;                ///< chosen last
    QString m_entries;             ///< since the last departure
    bool m_news = false;           ///< some since the last rest
    bool m_lawful = true;          ///< the game is none that only a file can lead to
    bool m_waiting = false;
    int m_folly = QList{2, 5, 15, 40}.at(dice(4) - 1);  ///< of a hundred acts
    int m_steps = 100 + dice(500);
    int m_step = 0;
};

/// Writes each game of games.txt: one of EVERY figure with each of them, any other a single time.
void layOutGames(const QDir& folder) {
    int files = 0;
    for (const QString& line : linesOf("games.txt")) {
        const auto write = [&](const QString& name, auto member) {
            if (std::is_same_v<decltype(member), game::Field> &&
                (line.contains("EVERY") || name == "Cash")) {
                const QString file = line.section(' ', 0, 0) + QString::number(++files);
                const QString figures = line.section(' ', 1).replace("EVERY", name);
                ui::writeGameFile(folder.filePath(file), test::newGame(figures.toStdString()));
            }
        };
        test::eachMember(write);
    }
}

/// Qt has nothing to complain about, but that there is no screen.
void hear(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& message) {
    if (!message.startsWith("This plugin does not support")) {
        std::cerr << message.toStdString() << '\n';
        _exit(EXIT_FAILURE);
    }
}

TEST(Restless, PlaysWholeGamesAndFindsNoFault) {
    const QTemporaryDir folder;
    const Occasions occasions;
    layOutGames(folder.path());
    QApplication::setDoubleClickInterval(0);
    const bool one = qEnvironmentVariableIsSet("ZHENBAO_SEED");
    const int first = qEnvironmentVariableIntValue("ZHENBAO_SEED");
    const int games = one ? 1 : qEnvironmentVariable("ZHENBAO_GAMES", "200").toInt();
    const int cores = std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
    std::map<pid_t, int> playing;
    for (int seed = first; seed < first + games + cores; ++seed) {
        if (seed >= first + cores) {
            int status = 0;
            const pid_t ended = waitpid(-1, &status, 0);
            EXPECT_EQ(status, 0) << "game " << playing[ended];
        }
        const pid_t child = seed < first + games ? fork() : -1;
        if (child == 0) {
            alarm(300);  // a game that hangs is a fault
            qInstallMessageHandler(hear);
            Player(seed, folder.path(), occasions);
        }
        playing[child] = seed;
    }
    for (qsizetype row = 0; row < occasions.rows.size() && games >= 200; ++row) {
        EXPECT_GT(occasions.counts[row], 0) << occasions.rows.at(row).toStdString();
    }
}

}  // namespace
