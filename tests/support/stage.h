#pragma once

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
#include "qt_desktop.h"
#include "scripted_random.h"
#include "windows.h"

namespace test {

template <class Dialog, auto... arguments>
std::unique_ptr<QDialog> make(ui::MainForm& mainForm) {
    return std::make_unique<Dialog>(mainForm, arguments...);
}

/// Every dialog by its name, made as the main window makes it.
inline const std::map<QString, std::unique_ptr<QDialog> (*)(ui::MainForm&)> dialogs{
    {"frmAbout", make<ui::frmAbout>},
    {"frmBuy", make<ui::frmBuy>},
    {"frmHelp", make<ui::frmHelp>},
    {"frmLeave", make<ui::frmLeave>},
    {"frmMoney", make<ui::frmMoney>},
    {"frmNew", make<ui::frmNew>},
    {"frmPirate", make<ui::frmPirate>},
    {"frmRepair", make<ui::frmRepair>},
    {"frmSell", make<ui::frmSell>},
    {"frmStats", make<ui::frmStats, ui::frmStats::Occasion::Menu>},
    {"frmStats-trillionaire", make<ui::frmStats, ui::frmStats::Occasion::Trillionaire>},
    {"frmTransfer", make<ui::frmTransfer>},
    {"frmVisit", make<ui::frmVisit>}};

/// What a control shows, in brackets if it cannot be used; a long text is cut short.
inline QString shown(const QWidget& control) {
    const auto* label = qobject_cast<const QLabel*>(&control);
    QString text = label != nullptr && !label->pixmap().isNull()
                       ? QString("%1 high").arg(label->isVisible() ? label->height() : 0)
                       : textOf(control).replace('\n', '|');
    text = text.size() > 80 ? text.left(20) + " ... " + text.right(20) : text;
    return control.isEnabled() ? '"' + text + '"' : "(\"" + text + "\")";
}

/// The main window, a dialog over it and a desktop without a screen, played by a script of
/// dialogs.txt (tests/README.md describes them). A mistake in a script fails the test.
class Stage : ScriptedRandom, protected ui::QtDesktop {
public:
    using Visitor = std::function<void(QWidget& window, const QString& state)>;

    /// The window, the figures of its game and the draws to come, unless there is a generator.
    explicit Stage(const QString& opening, Visitor visit = {}, game::Random* chance = nullptr)
        : ScriptedRandom(opening.section('|', 1).toStdString()),
          m_opening(opening),
          m_visit(std::move(visit)),
          m_mainForm(*this, chance != nullptr ? *chance : *this) {
        const QStringList words = opening.section('|', 0, 0).split(' ', Qt::SkipEmptyParts);
        const QString window = words.front();
        m_mainForm.show();
        if (window != "nothing") {
            m_game = newGame(words.mid(1).join(' ').toStdString());
            m_mainForm.beginGame(" - Welcome Captain");
            m_mainForm.UpdateMainForm();
        }
        if (const auto dialog = dialogs.find(window); dialog != dialogs.end()) {
            m_dialog = dialog->second(m_mainForm);
            m_dialog->show();
            m_window = m_dialog.get();
        } else if (window != "nothing" && window != "frmMain") {
            throw std::runtime_error("no such window: " + window.toStdString());
        }
        activate(*m_window);
        m_record = m_game;
        addScreen();
    }

    ~Stage() override { EXPECT_EQ(rest(), "") << "draws left over by " << m_opening.toStdString(); }

