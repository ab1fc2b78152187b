// Whole games in the real windows, played by random key presses and clicks. Each game runs in a
// process of its own, which may end as the program does. The toolkit's threads do not survive a
// fork, so nothing may be painted before it: tests with such a name run first.
//
//     ZHENBAO_SEED=7 plays only game 7; ZHENBAO_GAMES=20000 plays more.

#include <unistd.h>

#include <iostream>

#include "game_file.h"
#include "stage.h"

namespace {

constexpr int fault = 100;  ///< exit status of a game; otherwise the months that it lasted

/// Games shortly before something happens.
const QString turns =
    "Debt=940000000000|Debt=980000000000|Bank=999999000000|Bank=77000|Cash=999999|Cash=9999999|"
    "Status=50|Status=2";

const QRegularExpression usualControls(
    "^cmd(Leave|Visit|Money|Transfer|Repair|Depart|Start|Retire|Cannon|Ship|OK)$|HongKong");
const QString keysInPort = "Ctrl+N Ctrl+S Ctrl+L Ctrl+L Ctrl+L Alt+F Alt+O Alt+H";
const QString keysInMenus = "Down Down Down Up End End Return Return Return Return Esc Esc";
const QString keysInDialogs = "9 Return Return Esc";
const QString anyKeys =
    "Ctrl+N Ctrl+L Ctrl+S F1 Alt+F Alt+O Alt+H Ctrl+A Ctrl+Z F4 F10 Alt+Down Alt+Up Esc Return "
    "Enter Tab Backtab Space Left Right Up Down PgUp PgDown Home End Del Backspace 7 0 X & - $ "
    "Ctrl+V Ctrl+V";
const QString pasted =
    "0|7|99999999999999999999|-5|x|3.5|$1,2 3|\"|a & b|\r\t|\u0663\u4E2D|" + QString(3'000, '9');

class Player final : public test::Stage {
public:
    Player(int seed, game::Random& chance)
        : Stage("nothing |", {}, &chance), m_dice(static_cast<std::uint64_t>(seed) * 2 + 1) {}

    [[noreturn]] void play() {
        alarm(300);  // a game that hangs is a fault
        while (m_mainForm.isVisible()) {
            playFor(30);
        }
        endProgram();
    }

private:
    [[noreturn]] void endProgram() override {
        const int months = std::clamp(game::monthsElapsed(m_game.gdtmDate), 0, fault - 1);
        end(testing::Test::HasFailure() ? fault : months);
    }
    [[noreturn]] void end(int status) {
        m_folder.remove();
        _exit(status);
    }
    QString chooseFileToLoad(QWidget* owner) override {
        if (dice(2) == 1) {
            const QString figures = "MaxHold=460 Hold=50 SOpium=50 WOpium=10000 Payoff=11 ";
            const auto game = test::newGame((figures + any(turns.split('|'))).toStdString());
            ui::writeGameFile(m_folder.filePath("game"), game);
        }
        return chooseFileToSave(owner);
    }
    QString chooseFileToSave(QWidget* /*owner*/) override {
        const QString file = m_folder.filePath("game");
        return any(QStringList{"", "/", file, file, file, file});
    }
    void wait(game::Milliseconds duration) override {
        if (dice(100) <= (duration == game::pace::alertFlash ? 50 : m_nonsense / 4 + 1)) {
            const QScopedValueRollback waiting(m_waiting, true);
            QCoreApplication::processEvents();
        }
    }

    QString nextAct(QWidget& top) override {
        if (++m_step > m_steps) {
            endProgram();
        }
        const bool inMenu = QApplication::activePopupWidget() != nullptr ||
                            qobject_cast<QMenuBar*>(top.focusWidget()) != nullptr;
        // The loop of a dialog that has closed may still be busy with its last events.
        const bool atRest =
            !top.isModal() && !m_waiting && QThread::currentThread()->loopLevel() == 0;
        if (!inMenu && (atRest || m_waiting || top.isModal())) {
            look(top, atRest);
        }
        const bool nonsense = dice(100) <= m_nonsense;
        const QString act = m_waiting && !nonsense && dice(8) > 1 ? ""
                            : inMenu
                                ? "press " + top.objectName() + ' ' + any(keysInMenus.split(' '))
                                : actIn(top, nonsense);
        std::cerr << std::exchange(m_results, {}).join('\n').toStdString() << '\n'
                  << m_step << (m_waiting ? " waiting, " : " ") << top.objectName().toStdString()
                  << ": " << act.toStdString() << '\n';
        return act;
    }
    void look(const QWidget& top, bool atRest) {
        const QWidget* focus = top.focusWidget();
        expect(focus != nullptr ? focus->isEnabled() : usableControls(top).isEmpty(), "no focus");
        expect(!atRest || !m_game.gblnGameOver, "no new game after the last");
        if (top.objectName() == "frmPirate") {
            expect(test::textOf(*test::find<QWidget>(top, "txtCannons")) ==
                       ui::plain(m_game.gcurCannons),
                   "a wrong number of cannons");
        } else if (atRest && m_game.gblnActiveGame) {
            const std::string wrong = test::wrongDisplays(m_mainForm, m_game);
            expect(wrong.empty(), QString::fromStdString(wrong));
            expect(!game::millionaireNoticeDue(m_game), "a fortune without a notice");
        }
    }
    void expect(bool fact, const QString& otherwise) {
        if (!fact) {
            std::cerr << otherwise.toStdString() << '\n';
            end(fault);
        }
    }

    /// What the keyboard comes to in a window.
    static QStringList usableControls(const QWidget& window) {
        QStringList names;
        for (const auto* control : test::controlsOf(window)) {
            const bool reached = (control->focusPolicy() & Qt::TabFocus) != 0 ||
                                 control->inherits("QAbstractButton");
            names << (control->isEnabled() && reached ? control->objectName() : "");
        }
        names.removeAll("");
        return names;
    }
    /// Nonsense also uses what is disabled or hidden.
    QString actIn(const QWidget& top, bool nonsense) {
        QStringList controls = usableControls(top);
        controls += controls.filter(usualControls) + controls.filter(usualControls) +
                    controls.filter(usualControls);
        if (nonsense) {
            for (const auto* control :
                 top.findChildren<QWidget*>(QRegularExpression("^[a-z]{3}[A-Z]"))) {
                controls << control->objectName();
            }
        }
        if (controls.isEmpty() || dice(5) <= (nonsense ? 3 : 1)) {
            const QString keys = nonsense              ? anyKeys
                                 : &top == &m_mainForm ? keysInPort
                                                       : keysInDialogs;
            return dice(15) == 1 && (nonsense || &top != &m_mainForm)
                       ? "close"
                       : "press " + top.objectName() + ' ' + any(keys.split(' '));
        }
        const QString name = any(controls);
        const auto* control = test::find<QWidget>(top, name);
        if (dice(2) == 1 && control->isVisible()) {
            return "mouse " + name;
        }
        if (control->inherits("QComboBox") || control->inherits("QLineEdit")) {
            QGuiApplication::clipboard()->setText(any(pasted.split('|')));
            return "press " + name + ' ' +
                   any(QStringList{"Alt+Down Down Return", "Alt+Down End Return", "9", "9 9",
                                   "Ctrl+V"});
        }
        return "press " + name + ' ' + any(QStringList{"Space", "Space", "Return", "End"});
    }
    int dice(int sides) { return game::roll(m_dice, sides); }
    template <class List>
    typename List::value_type any(const List& list) {
        return list.at(dice(static_cast<int>(list.size())) - 1);
    }

    game::Generator m_dice;                                ///< what the player does
    int m_nonsense = QList{2, 5, 15, 40}.at(dice(4) - 1);  ///< of a hundred acts
    int m_steps = 100 + dice(500);
    int m_step = 0;
    bool m_waiting = false;
};

[[noreturn]] void play(int seed) {
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& complaint) {
        if (!complaint.startsWith("This plugin does not support")) {
            std::cerr << complaint.toStdString() << '\n';
            _exit(fault);
        }
    });
    QApplication::setDoubleClickInterval(0);
    game::Generator chance(static_cast<std::uint64_t>(seed) * 2);
    Player(seed, chance).play();
}

TEST(RestlessDeathTest, PlaysWholeGamesAndFindsNoFault) {
#ifdef __SANITIZE_ADDRESS__
    const char* usual = "60";
#else
    const char* usual = "200";
#endif
    const int only = qEnvironmentVariableIntValue("ZHENBAO_SEED");
    const int last = only > 0 ? only : qEnvironmentVariable("ZHENBAO_GAMES", usual).toInt();
    int months = 0;
    for (int seed = std::max(only, 1); seed <= last; ++seed) {
        const auto endedWell = [&months](int status) {
            months += WEXITSTATUS(status);
            return WIFEXITED(status) && WEXITSTATUS(status) < fault;
        };
        EXPECT_EXIT(play(seed), endedWell, "") << "ZHENBAO_SEED=" << seed;
    }
    EXPECT_TRUE(months > 2 * last || only > 0) << "only " << months << " months";
}

}  // namespace
