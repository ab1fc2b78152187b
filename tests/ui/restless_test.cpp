// Whole games in the real windows, played by random key presses and clicks. Each game runs in a
// process of its own, which may end as the program does. The toolkit's threads do not survive a
// fork, so nothing may be painted before it.
//
//     ZHENBAO_SEED=7 plays game 7 and logs what happens; ZHENBAO_GAMES=20000 plays more.

#include <sys/wait.h>
#include <unistd.h>

#include <iostream>
#include <thread>

#include "game_file.h"
#include "player.h"
#include "qt_desktop.h"

namespace {

using game::GameState;
using ui::fromRules, ui::plain;

/// What has to come up in 200 games.
const QString occasions =
    "frmAbout|frmHelp|frmNew|frmTransfer|frmVisit|a Millionaire!|a Trillionaire!|Kwan Tat's "
    "Pirates|"
    "Will You Pay?|are Bankrupt.|you have sunk.|some booty|Not Enough|blown off course|Damage from|"
    "New Cannon|New Ship|Error Opening|Error "
    "Saving|Bought|Sold|Deposited|Withdrew|Borrowed|Repayed|"
    "Transfered|Repaired|Game Loaded|Game Saved|an absurd game|a wait|at rest|a link|Over Payment|"
    "the program ends|the window closed|still playing";

/// Games to load: shortly before something happens, and such as only a broken file holds, with
/// EVERY figure of the record in turn.
const QString games =
    "turn Debt=940000000000|turn Debt=980000000000|turn Bank=999999000000|turn Bank=77000|"
    "turn Cash=999999|turn Cash=9999999 Status=50|turn Status=2|absurd Date=0001-01-01|"
    "absurd Date=0100-01-31|absurd Date=9999-11-30|absurd Date=9999-12-31|absurd At= Firm=|"
    "absurd At=manila|absurd At=Atlantis|absurd At=<h1>&Macao</h1>|absurd Firm= At=Manila|"
    "absurd Firm=Smith&Sons|absurd Firm=<b>x</b><img/src=y>|absurd Firm=\u202Eleft\u2067|"
    "absurd Firm=two\u2028lines|absurd EVERY=0|absurd EVERY=-5|absurd EVERY=1000|"
    "absurd EVERY=1000000000|absurd EVERY=100000000000000|absurd EVERY=0.0001|"
    "absurd EVERY=922337203685477.5807|absurd EVERY=-922337203685477.5808";

void writeGames(const QDir& folder) {
    int files = 0;
    for (const QString& game : games.split('|')) {
        const QString kind = game.section(' ', 0, 0);
        QString figures = game.section(' ', 1);
        figures += kind == "turn" ? " MaxHold=460 Hold=50 SOpium=50 WOpium=10000 Payoff=11" : "";
        const bool every = figures.contains("EVERY");
        test::eachMember([&](std::string_view name, auto member) {
            if (every ? std::is_same_v<decltype(member), game::Field> : name == "Cash") {
                GameState state = test::newGame();
                for (const QString& figure : figures.split(' ')) {
                    const QString text = QString(figure).replace("EVERY", fromRules(name));
                    EXPECT_TRUE(test::setFigure(state, text.toStdString())) << text.toStdString();
                }
                ui::writeGameFile(folder.filePath(kind + QString::number(++files)), state);
            }
        });
    }
}

QString complaint;  ///< of the toolkit
void hear(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& message) {
    if (!message.startsWith("This plugin does not support")) {
        complaint = message;
    }
}

class Player final : public QObject, public ui::QtDesktop {
public:
    /// Plays with the files of `folder` and leaves there what came up, in seenSEED.
    Player(int seed, const QDir& folder) : m_seed(seed), m_folder(folder) {
        const auto* report = test::find<QPlainTextEdit>(m_mainForm, "txtLog")->document();
        connect(report, &QTextDocument::contentsChange, this, [=, this](int at, int, int added) {
            read(report->toPlainText().mid(at, added).trimmed().mid(15));
        });
    }
    void play() {
        m_mainForm.show();
        wake();
        QApplication::exec();
        end("the window closed");
    }

