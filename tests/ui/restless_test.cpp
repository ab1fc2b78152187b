// Whole games in the real windows, played by somebody who never rests and presses anything, every
// second game without a mouse. A game is a run of the program in a process of its own, which may
// end as the real one does.
//
//     ZHENBAO_SEED=7 tells the story of game 7; ZHENBAO_GAMES=20000 plays more of them.

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QtTest>
#include <QtWidgets>
#include <iostream>
#include <thread>

#include "absurd_games.h"
#include "amount.h"
#include "amount_field.h"
#include "frmMain.h"
#include "game_file.h"
#include "qt_desktop.h"
#include "saved_game.h"
#include "standing.h"
#include "text.h"

namespace {

using game::Currency;
using game::GameState;
using ui::fromRules, ui::money, ui::plain;

/// The lines of a text of tests/approved.
QStringList linesOf(const char* name) {
    QFile file(QString(ZHENBAO_APPROVED "/") + name);
    return file.open(QIODevice::ReadOnly)
               ? QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts)
               : QStringList{};
}

/// The entries of the report. `#` is a number, `$#` money, `~` what was typed, `*` anything.
const QStringList entries = linesOf("entries.txt");

/// Text, title, icon and buttons: Enter presses the one with a plus, Escape that with a minus.
const QStringList boxes = linesOf("boxes.txt");

/// What else has to happen: windows by name and title, endings and all that.
const QStringList others =
    QString(
        "frmNew New Game;frmBuy Buy Merchandise;frmSell Sell Merchandise;frmTransfer Transfer "
        "Cargo;frmVisit Visit Bank;frmMoney Elder Mok the Money Lender;frmLeave Leave Port;"
        "frmRepair Repair Ship;frmPirate Pirates;frmPirate Kwan Tat's Pirates;frmStats Current "
        "Statistics;frmStats You are a Millionaire!;frmStats You are a Trillionaire!;frmHelp "
        "Zhenbao Help;frmAbout About Zhenbao for Windows;a game of a file;an absurd game;link;"
        "act during a wait;end of the program;window closed;still playing;step")
        .split(';');

/// The row of a table that reads as the text does; empty where there is none.
QString find(const QStringList& table, const QString& text, QRegularExpressionMatch& match) {
    for (const QString& row : table) {
        QString pattern = QRegularExpression::escape(row);
        pattern.replace(R"(\$\#)", R"(\$(\d{1,3}(?:,\d{3})*))").replace(R"(\#)", R"((\d+))");
        pattern.replace(R"(\~)", "(.*)").replace(R"(\*)", ".*");
        if (row.at(0) == text.at(0)) {
            match = QRegularExpression(QRegularExpression::anchoredPattern(pattern)).match(text);
            if (match.hasMatch()) {
                return row;
            }
        }
    }
    return {};
}

/// Plays until the program ends, which ends this process.
class Player final : public QObject, public ui::Desktop {
public:
    using Files = QMap<QString, GameState>;

    Player(int seed, const QString& folder, Files files)
        : m_seed(seed), m_folder(folder), m_files(std::move(files)) {
        qApp->installEventFilter(this);
        const auto* report = m_mainForm.findChild<QPlainTextEdit*>("txtLog")->document();
        connect(report, &QTextDocument::contentsChange, this, [=, this](int at, int, int added) {
            m_news = (at == 0 ? "" : m_news) + report->toPlainText().mid(at, added);
        });
        for (const auto* item : m_mainForm.findChildren<QAction*>(QRegularExpression("Item"))) {
            connect(item, &QAction::triggered, this, [=, this] { count(item->objectName()); });
        }
        m_mainForm.show();
        wake();
        QApplication::exec();
        end("window closed");
    }

