// What the windows do, as scripts and where no script reaches.

#include <private/qguiapplication_p.h>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

#include "approved.h"
#include "every_window.h"
#include "standing.h"

namespace {

/// A desktop whose animations are switched off.
struct StillStyle final : QProxyStyle {
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override {
        return hint == SH_Widget_Animation_Duration
                   ? 0
                   : QProxyStyle::styleHint(hint, option, widget, data);
    }
};

QString heard;  ///< what screen readers are told of the report since it was asked for last

void hear(QAccessibleEvent* event) {
    if (event->type() == QAccessible::TextInserted && event->object()->objectName() == "txtLog") {
        const auto* inserted = static_cast<QAccessibleTextInsertEvent*>(event);
        heard += (inserted->changePosition() == 0 ? "\n" : "") + inserted->textInserted();
    }
}

/// The main window, and over it the dialog that a script is about.
class Stage final : game::Random {
public:
    /// "frmBuy Cash=500 | 1/4": the window, the figures of its game and the draws to come.
    explicit Stage(const QString& opening) {
        const QString name = opening.section(' ', 0, 0);
        for (const QString& die : opening.section('|', 1).split(' ', Qt::SkipEmptyParts)) {
            m_draws += QStringList(std::max(1, die.chopped(1).toInt()), die);  // "25-" are 25
        }
        m_desktop.answer = [this](const ui::Box& box) {
            m_told += "\n[" + box.title + "] " + box.text;
            return std::exchange(m_answer, ui::Answer::Yes);
        };
        m_desktop.duringWait = [this] {
            if (const QString what = m_meanwhile.take(++m_waits); !what.isEmpty()) {
                perform(*m_window, what);
                tellChanges();
            }
        };
        QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(true);
        QAccessible::installUpdateHandler(hear);
        m_mainForm.show();
        if (name != "nothing") {
            m_game = test::newGame(opening.section('|', 0, 0).section(' ', 1).toStdString());
            m_mainForm.beginGame(" - Welcome Captain");
            m_mainForm.UpdateMainForm();
        }
        if (const auto dialog = test::dialogs.find(name); dialog != test::dialogs.end()) {
            m_dialog = dialog->second(m_mainForm);
            m_dialog->show();
            m_window = m_dialog.get();
        }
        tellChanges();
    }

    ~Stage() override { EXPECT_EQ(m_draws.size(), 0) << "draws left over"; }

    /// Does what one line says, behind each further > in the dialog that is on top by then, and
    /// tells what has changed on the screen and in the report.
    std::string act(const QString& line) {
        const QString what = line.section(' ', 1);
        m_told.clear();
        m_waits = 0;
        if (line.startsWith("answer ")) {
            m_answer = what == "No" ? ui::Answer::No : ui::Answer::Cancel;
        } else if (line.startsWith("file ")) {
            m_desktop.file = m_folder.filePath(what);
        } else if (line.startsWith("wait ")) {
            m_meanwhile[what.section(' ', 0, 0).toInt()] = what.section(' ', 1);
        } else if (line == "animations off") {
            m_mainForm.setStyle(&m_still);
            m_window->setStyle(&m_still);
        } else {
            const QStringList acts = line.split(" > ");
            performInDialogs(acts.mid(1));
            try {
                perform(*m_window, acts.front());
            } catch (const std::exception& end) {
                m_told += QString("\n") + end.what();
            }
            QCoreApplication::sendPostedEvents(qApp);
            tellChanges();
        }
        return m_told.mid(1).toStdString() + (m_told.isEmpty() ? "" : "\n");
    }

private:
    double Rnd() override {
        return m_draws.isEmpty() ? throw std::runtime_error("no draws left")
                                 : test::drawn(m_draws.takeFirst().toStdString());
    }

    void perform(QWidget& window, const QString& what) {
        const QString object = what.section(' ', 1);
        if (what.startsWith("choose ")) {
            test::find<QAction>(m_mainForm, object)->trigger();
        } else if (what == "close") {
            window.close();
        } else if (what.startsWith("open ")) {
            auto* list = test::find<QComboBox>(window, object);
            list->showPopup();
            for (int row = 0; row < list->count(); ++row) {
                m_told += (row == 0 ? "\n" : " ") + list->itemText(row);
            }
            QTest::keyClick(list->view(), Qt::Key_Escape);
        } else if (what.startsWith("look ")) {
            m_told += '\n' + object + ' ' + shown(*test::find<QWidget>(window, object));
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
                acts.isEmpty() ? top->done(0) : perform(*top, acts.front());
            }
        };
        QMetaObject::invokeMethod(qApp, performNext, Qt::QueuedConnection);
    }