    /// Does what a line says, each act in the window that is on top by then, and returns what it
    /// changes in the report, in the record and on the screen.
    std::string act(const QString& line) {
        m_results.clear();
        m_acts = line.split(" > ");
        m_waits = 0;
        m_idleRounds = 0;
        playFor(30);
        EXPECT_EQ(m_acts.join(" > ").toStdString(), "") << "no window is open for this";
        EXPECT_EQ(std::exchange(m_meanwhile, {}).size(), 0) << "waits of this number do not come";
        addScreen(changes(std::exchange(m_record, m_game), m_game));
        if (m_mainForm.isVisible() && m_game.gblnActiveGame &&
            (m_dialog == nullptr || !m_dialog->isVisible())) {
            EXPECT_EQ(wrongDisplays(m_mainForm, m_game), "");
        }
        return m_results.join('\n').toStdString();
    }

protected:
    struct End {};
    [[noreturn]] void endProgram() override { throw End{}; }

    /// The next act in `top`; none if it is empty. Boxes that no act answers are answered by Enter.
    virtual QString nextAct(QWidget& top) {
        if (const auto* box = qobject_cast<const QMessageBox*>(&top)) {
            EXPECT_TRUE(box->icon() == m_icon && box->textFormat() == Qt::PlainText);
        }
        static const QRegularExpression inBox("^answer| msgBox");
        if (top.objectName() == "msgBox" && !m_acts.value(0).contains(inBox)) {
            return "press msgBox Return";
        }
        if (m_acts.isEmpty() && top.isModal() && ++m_idleRounds > 3) {
            throw std::runtime_error(top.objectName().toStdString() + " is still open");
        }
        return m_acts.isEmpty() ? "" : m_acts.takeFirst();
    }
    /// Does each act in the window that is on top by then, for some rounds of the event loop.
    void playFor(int rounds) {
        QObject hand;
        reachOut(hand);
        attempt([rounds] {
            for (int round = 0; round < rounds; ++round) {
                QCoreApplication::processEvents();
            }
        });
    }

private:
    /// Acts in every event loop that runs while `hand` lives. An order is carried out from the
    /// event loop, so the next act comes an event later.
    void reachOut(QObject& hand) {
        const auto act = [this, &hand] {
            reachOut(hand);  // first, since an act may open a dialog
            QWidget* modal = QApplication::activeModalWidget();
            QWidget* top = modal != nullptr ? modal : m_window;
            if (!top->isActiveWindow()) {
                top->activateWindow();
            } else if (!m_visiting) {
                attempt([&] { perform(*top, nextAct(*top)); });
            }
        };
        const auto afterOrder = [&hand, act] {
            QMetaObject::invokeMethod(&hand, act, Qt::QueuedConnection);
        };
        QMetaObject::invokeMethod(&hand, afterOrder, Qt::QueuedConnection);
    }
    /// The program may end with it, and with the program all dialogs.
    void attempt(const std::function<void()>& act) {
        try {
            return act();
        } catch (const End&) {
            m_results << "the end";
        } catch (const std::exception& error) {
            ADD_FAILURE() << error.what();
        }
        if (auto* top = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
            top->done(0);
        }
    }
    ui::Answer show(QWidget* owner, const ui::Box& box) override {
        using enum QMessageBox::StandardButton;
        QString text = '[' + box.title + "] " + box.text + '|' +
                       QMetaEnum::fromType<ui::Icon>().valueToKey(box.icon);
        for (const auto& [name, button] :
             {std::pair{" Ok", Ok}, {" Yes", Yes}, {" No", No}, {" Cancel", Cancel}}) {
            if (box.buttons.testFlag(button)) {
                text += QString(name) + (button == box.byDefault ? "+" : "") +
                        (button == box.onEscape ? "-" : "");
            }
        }
        m_results << text;
        EXPECT_EQ(m_mainForm.findChild<QMessageBox*>(), nullptr) << "two boxes at a time";
        m_icon = box.icon;
        return QtDesktop::show(owner, box);
    }
    QString chooseFileToLoad(QWidget* owner) override { return chooseFileToSave(owner); }
    QString chooseFileToSave(QWidget* /*owner*/) override {  // none: the player cancels
        return m_acts.value(0).startsWith("file ") ? m_folder.filePath(m_acts.takeFirst().mid(5))
                                                   : "";
    }
    void openLink(const QUrl& link) override {
        m_results << "link " + link.toString(QUrl::FullyEncoded);
    }
    void wait(game::Milliseconds duration) override {
        m_waited += duration;
        if (const QString what = m_meanwhile.take(++m_waits); !what.isEmpty()) {
            perform(*m_window, what);
            addScreen();
        }
    }