    // The desktop as the player sees it.
    ui::Answer show(QWidget* owner, const ui::Box& box) override {
        expect(!std::exchange(m_asked, true), "two questions at a time");
        expect(std::exchange(m_question, box.text) != box.text, "a question asked twice");
        const ui::Answer answer = m_desktop.show(owner, box);
        m_asked = false;
        count(m_box + QStringList{"OK", "Yes", "No", "Cancel"}.at(static_cast<int>(answer)));
        return answer;
    }
    QString chooseFileToLoad(QWidget* /*owner*/) override {
        const QString file = any(m_files.keys().filter(dice(6) == 1 ? "absurd" : "turn"));
        return m_loaded = any(QStringList{"", m_folder + "/none", ownFile(), file, file, file});
    }
    QString chooseFileToSave(QWidget* /*owner*/) override {
        m_saved = any(QStringList{"", m_folder, m_folder + "/no/game", ownFile(), ownFile()});
        m_files[m_saved] = m_now;
        return m_saved;
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
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        expect(!m_keyboard || event->type() < QEvent::MouseButtonPress ||
                   event->type() > QEvent::MouseMove,
               "a mouse that is not there");
        return false;
    }

private:
    void wake() { QMetaObject::invokeMethod(this, &Player::step, Qt::QueuedConnection); }
    void step() {
        wake();  // first, since an act may open a window that wants the next
        QWidget* modal = QApplication::activeModalWidget();
        m_top = modal != nullptr ? modal : &m_mainForm;
        m_name = m_top->objectName();
        if (!m_mainForm.isVisible()) {
            return;  // the program is about to end
        }
        count(m_waiting ? "act during a wait" : "step");
        if (++m_step > m_steps) {
            end("still playing");
        }
        const bool atRest = modal == nullptr && !m_waiting && thread()->loopLevel() == 1;
        const bool popup = QApplication::activePopupWidget() != nullptr;
        readReport();
        // A loop may still be busy with the last events of a dialog that has closed.
        if (auto* box = qobject_cast<QMessageBox*>(m_top)) {
            lookAtBox(*box);
        } else if (!popup && (atRest || m_waiting || modal != nullptr)) {
            m_question.clear();
            look(atRest);
        }
        if (!m_top->isActiveWindow()) {
            m_top->activateWindow();
        } else if (popup) {
            pressAny("Down Down Down Up End End Return Return Return Return Return Esc");
        } else if (dice(100) <= m_folly) {
            actFoolishly();
        } else if (!m_waiting || dice(8) == 1) {
            act();
        }
    }