    ui::Answer show(QWidget* owner, const ui::Box& box) override {
        m_faults << (m_mainForm.findChild<QMessageBox*>() ? "two questions at a time" : "")
                 << (std::exchange(m_question, box.text) == box.text ? "a question twice" : "");
        m_box = box;
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
    void openLink(const QUrl& /*link*/) override { note("a link"); }
    void wait(game::Milliseconds duration) override {
        if (dice(100) <= (duration == game::pace::alertFlash ? 50 : m_nonsense / 4 + 1)) {
            const QScopedValueRollback waiting(m_waiting, true);
            QCoreApplication::processEvents();
        }
    }
    [[noreturn]] void endProgram() override { end("the program ends"); }

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
        wake();  // first, since an act may open a window
        QWidget* modal = QApplication::activeModalWidget();
        m_top = modal != nullptr ? modal : &m_mainForm;
        m_name = m_top->objectName();
        if (!m_mainForm.isVisible()) {
            return;  // the program is about to end
        }
        const bool atRest = modal == nullptr && !m_waiting && thread()->loopLevel() == 1;
        const bool inMenu = QApplication::activePopupWidget() != nullptr ||
                            qobject_cast<QMenuBar*>(m_top->focusWidget()) != nullptr;
        // The loop of a dialog that has closed may still be busy with its last events.
        if (const auto* box = qobject_cast<QMessageBox*>(m_top)) {
            m_faults << wrongOf(*box);
        } else if (!inMenu && (atRest || m_waiting || modal != nullptr)) {
            look(atRest);
        }
        m_faults.removeAll("");
        if (!m_faults.isEmpty() || !complaint.isEmpty() || ++m_step > m_steps) {
            end("still playing");
        }
        if (!m_top->isActiveWindow()) {
            m_top->activateWindow();
        } else if (inMenu) {
            pressAny("Down Down Down Up End End Return Return Return Return Esc Esc");
        } else if (const bool nonsense = dice(100) <= m_nonsense;
                   nonsense || !m_waiting || dice(8) == 1) {
            act(nonsense);
        }
    }

    // --- Looking.
    /// How a box differs from what was asked for.
    QString wrongOf(const QMessageBox& box) const {
        static const QList<QMessageBox::Icon> icons{QMessageBox::Information, QMessageBox::Question,
                                                    QMessageBox::Warning, QMessageBox::Critical};
        static const QList<QMessageBox::StandardButton> buttons{
            QMessageBox::Ok, QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel};
        const auto button = [](ui::Answer answer) { return buttons.at(qsizetype(answer)); };
        const auto offered = [&](ui::Answer answer) { return box.button(button(answer)); };
        note(m_box.title + ", " + m_box.text);
        const bool right = box.text() == m_box.text && box.windowTitle() == m_box.title &&
                           box.icon() == icons.at(qsizetype(m_box.icon)) &&
                           box.textFormat() == Qt::PlainText &&
                           box.buttons().size() == qsizetype(m_box.buttons.size()) &&
                           std::ranges::all_of(m_box.buttons, offered) &&
                           box.button(button(m_box.byDefault)) == box.defaultButton() &&
                           box.button(button(m_box.onEscape)) == box.escapeButton();
        return right ? "" : "not the box that was asked for: " + m_box.text;
    }
    void look(bool atRest) {
        m_question.clear();
        note(m_top != &m_mainForm ? m_name + ' ' + m_top->windowTitle()
             : m_waiting          ? "a wait"
                                  : "at rest");
        const QWidget* focus = m_top->focusWidget();
        expect(focus != nullptr ? focus->isEnabled()
                                : usableControls().isEmpty() || !m_top->isActiveWindow(),
               "no focus");
        expect(!atRest || !m_now.gblnGameOver, "no new game after the last");
        const bool atSea = m_waiting || m_name == "frmPirate";
        for (const QAction* menu : m_mainForm.menuBar()->actions()) {
            expect(menu->isEnabled() ? !atSea : !atRest, "menus open at sea, or closed in port");
        }
        if (!m_plausible || !m_now.gblnActiveGame) {
            return;
        }
        for (const char* order : {"cmdBuy", "cmdSell", "cmdLeave"}) {
            expect(test::find<QWidget>(*m_mainForm.centralWidget(), order)->isEnabled() ? !atSea
                                                                                        : !atRest,
                   "orders taken at sea, or not in port");
        }
        if (m_name == "frmPirate") {
            lookAtBattle();
        } else if (atRest) {
            m_faults << QString::fromStdString(test::wrongDisplays(m_mainForm, m_now));
            expect(!game::millionaireNoticeDue(m_now), "a fortune without a notice");
            m_before.gblnGameSaved = m_now.gblnGameSaved;
            m_before.gblnMillionaire = m_now.gblnMillionaire;
            expect(std::exchange(m_news, false) || m_before == m_now, "a change without an entry");
            m_before = m_now;
        }
    }
    void lookAtBattle() {
        const auto shows = [this](const QWidget& window, const char* name, const QString& wanted) {
            const QString shown = test::textOf(*test::find<QWidget>(window, name));
            expect(shown == wanted, name + (" shows " + shown) + ", not " + wanted);
        };
        const auto ships = test::find<QWidget>(*m_top, "picShips")->findChildren<QLabel*>();
        shows(*m_top, "txtEnemy",
              QString::number(std::ranges::count_if(ships, &QLabel::isVisible)));
        shows(*m_top, "txtStatus", plain(m_now.gcurStatus) + '%');
        shows(*m_top, "txtCannons", plain(m_now.gcurCannons));
        shows(m_mainForm, "prgStatus", plain(m_now.gcurStatus));
        const QString report = test::textOf(*test::find<QWidget>(*m_top, "txtReport"));
        expect(test::find<QWidget>(*m_top, "cmdRun")->isEnabled() ==
                   (report == "Zhenbao, what shall we do?"),
               "orders at a wrong time");
    }
    /// A part of the report that is new, without its date: an entry, or a dot.
    void read(const QString& entry) {
        if (entry.isEmpty()) {
            return;
        }
        m_news = true;
        m_plausible = entry.startsWith("Game Loaded") ? !m_file.contains("absurd") : m_plausible;
        note(m_plausible ? entry : "an absurd game");
        if (entry.startsWith("Game ")) {
            const std::string changes = test::changes(ui::readGameFile(m_file), m_now);
            expect(changes.starts_with(" Active=yes Saved=yes"),
                   "the file differs:" + fromRules(changes));
        }
    }