    /// What a control shows. What cannot be used stands in brackets; a long text is cut short.
    static QString shown(const QWidget& control) {
        const auto* label = qobject_cast<const QLabel*>(&control);
        QString text = label != nullptr && !label->pixmap().isNull()
                           ? QString("%1 high").arg(label->isVisible() ? label->height() : 0)
                           : test::textOf(control).replace('\n', '|');
        text = text.size() > 80 ? text.left(40) + " ... " + text.right(40) : text;
        return control.isEnabled() ? '"' + text + '"' : "(\"" + text + "\")";
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
        seen["the time"] = QString::number(m_desktop.waited.count());
        seen["the pointer"] = m_mainForm.cursor() == Qt::BusyCursor ? "busy" : "free";
        seen["the report"] = m_report->palette().color(QPalette::Base).name();
        seen["the caret"] = m_report->textCursor().atEnd() ? "at the end" : "elsewhere";
        seen["the sea"] = sea ? sea->palette().color(QPalette::Window).name() : "";
        seen["saved"] = m_game.gblnGameSaved ? "yes" : "no";
        seen["link"] = m_desktop.openedLink.toString(QUrl::FullyEncoded);
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

    StillStyle m_still;
    QTemporaryDir m_folder;
    test::FakeDesktop m_desktop;
    QStringList m_draws;
    ui::frmMain m_mainForm{m_desktop, *this};
    game::GameState& m_game = m_mainForm.state();
    QPlainTextEdit* m_report = test::find<QPlainTextEdit>(m_mainForm, "txtLog");
    std::unique_ptr<QDialog> m_dialog;
    QWidget* m_window = &m_mainForm;
    ui::Answer m_answer = ui::Answer::Yes;
    QMap<int, QString> m_meanwhile;  ///< what to do during which wait
    int m_waits = 0;
    QMap<QString, QString> m_screen;
    QString m_told;
};

TEST(Windows, DoAsApproved) {
    std::optional<Stage> stage;
    test::expectScripts("dialogs.txt", [&stage](const std::string& line) {
        if (line.starts_with(">> ")) {
            return stage->act(QString::fromStdString(line.substr(3)));
        }
        stage.emplace(QString::fromStdString(line.substr(2)));
        return std::string{};
    });
}

TEST(Statistics, LetATrillionaireRetireWithoutAQuestion) {
    test::FakeDesktop desktop;
    test::Unlucky random;
    ui::frmMain mainForm{desktop, random};
    mainForm.state().gcurNetWorth = game::trillion;
    ui::frmStats statistics{mainForm, ui::frmStats::Occasion::Trillionaire};
    EXPECT_THROW(test::act(statistics, "click cmdRetire"), test::ProgramEnded);
}

TEST(Report, ShowsWhatIsKeptAndNoMore) {
    test::FakeDesktop desktop;
    test::Unlucky random;
    ui::frmMain mainForm{desktop, random};
    mainForm.beginGame(" - Welcome Captain");
    const QString date = QString::fromStdString(game::dateText(mainForm.state().gdtmDate));
    QString expected = date + " - Welcome Captain";
    for (int entry = 0; entry < 300; ++entry) {
        mainForm.appendEntry(" - " + std::string(80, 'x'));
        mainForm.UpdateMainForm();
        expected = (expected + "\r\n" + date + " - " + QString(80, 'x')).right(20'000);
        ASSERT_EQ(test::textOf(*test::find<QWidget>(mainForm, "txtLog")),
                  QString(expected).remove('\r'));
    }
    mainForm.show();
    auto* bar = test::find<QPlainTextEdit>(mainForm, "txtLog")->verticalScrollBar();
    for (const bool reading : {true, false}) {  // who reads what was before is left alone
        bar->setValue(reading ? 0 : bar->maximum());
        mainForm.appendText(std::string(1'000, '.'));
        EXPECT_EQ(bar->value(), reading ? 0 : bar->maximum());
    }
}

}  // namespace