    // --- Looking.
    void lookAtBox(const QMessageBox& box) {
        static const QStringList icons{"", "Information", "Exclamation", "Stop", "Question"};
        QString seen = box.text() + '|' + box.windowTitle() + '|' + icons.at(box.icon());
        for (const auto* button : box.buttons()) {
            seen += ' ' + button->text().remove('&') + (button == box.defaultButton() ? "+" : "") +
                    (button == box.escapeButton() ? "-" : "");
        }
        QRegularExpressionMatch match;
        m_box = find(boxes, seen, match);
        expect(!m_box.isEmpty(), "a strange box: " + seen);
    }
    void look(bool atRest) {
        const bool underWay = !m_mainForm.menuBar()->actions().constFirst()->isEnabled();
        const bool begun = m_now.gdtmDate != game::zeroDate;
        const bool home = begun && !underWay && m_now.gstrLocation == "Hong Kong";
        const QString title = m_name + ' ' + m_top->windowTitle();
        const QWidget* focus = m_top->focusWidget();
        const QList<QWidget*> all = controls();
        expect(focus != nullptr
                   ? focus->isEnabled()
                   : !m_now.gblnActiveGame || all.isEmpty() || !m_top->isActiveWindow(),
               "no focus");
        expect(!atRest || !(underWay || m_now.gblnGameOver), "no end of a voyage or a game");
        expect(m_top == &m_mainForm || others.contains(title), "a strange title: " + title);
        count(others.contains(title) ? title : "step");
        for (const QWidget* control : all) {
            m_counts[m_name + ' ' + control->objectName()] += 0;
        }
        if (!m_lawful) {
            return;
        }
        shows("cmdBuy cmdSell cmdLeave", begun && !underWay, m_house);
        shows("cmdVisit cmdTransfer", home, m_house);
        shows("cmdRepair", home && m_now.gcurStatus < 100, m_house);
        shows("cmdCannon", m_cannonOffered, m_house);
        shows("cmdShip", m_shipOffered, m_house);
        shows(begun && !underWay ? "cmdMoney" : "cmdBuy", home && m_lender, m_house);
        shows("mnuSaveItem mnuStatsItem", begun, &m_mainForm);
        if (m_name == "frmMain" && atRest && begun) {
            lookAtFigures();
            audit();
        } else if (m_name == "frmPirate") {
            lookAtBattle(underWay);
        } else if (m_name == "frmRepair") {
            const Currency chosen = m_top->findChild<QSlider*>("sldRepair")->value();
            const Currency price = (chosen - m_now.gcurStatus) * m_now.gcurMaxHold * 10;
            expect(price >= 0 && price <= m_now.gcurCash, "a repair out of bounds");
            shows("txtPrice", money(price));
            shows("txtStatus", plain(chosen) + '%');
            shows("fraStatus", "Ship's Status - " + plain(chosen) + "% ", m_house);
            shows("cmdRepair", price > 0);
        } else if (m_name == "frmStats") {
            shows("lblNetValue", money(m_now.gcurNetWorth));
            shows("lblShipValue", plain(m_now.gcurMaxHold));
            shows("lblCannonsValue", plain(m_now.gcurCannons));
            shows("lblTotalValue", plain(m_now.gcurRank));
            shows("lblRankValue", fromRules(m_now.gstrRank));
            shows("cmdRetire", m_now.gcurNetWorth >= 1'000'000);
            shows("cmdOK", !title.contains("Trillionaire"));
        } else if (m_name == "frmLeave") {
            for (const auto* port : m_top->findChildren<QRadioButton*>()) {
                shows(port->objectName(), port->text() != fromRules(m_now.gstrLocation));
            }
        } else if (m_name == "frmNew") {
            shows("cmdCancel", !m_now.gblnGameOver);
        } else if (m_name == "frmBuy" || m_name == "frmSell" || m_name == "frmTransfer") {
            shows("cmd" + m_name.mid(3), *amountTyped());
            shows(m_name == "frmTransfer" ? "cmdCancel" : "optWarehouse", home);
        }
    }
    void lookAtFigures() {
        GameState again = m_now;
        game::updateStanding(again);
        expect(again == m_now, "an old standing");
        expect(m_mainForm.windowTitle() == "Zhenbao - " + fromRules(m_now.gstrRank) + " [" +
                                               money(m_now.gcurNetWorth) + "]",
               "title " + m_mainForm.windowTitle());
        const QString firm = fromRules(m_now.gstrFirm).replace("&", "&&");
        const QString room = plain(m_now.gcurHold) + " of " + plain(m_now.gcurMaxHold);
        shows("txtCash", money(m_now.gcurCash));
        shows("txtBank", money(m_now.gcurBank));
        shows("txtDebt", money(m_now.gcurDebt));
        shows("txtCannons", plain(m_now.gcurCannons));
        shows("txtDate", fromRules(game::dateText(m_now.gdtmDate)));
        shows("fraStatus", "Ship's Status - " + plain(m_now.gcurStatus) + "% ");
        shows("fraHold", "Ship's Hold - " + room + ' ');
        shows("fraPrices", "Prices at " + fromRules(m_now.gstrLocation) + ' ');
        shows("fraHouse", "House of " + firm + ", Hong Kong ");
        shows("prgStatus", m_now.gcurStatus.toInt());
        shows("prgHold", m_now.gcurHold.toInt());
        for (const game::GoodRow& good : game::goods) {
            shows("txtS" + fromRules(good.name), plain(m_now.*good.ship));
            shows("txtW" + fromRules(good.name), plain(m_now.*good.warehouse));
            shows("txtP" + fromRules(good.name), money(m_now.*good.price));
        }
    }
    void lookAtBattle(bool underWay) {
        int ships = 0;
        for (const auto* ship : m_top->findChild<QWidget*>("picShips")->findChildren<QLabel*>()) {
            ships += ship->isVisible() ? 1 : 0;
        }
        const bool wanted =
            m_top->findChild<QLineEdit*>("txtReport")->text() == "Zhenbao, what shall we do?";
        expect(underWay, "open menus at sea");
        expect(m_top->windowTitle().contains("Kwan") == (m_now.gcurPayoff > 10), "whose pirates?");
        shows("txtEnemy", QString::number(ships));
        shows("txtStatus", plain(m_now.gcurStatus) + '%');
        shows("txtCannons", plain(m_now.gcurCannons));
        shows("fraStatus", "Ship's Status - " + plain(m_now.gcurStatus) + "% ", m_house);
        shows("cmdFight cmdDeath", wanted && m_now.gcurCannons > 0);
        shows("cmdRun", wanted);
        shows("cmdDump", wanted && game::totalStock(m_now, game::Place::Ship) > 0);
    }
    /// Expects controls to show a text or a number, or to be enabled or not.
    void shows(const QString& names, const QVariant& wanted,
               const QObject* window = nullptr) const {
        for (const QString& name : names.split(' ')) {
            const auto* control = (window != nullptr ? window : m_top)->findChild<QObject*>(name);
            const char* property = wanted.typeId() == QMetaType::Bool        ? "enabled"
                                   : wanted.typeId() == QMetaType::Int       ? "value"
                                   : qobject_cast<const QGroupBox*>(control) ? "title"
                                                                             : "text";
            const QVariant found = control->property(property);
            expect(found == wanted, name + ": " + found.toString() + " for " + wanted.toString());
        }
    }
    /// Compares the record with that of the last rest, and with the entries since.
    void audit() {
        const Currency cargo = game::totalStock(m_now, game::Place::Ship);
        expect(m_now.gcurHold == cargo + m_now.gcurCannons * 10, "a wrong hold");
        for (const game::Field figure : test::savedFigures()) {
            expect(m_now.*figure >= 0 || figure == &GameState::gcurDebt, "less than nothing");
        }
        expect(m_now.gcurNetWorth == m_before.gcurNetWorth + m_gains, "gains without an entry");
        m_before.gblnGameSaved = m_now.gblnGameSaved;
        m_before.gblnMillionaire = m_now.gblnMillionaire;
        expect(!m_quiet || m_before == m_now, "a change without an entry");
        m_before = m_now;
        m_gains = 0;
        m_quiet = true;
    }