    /// One act in `window`: a verb, mostly a control and sometimes more.
    void perform(QWidget& window, const QString& act) {
        const QString verb = act.section(' ', 0, 0);
        const QString name = act.section(' ', 1, 1);
        const QString with = act.section(' ', 2);
        if (act.isEmpty()) {
            return;
        }
        if (verb == "animations") {
            m_mainForm.setStyleSheet("* { widget-animation-duration: 0 }");
        } else if (verb == "wait") {
            m_meanwhile[name.toInt()] = with;
        } else if (verb == "choose") {
            find<QAction>(m_mainForm, name)->trigger();
        } else if (verb == "close") {
            window.close();
        } else if (verb == "visit") {
            const QScopedValueRollback visiting(m_visiting, true);
            m_visit(window, act.section(' ', 1));
        } else if (verb == "answer") {
            const auto buttons = window.findChildren<QAbstractButton*>();
            const auto button = std::ranges::find(
                buttons, name, [](const auto* offered) { return offered->text().remove('&'); });
            button != buttons.end() ? (*button)->click()
                                    : throw std::runtime_error("no such answer");
        } else if (verb == "look") {
            m_results << name + ' ' + shown(*find<QWidget>(window, name));
        } else {
            if (name != window.objectName()) {
                find<QWidget>(window, name)->setFocus();
                m_focused = name;
            }
            use(window, verb, name, with);
        }
    }
    void use(QWidget& window, const QString& verb, const QString& name, const QString& with) {
        if (verb == "click") {
            find<QAbstractButton>(window, name)->click();
        } else if (verb == "mouse") {
            QTest::mouseClick(find<QWidget>(window, name), Qt::LeftButton, {}, {12, 8});
        } else if (verb == "press") {
            press(window, with.split(' '));
        } else if (verb == "hold") {
            for (const QString& key : with.split(' ')) {
                QKeyEvent repeated(QEvent::KeyPress, keyOf(key).key(), {}, {}, true);
                QCoreApplication::sendEvent(window.focusWidget(), &repeated);
            }
        } else if (verb == "paste") {  // by mouse
            QGuiApplication::clipboard()->setText(QString(with).replace("\\n", "\n"));
            auto* list = window.findChild<QComboBox*>(name);
            (list != nullptr ? list->lineEdit() : find<QLineEdit>(window, name))->paste();
        } else if (verb == "pick" || verb == "open") {
            auto* list = find<QComboBox>(window, name);
            list->showPopup();
            QStringList entries;
            for (int row = 0; row < list->count(); ++row) {
                entries << list->itemText(row);
            }
            if (verb == "open") {
                m_results << (list->view()->isVisible() ? entries.join(' ') : "nothing opens");
                list->hidePopup();
            } else if (!entries.contains(with)) {
                throw std::runtime_error("no such entry: " + with.toStdString());
            } else {
                list->view()->setCurrentIndex(list->model()->index(list->findText(with), 0));
                QTest::keyClick(list->view(), Qt::Key_Return);
            }
        } else {
            throw std::runtime_error("no such verb: " + verb.toStdString());
        }
    }
    /// What can be seen, by name: the orders that are enabled, what is locked in the dialog, its
    /// displays, and what neither the record nor another fact says.
    QMap<QString, QString> screen() const {
        QMap<QString, QString> seen;
        const QWidget* modal = QApplication::activeModalWidget();
        const QWidget* focus = m_window->focusWidget();
        for (const auto* order : m_mainForm.centralWidget()->findChildren<QPushButton*>()) {
            seen["orders"] += order->isEnabled() ? ' ' + order->objectName().mid(3) : "";
        }
        for (const auto* item :
             m_mainForm.findChildren<QAction*>(QRegularExpression("^mnu.*Item[^S]*$"))) {
            seen["items"] += item->isEnabled() ? ' ' + item->objectName().mid(3) : "";
        }
        if (m_dialog != nullptr && m_dialog->isVisible()) {
            static const QRegularExpression named("^[a-z]{3}[A-Z]");
            static const QRegularExpression display("^(txt|fra|img)");
            for (const auto* control : m_dialog->findChildren<QWidget*>(named)) {
                const QString name = control->objectName();
                seen["locked"] += control->isEnabled() ? "" : ' ' + name;
                seen[name] = name.contains(display) ? shown(*control) : "";
            }
            seen["locked"] += seen["locked"].isEmpty() ? "nothing" : "";
            if (const auto* sea = m_dialog->findChild<QWidget*>("picShips")) {
                seen["sea"] = sea->palette().color(QPalette::Window).name();
            }
        }
        const QString status = textOf(*find<QWidget>(m_mainForm, "prgStatus"));
        seen["gauge"] = status == ui::plain(m_game.gcurStatus) ? "" : status;
        seen["caret"] = m_report->textCursor().atEnd() ? "at the end" : "elsewhere";
        seen["closed"] = m_window->isVisible() ? "" : m_window->objectName();
        seen["focus"] = !m_window->isVisible() ? "" : focus ? focus->objectName() : "nowhere";
        seen["on top"] = modal ? modal->objectName() : "";
        seen["pointer"] = m_mainForm.cursor() == Qt::BusyCursor ? "busy" : "free";
        seen["report"] = m_report->palette().color(QPalette::Base).name();
        seen["time"] = QString::number(m_waited.count());
        return seen;
    }
    /// Adds what is new in the report and, in a line, what has changed in the record and on the
    /// screen. The focus counts only where an act has not put it.
    void addScreen(const std::string& changes = {}) {
        static const QRegularExpression date("[A-Z][a-z]{2} \\d\\d, \\d{4}(?= - )");
        const QString old = std::exchange(m_text, m_report->toPlainText());
        QString news = m_text.startsWith(old) ? m_text.mid(old.size()) : m_text;
        m_results += news.remove(date).split('\n', Qt::SkipEmptyParts);
        const QMap<QString, QString> before = std::exchange(m_screen, screen());
        QString facts = ui::fromRules(changes);
        for (const auto& [name, now] : m_screen.asKeyValueRange()) {
            const bool known = before.value(name) == now || (name == "focus" && now == m_focused);
            facts += known || now.isEmpty() ? "" : " * " + name + ' ' + now.trimmed();
        }
        if (!facts.isEmpty()) {
            const bool goesOn = !m_results.isEmpty() && !m_results.back().contains(" * ");
            m_results << (goesOn ? m_results.takeLast() : "") + facts;
        }
    }

    QString m_opening;
    Visitor m_visit;
    bool m_visiting = false;
    QMap<int, QString> m_meanwhile;  ///< what to do during which wait of the line
    int m_waits = 0;
    game::Milliseconds m_waited{0};
    QStringList m_acts;    ///< of the line, still to come
    int m_idleRounds = 0;  ///< of the event loop since the last of them, with a dialog still open
    ui::Icon m_icon = ui::Icon::NoIcon;  ///< of the last box
    QString m_focused;                   ///< by the last act
    QMap<QString, QString> m_screen;
    QString m_text;  ///< of the report, when it was looked at last

protected:
    QTemporaryDir m_folder;
    QStringList m_results;
    ui::frmMain m_mainForm;
    game::GameState& m_game = m_mainForm.state();

private:
    game::GameState m_record;  ///< as of the last line
    std::unique_ptr<QDialog> m_dialog;
    QWidget* m_window = &m_mainForm;
    QPlainTextEdit* m_report = find<QPlainTextEdit>(m_mainForm, "txtLog");
};

}  // namespace test
