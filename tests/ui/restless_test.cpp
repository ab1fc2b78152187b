// Whole games in the real windows, played by random key presses and clicks. Each game runs in a
// process of its own, which may end as the program does. The toolkit's threads do not survive a
// fork, so nothing may be painted before it.
//
//     ZHENBAO_SEED=7 plays only game 7 and prints all that happens if it fails;
//     ZHENBAO_GAMES=20000 plays more.

#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <iostream>
#include <thread>

#include "game_file.h"
#include "player.h"
#include "qt_desktop.h"

namespace {

/// What has to come up in 200 games.
const QString occasions =
    "frmHelp|a Trillionaire!|Will You Pay?|are Bankrupt.|you have sunk.|Error Opening|Error Saving|"
    "Over Payment|waiting|a link|the program ends|the window closed|still playing";

/// Games shortly before something happens.
const QString turns =
    "Debt=940000000000|Debt=980000000000|Bank=999999000000|Bank=77000|Cash=999999|Cash=9999999|"
    "Status=50|Status=2";

const QRegularExpression usualControls(
    "^cmd(Leave|Visit|Money|Transfer|Repair|Depart|Start|Retire|Cannon|Ship|OK)$|HongKong|"
    "Withdraw");
const QString keysInPort = "Ctrl+N Ctrl+S Ctrl+L Ctrl+L Ctrl+L Alt+F Alt+O Alt+H";
const QString keysInDialogs = "9 Ctrl+V Return Return Esc close";
const QString keysInMenus = "Down Down Down Up End End Return Return Return Return Esc Esc";
const QString anyKeys =
    "close Ctrl+N Ctrl+L Ctrl+S F1 Alt+F Alt+O Alt+H Ctrl+A Ctrl+Z F4 F10 Alt+Down Alt+Up Esc "
    "Return Enter Tab Backtab Space Left Right Up Down PgUp PgDown Home End Del Backspace 7 0 X & "
    "- $ Ctrl+V Ctrl+V Ctrl+V";

class Player final : public ui::QtDesktop {
public:
    Player(int seed, const QDir& folder)
        : m_seed(seed),
          m_file(folder.filePath("game" + QString::number(seed))),
          m_log(folder.filePath(QString::number(getpid())).toStdString()) {}
    [[noreturn]] void play() {
        m_mainForm.show();
        const test::Hand hand([this](QWidget* modal) { step(modal); });
        QApplication::exec();
        end("the window closed");
    }