    // --- Reading.
    void readReport() {
        m_news.replace("\n" + QString(23, ' '), "|").remove(QRegularExpression("\\.+(?=\n|$)"));
        for (const QString& line : std::exchange(m_news, {}).split('\n', Qt::SkipEmptyParts)) {
            tell(line);
            m_quiet = false;
            QRegularExpressionMatch match;
            const QString entry = find(entries, line.mid(15), match);
            expect(!entry.isEmpty() || !m_lawful, "an unknown entry: " + line);
            count(entry.isEmpty() ? "step" : entry);
            Currency gain =
                entry.contains(QRegularExpression("^(Sold|You got)"))                        ? 1
                : entry.contains(QRegularExpression("^(Bought|Repaired|Bad Joss.*#|Payed)")) ? -1
                                                                                             : 0;
            for (int figure = 1; figure <= match.lastCapturedIndex(); ++figure) {
                gain = gain * game::MakeNumber(ui::toRules(match.captured(figure)));
            }
            m_gains += gain;
            post(entry, match.captured(1));
        }
    }
    void post(const QString& entry, const QString& what) {
        const bool offer = entry.startsWith("Zhenbao");
        if (entry.startsWith("Departing") || entry.startsWith("Borrowed")) {
            m_lender = false;
            m_cannonOffered = m_cannonOffered && entry.startsWith("B");
            m_shipOffered = m_shipOffered && entry.startsWith("B");
        } else if (entry.startsWith("Arriving")) {
            m_lender = game::inHongKong(m_now);
            m_gains += game::Int(m_before.gcurBank.toDouble() * 0.005) -
                       game::Int(m_before.gcurDebt.toDouble() * 0.1);
            expect(what == fromRules(m_now.gstrLocation), "another port");
        } else if (entry.contains("annon ") && entry.contains(" for ")) {
            m_cannonOffered = offer;
        } else if (entry.contains("50 more capacity") || entry.contains("New Ship")) {
            m_shipOffered = offer;
        } else if (entry.startsWith("Welcome")) {
            expect(m_now.gcurCannons == (m_now.gcurDebt > 0 ? 0 : 5), "another game");
            begin(m_now);
        } else if (entry.startsWith("Game Loaded")) {
            m_lawful = !m_loaded.contains("absurd");
            count(m_lawful ? "a game of a file" : "an absurd game");
            begin(m_files.value(m_loaded));
        } else if (entry.startsWith("Game Saved")) {
            GameState kept = m_now;
            game::resumeGame(kept, ui::readGameFile(m_saved));
            expect(kept == m_now, "another game saved");
        }
    }
    /// A game was started or loaded; the standing is not kept in files.
    void begin(GameState wanted) {
        wanted.gcurNetWorth = m_now.gcurNetWorth;
        wanted.gcurRank = m_now.gcurRank;
        wanted.gstrRank = m_now.gstrRank;
        wanted.gblnActiveGame = wanted.gblnGameSaved = true;
        expect(wanted == m_now, "another game than was asked for");
        m_before = wanted;
        m_gains = 0;
        m_lender = game::inHongKong(wanted);
        m_cannonOffered = m_shipOffered = false;
    }

