#pragma once

#include <private/qguiapplication_p.h>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

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
#include "qt_desktop.h"
#include "scripted_random.h"

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

inline QString heard;  ///< what screen readers are told of the report since it was asked for last

inline void hear(QAccessibleEvent* event) {
    if (event->type() == QAccessible::TextInserted && event->object()->objectName() == "txtLog") {
        const auto* inserted = static_cast<QAccessibleTextInsertEvent*>(event);
        heard += (inserted->changePosition() == 0 ? "\n" : "") + inserted->textInserted();
    }
}

/// What a control shows. What cannot be used stands in brackets; a long text is cut short.
inline QString shown(const QWidget& control) {
    const auto* label = qobject_cast<const QLabel*>(&control);
    QString text = label != nullptr && !label->pixmap().isNull()
                       ? QString("%1 high").arg(label->isVisible() ? label->height() : 0)
                       : textOf(control).replace('\n', '|');
    text = text.size() > 80 ? text.left(40) + " ... " + text.right(40) : text;
    return control.isEnabled() ? '"' + text + '"' : "(\"" + text + "\")";
}

/// The main window, over it the dialog that a script is about, and a desktop without a screen: a
/// box is told and answered, files are chosen beforehand and time passes at once.
class Stage final : ScriptedRandom, ui::QtDesktop {
public:
    using Visitor = std::function<void(QWidget& window, const QString& state)>;

    /// "frmBuy Cash=500 | 1/4": the window, the figures of its game and the draws to come, where *
    /// are as many as it takes. Where somebody visits, boxes open as dialogs do.
    explicit Stage(const QString& opening, Visitor visit = {})
        : ScriptedRandom(opening.section('|', 1).toStdString()), m_visit(std::move(visit)) {
        const QString name = opening.section(' ', 0, 0);
        QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(true);
        QAccessible::installUpdateHandler(hear);
        m_mainForm.show();
        if (name != "nothing") {
            m_game = scriptedGame(opening.section('|', 0, 0).section(' ', 1).toStdString());
            m_mainForm.beginGame(" - Welcome Captain");
            m_mainForm.UpdateMainForm();
        }
        if (const auto dialog = dialogs.find(name); dialog != dialogs.end()) {
            m_dialog = dialog->second(m_mainForm);
            m_dialog->show();
            m_window = m_dialog.get();
        }
        tellChanges();
    }

    ~Stage() override {
        EXPECT_EQ(rest(), "") << "draws left over";
        QAccessible::installUpdateHandler(nullptr);
    }

    /// Does what one line says, behind each further > in the dialog that is on top by then, and
    /// tells what has changed on the screen and in the report.
    std::string act(const QString& line) {
        const QString what = line.section(' ', 1);
        m_told.clear();
        m_waits = 0;
        if (line.startsWith("answer ")) {
            m_answer = what == "No" ? ui::Answer::No : ui::Answer::Cancel;
        } else if (line.startsWith("file ")) {
            m_file = m_folder.filePath(what);
        } else if (line.startsWith("wait ")) {
            m_meanwhile[what.section(' ', 0, 0).toInt()] = what.section(' ', 1);
        } else if (line == "animations off") {
            m_mainForm.setStyleSheet("* { widget-animation-duration: 0 }");
        } else {
            const QStringList acts = line.split(" > ");
            performInDialogs(acts.mid(1));
            attempt(*m_window, acts.front());
            QCoreApplication::sendPostedEvents(qApp);
            tellChanges();
        }
        return m_told.mid(1).toStdString() + (m_told.isEmpty() ? "" : "\n");
    }

private:
    ui::Answer show(QWidget* owner, const ui::Box& box) override {
        m_told += "\n[" + box.title + "] " + box.text;
        return m_visit ? QtDesktop::show(owner, box) : std::exchange(m_answer, ui::Answer::Yes);
    }
    QString chooseFileToLoad(QWidget* /*owner*/) override { return std::exchange(m_file, {}); }
    QString chooseFileToSave(QWidget* /*owner*/) override { return std::exchange(m_file, {}); }
    void openLink(const QUrl& link) override { m_link = link.toString(QUrl::FullyEncoded); }
    void wait(game::Milliseconds duration) override {
        m_waited += duration;
        if (const QString what = m_meanwhile.take(++m_waits); !what.isEmpty()) {
            perform(*m_window, what);
            tellChanges();
        }
    }
    [[noreturn]] void endProgram() override { throw std::runtime_error("the end"); }