    ui::Answer show(QWidget* owner, const ui::Box& box) override {
        log(box.title + ", " + box.text);
        expect(m_mainForm.findChild<QMessageBox*>() == nullptr, "two boxes at a time");
        return QtDesktop::show(owner, box);
    }
    QString chooseFileToLoad(QWidget* owner) override {
        if (dice(2) == 1) {
            const QString figures = "MaxHold=460 Hold=50 SOpium=50 WOpium=10000 Payoff=11 ";
            const auto state = test::newGame((figures + any(turns.split('|'))).toStdString());
            ui::writeGameFile(m_file, state);
        }
        return chooseFileToSave(owner);
    }
    QString chooseFileToSave(QWidget* /*owner*/) override {
        return any(QStringList{"", "/", m_file, m_file, m_file, m_file});
    }
    void openLink(const QUrl& /*link*/) override { log("a link"); }
    void wait(game::Milliseconds duration) override {
        if (dice(100) <= (duration == game::pace::alertFlash ? 50 : m_nonsense / 4 + 1)) {
            const QScopedValueRollback waiting(m_waiting, true);
            QCoreApplication::processEvents();
        }
    }
    [[noreturn]] void endProgram() override { end("the program ends"); }

private:
    void step(QWidget* modal) {
        m_top = modal != nullptr ? modal : &m_mainForm;
        m_title = m_top->objectName() + ' ' + m_top->windowTitle();
        if (!m_mainForm.isVisible()) {
            return;  // the program is about to end
        }
        const bool inMenu = QApplication::activePopupWidget() != nullptr ||
                            qobject_cast<QMenuBar*>(m_top->focusWidget()) != nullptr;
        // The loop of a dialog that has closed may still be busy with its last events.
        const bool atRest =
            modal == nullptr && !m_waiting && QThread::currentThread()->loopLevel() == 1;
        if (!inMenu && (atRest || m_waiting || modal != nullptr)) {
            look(atRest);
        }
        if (++m_step > m_steps) {
            end("still playing");
        }
        if (!m_top->isActiveWindow()) {
            m_top->activateWindow();
        } else if (inMenu) {
            pressAny(keysInMenus);
        } else if (const bool nonsense = dice(100) <= m_nonsense;
                   nonsense || !m_waiting || dice(8) == 1) {
            act(nonsense);
        }
    }
    void look(bool atRest) {
        const QWidget* focus = m_top->focusWidget();
        expect(focus != nullptr ? focus->isEnabled()
                                : usableControls().isEmpty() || !m_top->isActiveWindow(),
               "no focus");
        expect(!atRest || !m_now.gblnGameOver, "no new game after the last");
        if (m_top->objectName() == "frmPirate") {
            expect(test::textOf(*test::find<QWidget>(*m_top, "txtCannons")) ==
                       ui::plain(m_now.gcurCannons),
                   "a wrong number of cannons");
        } else if (atRest && m_now.gblnActiveGame) {
            const std::string wrong = test::wrongDisplays(m_mainForm, m_now);
            expect(wrong.empty(), QString::fromStdString(wrong));
            expect(!game::millionaireNoticeDue(m_now), "a fortune without a notice");
        }
    }
    /// What the keyboard comes to in the window on top.
    QList<QWidget*> usableControls() const {
        QList<QWidget*> all = test::controlsOf(*m_top);
        all.removeIf([](const QWidget* control) {
            return !control->isEnabled() || ((control->focusPolicy() & Qt::TabFocus) == 0 &&
                                             !control->inherits("QAbstractButton"));
        });
        return all;
    }
    /// Nonsense also uses what is disabled or hidden.
    void act(bool nonsense) {
        QGuiApplication::clipboard()->setText(
            any(QStringList{"0", "7", "99999999999999999999", "-5", "x", "$1,2 3", "3.5", "\"",
                            "Smith & Sons", QString(3'000, '9'), "\n\r\t", "\u0663\u4E2D"}));
        QList<QWidget*> all = nonsense ? m_top->findChildren<QWidget*>() : usableControls();
        for (QWidget* control : usableControls()) {
            all << QList<QWidget*>(control->objectName().contains(usualControls) ? 4 : 0, control);
        }
        if (!all.isEmpty() && dice(5) > (nonsense ? 3 : 1)) {
            use(*any(all));
        } else {
            pressAny(nonsense ? anyKeys : m_top == &m_mainForm ? keysInPort : keysInDialogs);
        }
    }
    /// Uses a control by mouse or by keyboard, as controls of its kind are used.
    void use(QWidget& control) {
        log("use " + control.objectName());
        const bool byMouse = dice(2) == 1 && control.isVisible();
        if (byMouse) {
            const QPoint place(std::min(control.width() / 2, 12), control.height() / 2);
            QTest::mouseClick(&control, Qt::LeftButton, {}, place);
        } else {
            control.setFocus(Qt::TabFocusReason);
        }
        if (control.inherits("QComboBox")) {
            pressAny("Alt+Down,Down,Return Alt+Down,End,Return 9 9,9");
        } else if (!byMouse) {
            pressAny("Space Space Return End");
        }
    }
    /// Presses one of these keys, or of several in a row.
    void pressAny(const QString& ways) {
        const QString way = any(ways.split(' '));
        log(way);
        way == "close" ? (void)m_top->close() : test::press(*m_top, way.split(','));
    }
    int dice(int sides) { return game::roll(m_dice, sides); }
    template <class List>
    typename List::value_type any(const List& list) {
        return list.at(dice(static_cast<int>(list.size())) - 1);
    }

    void expect(bool fact, const QString& otherwise) {
        if (!fact) {
            end("FAULT: " + otherwise, EXIT_FAILURE);
        }
    }
    void log(const QString& what) {
        m_log << m_step << (m_waiting ? " waiting, " : " ") << m_title.toStdString() << ": "
              << what.toStdString() << '\n'
              << std::flush;
    }
    /// Leaves this process whatever loops are running.
    [[noreturn]] void end(const QString& how, int status = EXIT_SUCCESS) {
        log(how + " (ZHENBAO_SEED=" + QString::number(m_seed) + ')');
        _exit(status);
    }

    int m_seed;
    QString m_file;
    std::ofstream m_log;
    game::Generator m_dice{static_cast<std::uint64_t>(m_seed) * 2 + 1};  ///< what the player does
    game::Generator m_chance{static_cast<std::uint64_t>(m_seed) * 2};    ///< what the game does
    int m_nonsense = QList{2, 5, 15, 40}.at(dice(4) - 1);                ///< of a hundred acts
    int m_steps = 100 + dice(500);
    int m_step = 0;
    ui::frmMain m_mainForm{*this, m_chance};
    const game::GameState& m_now = m_mainForm.state();
    QWidget* m_top = &m_mainForm;  ///< the window on top
    QString m_title;               ///< of it
    bool m_waiting = false;
};

void failOnComplaint(QtMsgType /*type*/, const QMessageLogContext& /*context*/,
                     const QString& message) {
    if (!message.startsWith("This plugin does not support")) {
        std::cerr << message.toStdString() << '\n';
        _exit(EXIT_FAILURE);
    }
}

TEST(Restless, PlaysWholeGamesAndFindsNoFault) {
#ifdef __SANITIZE_ADDRESS__
    const char* usual = "60";
#else
    const char* usual = "200";
#endif
    const int only = qEnvironmentVariableIntValue("ZHENBAO_SEED");
    const int count = only > 0 ? 1 : qEnvironmentVariable("ZHENBAO_GAMES", usual).toInt();
    const int cores = std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
    const QTemporaryDir folder;
    QStringList missing = occasions.split('|');
    QApplication::setDoubleClickInterval(0);
    for (int game = 0; game < count + cores; ++game) {  // as many at a time as there are cores
        if (game >= cores) {
            int status = 0;
            QFile file(folder.filePath(QString::number(waitpid(-1, &status, 0))));
            ASSERT_TRUE(file.open(QIODevice::ReadOnly));
            const QString log = QString::fromUtf8(file.readAll());
            EXPECT_EQ(status, 0) << log.right(only > 0 ? -1 : 2'000).toStdString();
            missing.removeIf([&log](const QString& occasion) { return log.contains(occasion); });
        }
        if (game < count && fork() == 0) {
            alarm(300);  // a game that hangs is a fault
            qInstallMessageHandler(failOnComplaint);
            Player(only > 0 ? only : game + 1, folder.path()).play();
        }
    }
    EXPECT_TRUE(count < 200 || missing.isEmpty()) << missing.join('|').toStdString();
}

}  // namespace