    // --- Acting.
    /// What the keyboard comes to in the window on top.
    QList<QWidget*> controls() const {
        QList<QWidget*> all;
        for (QWidget* control : m_top->findChildren<QWidget*>()) {
            const bool reached = (control->focusPolicy() & Qt::TabFocus) != 0 ||
                                 qobject_cast<QAbstractButton*>(control) != nullptr;
            if (reached && control->isEnabled() && control->isVisible() &&
                control->window() == m_top && control->focusProxy() == nullptr) {
                all << control;
            }
        }
        return all;
    }
    /// Whether an amount was typed; empty where none can be.
    std::optional<bool> amountTyped() const {
        std::optional<bool> typed;
        for (const auto* field : m_top->findChildren<ui::AmountField*>()) {
            typed = typed.value_or(false) || field->amount() > 0;
        }
        return typed;
    }
    void act() {
        const bool home = m_top == &m_mainForm;
        const bool ready = amountTyped().value_or(true);
        const QString usual =
            home    ? "cmd(Leave|Visit|Money|Transfer|Repair)$"
            : ready ? "^(cmd(Depart|OK|Buy|Sell|Transfer|Start|Repair|Retire)|optHongKong|lbl.*)$"
                    : "nothing";
        QList<QWidget*> all = controls();
        for (QWidget* control : controls()) {
            all << QList<QWidget*>(
                control->objectName().contains(QRegularExpression(usual)) ? 4 : 0, control);
        }
        if (home && !m_now.gblnActiveGame) {
            pressAny("Ctrl+N Ctrl+L");
        } else if (!all.isEmpty() && dice(5) > 1) {
            use(any(all));
        } else {
            pressAny(home ? "Ctrl+S Ctrl+L Ctrl+L Ctrl+L Alt+F Alt+O Alt+H Alt+H"
                          : "9 9 Return Esc close");
        }
    }
    void actFoolishly() {
        const int folly = dice(5);
        if (folly == 1) {
            use(any(m_top->findChildren<QWidget*>()));
        } else if (folly == 2) {  // what lies behind, out of reach
            use(any(m_mainForm.findChildren<QWidget*>()));
        } else if (folly == 3) {
            QGuiApplication::clipboard()->setText(
                any(QStringList{"0", "7", "99999999999999999999", "-5", "x", "$1,2 3", "3.5", "\"",
                                "Smith & Sons", QString(3'000, '9'), "\n\r\t", "\u0663\u4E2D"}));
            press(QKeySequence("Ctrl+V"));
        } else {
            pressAny(
                "close Ctrl+N Ctrl+L Ctrl+S F1 Alt+F Alt+O Alt+H Ctrl+A Ctrl+Z F4 F10 Alt+Down "
                "Alt+Up Esc Return Enter Tab Backtab Space Left Right Up Down PgUp PgDown Home End "
                "Del Backspace 7 0 X & - $");
        }
    }
    void use(QWidget* control) {
        const bool reached = controls().contains(control);
        auto* list = qobject_cast<QComboBox*>(control);
        const QWidget* window = m_top;
        const auto* warehouse = m_top->findChild<QRadioButton*>("optWarehouse");
        const auto source = warehouse != nullptr && warehouse->isChecked() ? game::Place::Warehouse
                                                                           : game::Place::Ship;
        tell("use " + control->objectName());
        if (reached) {
            count(m_name + ' ' + control->objectName());
        }
        if (!m_keyboard && control->isVisible()) {
            click(control);
        }
        for (int keys = 0; m_keyboard && reached && m_top->focusWidget() != control; ++keys) {
            expect(keys < 40, "no key comes to " + control->objectName());
            auto* option = qobject_cast<QRadioButton*>(m_top->focusWidget());
            const bool among = option != nullptr && qobject_cast<QRadioButton*>(control);
            const bool menus = qobject_cast<QMenuBar*>(m_top->focusWidget()) && keys % 2 == 1;
            press(menus                        ? Qt::Key_Escape
                  : !among                     ? Qt::Key_Tab
                  : option->y() < control->y() ? Qt::Key_Down
                                               : Qt::Key_Up);
        }
        if (reached && list != nullptr) {
            for (const char* keys : {"Alt+Down", any(QList{"Down", "End", "End"}), "Return"}) {
                press(QKeySequence(keys));
            }
        } else if (reached && qobject_cast<QSlider*>(control)) {
            press(any(QList{Qt::Key_End, Qt::Key_Right, Qt::Key_PageDown}));
        } else if (reached && m_keyboard) {
            press(qobject_cast<QLabel*>(control) ? Qt::Key_Return : Qt::Key_Space);
        }
        const bool sold = reached && control->objectName() == "cmdSellAll" && !window->isVisible();
        expect(!sold || !m_lawful || game::totalStock(m_now, source) == 0, "not everything sold");
    }
    void click(QWidget* control) {
        QWindow* window = control->window()->windowHandle();
        const QPoint middle(std::min(control->width() / 2, 12), control->height() / 2);
        const QPoint place = control->mapTo(control->window(), middle);
        m_time += 1'000;  // no click is the second half of a double click
        for (const bool down : {true, false}) {
            qt_handleMouseEvent(window, place, window->mapToGlobal(place),
                                down ? Qt::LeftButton : Qt::NoButton, Qt::LeftButton,
                                down ? QEvent::MouseButtonPress : QEvent::MouseButtonRelease, {},
                                m_time);
        }
    }
    void press(const QKeySequence& keys) {
        tell("press " + keys.toString());
        QWidget* popup = QApplication::activePopupWidget();
        QWindow* window = (popup != nullptr ? popup : m_top)->window()->windowHandle();
        const int key = keys[0].toCombined();
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            qt_handleKeyEvent(window, type, keys[0].key(), keys[0].keyboardModifiers(),
                              key < 0x100 ? QString(QChar(key)) : QString());
        }
        const bool stays = QStringList{"frmBuy", "frmSell", "frmPirate"}.contains(m_name);
        expect(!stays || key != Qt::Key_Escape || m_top->isVisible(), "left by Escape");
    }
    void pressAny(const QString& keys) {
        const QString key = any(keys.split(' '));
        if (key == "close") {
            tell("close " + m_name);
            m_top->close();
        } else {
            press(QKeySequence(key));
        }
    }
    int dice(int sides) { return game::roll(m_dice, sides); }
    template <class List>
    typename List::value_type any(const List& list) {
        return list.at(dice(static_cast<int>(list.size())) - 1);
    }
    QString ownFile() {
        const QString folder = m_folder + (m_lawful ? "/own" : "/absurd own");
        return folder + QString::number(2 * m_seed + dice(2));
    }

    // --- Accounts.
    void count(const QString& thing) { ++m_counts[thing]; }
    void expect(bool fact, const QString& otherwise) const {
        if (!fact) {
            std::cerr << "game " << m_seed << ", step " << m_step << ", " << m_name.toStdString()
                      << ": " << otherwise.toStdString() << "\n    ZHENBAO_SEED=" << m_seed
                      << " ui_tests --gtest_filter=Restless.* tells the story\n";
            _exit(EXIT_FAILURE);
        }
    }
    [[noreturn]] void end(const QString& ending) {
        count(ending);
        tell("the end: " + ending);
        QByteArray lines;
        for (auto thing = m_counts.cbegin(); thing != m_counts.cend(); ++thing) {
            lines += QString("%1 %2 %3\n").arg(m_keyboard).arg(*thing).arg(thing.key()).toUtf8();
        }
        QFile file(m_folder + "/counts");
        expect(file.open(QIODevice::Append) && file.write(lines) > 0, "no counts");
        file.close();
        _exit(EXIT_SUCCESS);
    }
    void tell(const QString& what) const {
        if (qEnvironmentVariableIsSet("ZHENBAO_SEED")) {
            std::cerr << m_step << (m_waiting ? " (waiting) " : " ") << what.toStdString() << '\n';
        }
    }

    int m_seed;
    QString m_folder;
    Files m_files;
    bool m_keyboard = m_seed % 2 == 1;
    game::Generator m_dice{static_cast<std::uint64_t>(m_seed) * 2 + 1};  ///< what the player does
    game::Generator m_chance{static_cast<std::uint64_t>(m_seed) * 2};    ///< what the game does
    ui::QtDesktop m_desktop;
    ui::frmMain m_mainForm{*this, m_chance};
    const GameState& m_now = m_mainForm.state();
    const QObject* m_house = m_mainForm.centralWidget();
    QWidget* m_top = &m_mainForm;                       ///< the window on top
    QString m_name;                                     ///< of it
    int m_folly = QList{2, 5, 15, 40}.at(dice(4) - 1);  ///< of a hundred acts
    int m_steps = 100 + dice(500);
    int m_step = 0;
    int m_time = 0;
    bool m_waiting = false;
    bool m_asked = false;
    QString m_question;  ///< the last one, until something else was seen
    QString m_box;
    QString m_loaded;
    QString m_saved;
    QString m_news;  ///< of the report, not read yet
    bool m_lender = false;
    bool m_cannonOffered = false;
    bool m_shipOffered = false;
    bool m_lawful = true;  ///< the game is none that only a file can lead to
    GameState m_before;    ///< as of the last rest in port
    Currency m_gains;      ///< by the entries since
    bool m_quiet = true;   ///< there were none
    QMap<QString, int> m_counts;
};

/// Games to go on with: at the turns of a fortune, and such as no play leads to.
Player::Files layOutFiles(const QString& folder) {
    Player::Files files;
    const auto write = [&](const char* name, const GameState& state) {
        const QString path = folder + QString("/%1%2").arg(name).arg(files.size());
        ui::writeGameFile(path, files[path] = state);
    };
    for (const GameState& state : test::absurdGames()) {
        if (state.gstrFirm.size() < 1'000) {
            write("absurd", state);
        }
    }
    for (const auto& [field, figure] : {std::pair{&GameState::gcurDebt, 940'000'000'000},
                                        {&GameState::gcurDebt, 980'000'000'000},
                                        {&GameState::gcurBank, 999'999'000'000},
                                        {&GameState::gcurBank, 77'000},
                                        {&GameState::gcurCash, 999'999},
                                        {&GameState::gcurCash, 9'999'999},
                                        {&GameState::gcurStatus, 2}}) {
        GameState state = test::newGame();
        state.gcurMaxHold = 460;
        state.gcurHold = state.gcurSOpium = 50;
        state.gcurWOpium = 10'000;
        state.gcurPayoff = 11;
        state.*field = figure;
        write("turn", state);
    }
    return files;
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
    const Player::Files files = layOutFiles(folder.path());
    QApplication::setDoubleClickInterval(0);
    const bool one = qEnvironmentVariableIsSet("ZHENBAO_SEED");
    const int games = qEnvironmentVariableIntValue("ZHENBAO_GAMES");
    const int first = qEnvironmentVariableIntValue("ZHENBAO_SEED");
    const int last = first + (one ? 1 : games > 0 ? games : 200);
    std::map<pid_t, int> playing;
    for (int seed = first; seed < last || !playing.empty();) {
        if (seed < last && playing.size() < std::max(1U, std::thread::hardware_concurrency())) {
            const pid_t child = fork();
            if (child == 0) {
                alarm(300);  // a game that hangs is a fault
                qInstallMessageHandler(hear);
                Player(seed, folder.path(), files);
            }
            playing[child] = seed++;
            continue;
        }
        int status = 0;
        const pid_t ended = waitpid(-1, &status, 0);
        EXPECT_EQ(status, 0) << "game " << playing[ended];
        playing.erase(ended);
    }
    QMap<QString, std::array<int, 2>> counts;  // with a mouse and without
    for (const QString& thing : others + entries) {
        counts[thing] = {};
    }
    for (const QString& box : boxes) {
        for (const QString& answer : box.section('|', 2).split(' ').mid(1)) {
            counts[box + QString(answer).remove('+').remove('-')] = {};
        }
    }
    QFile file(folder.filePath("counts"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    while (!file.atEnd()) {
        const QString line = QString::fromUtf8(file.readLine()).chopped(1);
        counts[line.section(' ', 2)].at(line.startsWith('1') ? 1 : 0) +=
            line.section(' ', 1, 1).toInt();
    }
    for (auto thing = counts.cbegin(); thing != counts.cend(); ++thing) {
        const auto [mouse, keyboard] = *thing;
        std::cout << thing.key().toStdString() << ": " << mouse << ", " << keyboard << '\n';
        const bool rare = entries.contains(thing.key()) || thing.key().contains('|');
        EXPECT_TRUE(one || (rare ? mouse + keyboard > 0 : mouse > 0 && keyboard > 0))
            << thing.key().toStdString();
    }
}

}  // namespace