    /// The program may end with it, and with the program the dialog.
    void attempt(QWidget& window, const QString& what) {
        try {
            perform(window, what);
        } catch (const std::exception& end) {
            m_told += QString("\n") + end.what();
            if (auto* top = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
                top->done(0);
            }
        }
    }
    void perform(QWidget& window, const QString& what) {
        const QString object = what.section(' ', 1);
        if (what.startsWith("choose ")) {
            find<QAction>(m_mainForm, object)->trigger();
        } else if (what == "close") {
            window.close();
        } else if (what.startsWith("visit ")) {
            m_visit(window, object);
        } else if (what.startsWith("open ")) {
            auto* list = find<QComboBox>(window, object);
            list->showPopup();
            for (int row = 0; row < list->count(); ++row) {
                m_told += (row == 0 ? "\n" : " ") + list->itemText(row);
            }
            QTest::keyClick(list->view(), Qt::Key_Escape);
        } else if (what.startsWith("look ")) {
            m_told += '\n' + object + ' ' + shown(*find<QWidget>(window, object));
        } else {
            test::act(window, what);
        }
    }
    void performInDialogs(const QStringList& acts) {
        const auto performNext = [this, acts] {
            auto* top = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            EXPECT_EQ(top == nullptr, acts.isEmpty()) << "a dialog more or less than in the script";
            if (top != nullptr) {
                performInDialogs(acts.mid(1));
                acts.isEmpty() ? top->done(0) : attempt(*top, acts.front());
            }
        };
        QMetaObject::invokeMethod(qApp, performNext, Qt::QueuedConnection);
    }

    /// What both windows show, by name.
    QMap<QString, QString> screen() {
        QMap<QString, QString> seen;
        const QRegularExpression named("^[a-z]{3}[A-Z]");
        for (QWidget* window : QList<QWidget*>{&m_mainForm, m_window}) {
            for (auto* control : window->findChildren<QWidget*>(named)) {
                if (control->window() == window && control != m_report) {
                    seen[control->objectName()] = shown(*control);
                }
            }
        }
        const QWidget* focus = m_window->focusWidget();
        const QWidget* sea = m_dialog ? m_dialog->findChild<QWidget*>("picShips") : nullptr;
        const QWidget* modal = QApplication::activeModalWidget();
        seen["on top"] = modal ? modal->objectName() : "";
        seen["the focus"] = m_window->isVisible() && focus ? focus->objectName() : "";
        seen["the window"] = m_window->isVisible() ? "open" : "closed";
        seen["the title"] = m_mainForm.windowTitle();
        seen["the time"] = QString::number(m_waited.count());
        seen["the pointer"] = m_mainForm.cursor() == Qt::BusyCursor ? "busy" : "free";
        seen["the report"] = m_report->palette().color(QPalette::Base).name();
        seen["the caret"] = m_report->textCursor().atEnd() ? "at the end" : "elsewhere";
        seen["the sea"] = sea ? sea->palette().color(QPalette::Window).name() : "";
        seen["saved"] = m_game.gblnGameSaved ? "yes" : "no";
        seen["link"] = m_link;
        return seen;
    }
    void tellChanges() {
        static const QRegularExpression date("[A-Z][a-z]{2} \\d\\d, \\d{4}(?= - )");
        const QString news =
            std::exchange(heard, {}).replace(QChar::ParagraphSeparator, '\n').remove(date);
        m_told += (news.isEmpty() || news.startsWith('\n') ? "" : "\n") + news;
        const QMap<QString, QString> before = std::exchange(m_screen, screen());
        for (const auto& [name, now] : m_screen.asKeyValueRange()) {
            m_told += before.value(name) != now ? '\n' + name + ' ' + now : "";
        }
    }

    Visitor m_visit;
    QTemporaryDir m_folder;
    ui::frmMain m_mainForm{*this, *this};
    game::GameState& m_game = m_mainForm.state();
    QPlainTextEdit* m_report = find<QPlainTextEdit>(m_mainForm, "txtLog");
    std::unique_ptr<QDialog> m_dialog;
    QWidget* m_window = &m_mainForm;
    ui::Answer m_answer = ui::Answer::Yes;
    QString m_file;                  ///< the next to load or to save; empty: the player cancels
    QMap<int, QString> m_meanwhile;  ///< what to do during which wait
    int m_waits = 0;
    game::Milliseconds m_waited{0};
    QString m_link;
    QMap<QString, QString> m_screen;
    QString m_told;
};

}  // namespace test