    // --- Acting.
    /// What the keyboard comes to in the window on top.
    QList<QWidget*> usableControls() const {
        QList<QWidget*> all = test::controlsOf(*m_top);
        all.removeIf([](const QWidget* control) {
            return !control->isEnabled() || ((control->focusPolicy() & Qt::TabFocus) == 0 &&
                                             !control->inherits("QAbstractButton"));
        });
        return all;
    }
    void act(bool nonsense) {
        static const QRegularExpression usual(
            "^cmd(Leave|Visit|Money|Transfer|Repair|Depart|Start|Retire|Cannon|Ship|OK)$|HongKong|"
            "Withdraw");
        QGuiApplication::clipboard()->setText(
            any(QStringList{"0", "7", "99999999999999999999", "-5", "x", "$1,2 3", "3.5", "\"",
                            "Smith & Sons", QString(3'000, '9'), "\n\r\t", "\u0663\u4E2D"}));
        // Nonsense also uses what is disabled or hidden.
        QList<QWidget*> all = nonsense ? m_top->findChildren<QWidget*>() : usableControls();
        for (QWidget* control : usableControls()) {
            all << QList<QWidget*>(control->objectName().contains(usual) ? 4 : 0, control);
        }
        const bool home = m_top == &m_mainForm;
        if (home && !m_now.gblnActiveGame && !nonsense) {
            pressAny("Ctrl+N Ctrl+L");
        } else if (!all.isEmpty() && dice(5) > (nonsense ? 3 : 1)) {
            use(*any(all));
        } else if (nonsense) {
            pressAny(
                "close Ctrl+N Ctrl+L Ctrl+S F1 Alt+F Alt+O Alt+H Ctrl+A Ctrl+Z F4 F10 Alt+Down "
                "Alt+Up Esc Return Enter Tab Backtab Space Left Right Up Down PgUp PgDown Home End "
                "Del Backspace 7 0 X & - $ Ctrl+V Ctrl+V Ctrl+V");
        } else {
            pressAny(home ? "Ctrl+N Ctrl+S Ctrl+L Ctrl+L Ctrl+L Alt+F Alt+O Alt+H"
                          : "9 Ctrl+V Return Return Esc close");
        }
    }
    /// Uses a control by mouse or by keyboard, as controls of its kind are used.
    void use(QWidget& control) {
        log("use " + control.objectName());
        const bool usable = usableControls().contains(&control);
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
    /// Presses one of these keys, or of several in a row.
    void pressAny(const QString& ways) {
        const QString way = any(ways.split(' '));
        log(m_name + ", " + way);
        for (const QString& key : way.split(',')) {
            QWidget* popup = QApplication::activePopupWidget();
            QWidget* focus = popup != nullptr ? popup : QApplication::focusWidget();
            if (key == "close") {
                m_top->close();
            } else {
                test::press(focus != nullptr ? focus : m_top, {key});
            }
        }
    }
    int dice(int sides) { return game::roll(m_dice, sides); }
    template <class List>
    typename List::value_type any(const List& list) {
        return list.at(dice(static_cast<int>(list.size())) - 1);
    }
    QString ownFile() const {
        return m_folder.filePath((m_plausible ? "own" : "own absurd") + QString::number(m_seed));
    }

    // --- Reporting.
    void expect(bool fact, const QString& otherwise) { m_faults << (fact ? "" : otherwise); }
    void note(const QString& what) const {
        m_seen.insert(what);
        log(what);
    }
    void log(const QString& what) const {
        if (qEnvironmentVariableIsSet("ZHENBAO_SEED")) {
            std::cerr << m_step << (m_waiting ? " (waiting) " : " ") << what.toStdString() << '\n';
        }
    }
    /// Leaves this process whatever loops are running.
    [[noreturn]] void end(const QString& how) {
        note(how);
        QFile seen(m_folder.filePath("seen" + QString::number(m_seed)));
        const bool written =
            seen.open(QIODevice::WriteOnly) && seen.write(m_seen.values().join('\n').toUtf8()) > 0;
        m_faults << complaint << (written ? "" : "nothing seen");
        m_faults.removeAll("");
        for (const QString& fault : m_faults) {
            std::cerr << "game " << m_seed << ", step " << m_step << ", " << m_name.toStdString()
                      << ": " << fault.toStdString() << "\n    ZHENBAO_SEED=" << m_seed
                      << " ui_tests --gtest_filter=Restless.* logs what happens\n";
        }
        seen.close();
        _exit(m_faults.isEmpty() ? EXIT_SUCCESS : EXIT_FAILURE);
    }

    int m_seed;
    QDir m_folder;
    game::Generator m_dice{static_cast<std::uint64_t>(m_seed) * 2 + 1};  ///< what the player does
    game::Generator m_chance{static_cast<std::uint64_t>(m_seed) * 2};    ///< what the game does
    ui::frmMain m_mainForm{*this, m_chance};
    const GameState& m_now = m_mainForm.state();
    GameState m_before;            ///< as of the last rest in port
    QWidget* m_top = &m_mainForm;  ///< the window on top
    QString m_name;                ///< of it
    ui::Box m_box;                 ///< asked for last
    QString m_question;            ///< its text, until something else was seen
    QString m_file;                ///< chosen last
    mutable QSet<QString> m_seen;
    QStringList m_faults;
    bool m_news = false;      ///< some since the last rest
    bool m_plausible = true;  ///< the game is none that only a broken file leads to
    bool m_waiting = false;
    int m_nonsense = QList{2, 5, 15, 40}.at(dice(4) - 1);  ///< of a hundred acts
    int m_steps = 100 + dice(500);
    int m_step = 0;
};

/// Runs `play` for each seed in a process of its own, as many at a time as there are cores, and
/// returns the seeds that failed.
QList<int> failuresOf(int first, int count, const std::function<void(int seed)>& play) {
    const int cores = std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
    QMap<pid_t, int> playing;
    QList<int> failures;
    for (int seed = first; seed < first + count || !playing.isEmpty();) {
        if (seed < first + count && playing.size() < cores) {
            const pid_t child = fork();
            if (child == 0) {
                alarm(300);  // a game that hangs is a fault
                play(seed);
                _exit(EXIT_SUCCESS);
            }
            playing[child] = seed++;
        } else {
            int status = 0;
            const int ended = playing.take(waitpid(-1, &status, 0));
            failures += status != 0 ? QList{ended} : QList<int>();
        }
    }
    return failures;
}

TEST(Restless, PlaysWholeGamesAndFindsNoFault) {
    const QTemporaryDir folder;
    writeGames(folder.path());
    QApplication::setDoubleClickInterval(0);
    const bool one = qEnvironmentVariableIsSet("ZHENBAO_SEED");
#ifdef __SANITIZE_ADDRESS__
    const char* usual = "60";
#else
    const char* usual = "200";
#endif
    const int count = one ? 1 : qEnvironmentVariable("ZHENBAO_GAMES", usual).toInt();
    const QList<int> failures =
        failuresOf(qEnvironmentVariableIntValue("ZHENBAO_SEED"), count, [&folder](int seed) {
            qInstallMessageHandler(hear);
            Player(seed, folder.path()).play();
        });
    EXPECT_EQ(failures, QList<int>()) << "games";
    QString seen;
    for (const QFileInfo& file : QDir(folder.path()).entryInfoList({"seen*"})) {
        QFile opened(file.filePath());
        EXPECT_TRUE(opened.open(QIODevice::ReadOnly));
        seen += QString::fromUtf8(opened.readAll()) + '\n';
    }
    for (const QString& occasion : count >= 200 ? occasions.split('|') : QStringList()) {
        EXPECT_TRUE(seen.contains(occasion)) << occasion.toStdString() << " never comes up";
    }
}

}  // namespace
