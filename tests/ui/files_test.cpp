#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <csignal>

#include "approved.h"
#include "game_file.h"
#include "player.h"
#include "qt_desktop.h"
#include "saved_game.h"
#include "saved_games.h"

namespace {

using game::GameState;

QByteArray textOf(const GameState& state) {
    return QByteArray::fromStdString(game::writeSavedGame(state));
}

/// A folder of its own with a saved game in it, and a game that is richer since.
struct GameFile : testing::Test {
    QTemporaryDir folder;
    const GameState oldGame = test::newGame();
    const GameState newGame = test::newGame("Cash=12345");
    const QString file = path("game.zhb");

    GameFile() { write(file, textOf(oldGame)); }

    QString path(const QString& name) const { return QDir(folder.path()).absoluteFilePath(name); }
    static QByteArray bytesOf(const QString& path) {
        QFile opened(path);
        return opened.open(QIODevice::ReadOnly) ? opened.readAll() : QByteArray{"unreadable"};
    }
    static void write(const QString& path, const QByteArray& bytes) {
        QFile opened(path);
        ASSERT_TRUE(opened.open(QIODevice::WriteOnly) && opened.write(bytes) == bytes.size());
    }
    QStringList files() const {
        return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden | QDir::NoSymLinks);
    }
};

/// Why a file could not be read or, where there is a game for it, written; empty where it could.
std::string failureOf(const QString& path, const GameState* state = nullptr) {
    try {
        state != nullptr ? ui::writeGameFile(path, *state) : (void)ui::readGameFile(path);
    } catch (const ui::FileError& error) {
        return error.description.toStdString();
    }
    return {};
}

TEST_F(GameFile, KeepsAnyNameAndReadsAccentsOfOtherSystems) {
    for (const auto& firm :
         {std::string{"\uFEFFH\u00E9l\u00E8ne & \u4E2D"}, std::string{"two\u2028lines\u2029\r\x01"},
          std::string(10'000'000, 'W')}) {
        GameState named = oldGame;
        named.gstrFirm = firm;
        ui::writeGameFile(file, named);
        EXPECT_EQ(ui::readGameFile(file).gstrFirm, firm);
    }
    write(file, textOf(oldGame).replace("Heron", "H\xE9ron \x80\x97"));
    EXPECT_EQ(ui::readGameFile(file).gstrFirm, "H\u00E9ron \u20AC\u2014 & Sons");
}

TEST_F(GameFile, TellsWhyItCannotBeReadOrWrittenAsApproved) {
    write(path("zero"), textOf(oldGame).replace("Heron", QByteArray("\0", 1)));
    write(path("huge"), QByteArray(100'000'000, '"'));
    write(path("ours"), textOf(oldGame));
    ASSERT_TRUE(QFile::resize(path("huge"), 4LL << 30) && QFile::link("loop", path("loop")) &&
                QFile::link("pipe", path("link")) && mkfifo(qPrintable(path("pipe")), 0666) == 0 &&
                chmod(qPrintable(path("ours")), 0666) == 0 && chmod(qPrintable(file), 0444) == 0 &&
                chmod(qPrintable(folder.path()), 0555) == 0);
    test::expectScripts("files.txt", [this](const std::string& line) {
        const QStringList words = QString::fromStdString(line).split(' ');
        EXPECT_EQ(getuid() == 0 && words.endsWith("anybody") ? seteuid(65'534) : 0, 0);
        const bool writes = words.at(1) == "write";
        const std::string failure = failureOf(path(words.at(2)), writes ? &newGame : nullptr);
        EXPECT_EQ(seteuid(getuid()), 0);
        return failure.empty() ? "" : failure + "\n";
    });
    EXPECT_EQ(chmod(qPrintable(folder.path()), 0755), 0);
    EXPECT_EQ(bytesOf(path("ours")), textOf(newGame));
    GameState broken = newGame;
    broken.gstrFirm = "two\nlines";
    EXPECT_EQ(failureOf(file, &broken), "The name of the firm cannot be saved");
    EXPECT_EQ(failureOf(path(QString(300, 'n')), &newGame), "File name too long");
    EXPECT_EQ(bytesOf(file), textOf(oldGame));
    EXPECT_TRUE(QFileInfo(path("link")).isSymLink() && QFileInfo(path("loop")).isSymLink());
}

TEST_F(GameFile, FollowsLinksAndKeepsThem) {
    ASSERT_TRUE(QDir(folder.path()).mkpath("deep/deeper/deepest"));
    write(path("deep/target"), textOf(oldGame));
    ASSERT_TRUE(QFile::link("deeper/deepest", path("deep/shortcut")) &&
                QFile::link("../../target", path("deep/deeper/deepest/second")) &&
                QFile::link("deep/shortcut/second", path("first")) &&
                QFile::link(path("not there yet"), path("dangling")));
    for (const auto& [link, target] :
         {std::pair{"first", "deep/target"}, {"dangling", "not there yet"}}) {
        ui::writeGameFile(path(link), newGame);
        EXPECT_TRUE(QFileInfo(path(link)).isSymLink() && !QFileInfo(path(target)).isSymLink());
        EXPECT_EQ(bytesOf(path(target)), textOf(newGame));
    }
}

TEST_F(GameFile, StaysWholeWhereverWritingFails) {
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    for (qsizetype room = 0; room < textOf(newGame).size(); ++room) {
        const rlimit limit{static_cast<rlim_t>(room), before.rlim_max};
        ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
        const std::string failure = failureOf(file, &newGame);
        ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &before), 0);
        ASSERT_EQ(failure, "File too large");
        ASSERT_EQ(bytesOf(file), textOf(oldGame));
        ASSERT_EQ(files(), QStringList{"game.zhb"});
    }
}

TEST_F(GameFile, StaysWholeWheneverTheProgramIsKilled) {
    constexpr int untraceable = 77;
    int replaced = 0;
    for (int steps = 0, status = -1; !WIFEXITED(status); ++steps) {  // into or out of a call
        for (const QString& name : files()) {  // what a killed program leaves half written
            QFile::remove(path(name));
        }
        write(file, textOf(oldGame));
        const pid_t child = fork();
        if (child == 0) {
            if (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) {
                _exit(untraceable);
            }
            std::raise(SIGSTOP);
            _exit(failureOf(file, &newGame).empty() ? 0 : 1);
        }
        ASSERT_EQ(waitpid(child, &status, 0), child);
        for (int step = 0; step < steps && !WIFEXITED(status); ++step) {
            ASSERT_EQ(ptrace(PTRACE_SYSCALL, child, nullptr, nullptr), 0);
            ASSERT_EQ(waitpid(child, &status, 0), child);
        }
        if (WIFEXITED(status) && WEXITSTATUS(status) == untraceable) {
            GTEST_SKIP() << "this system lets no program watch another";
        }
        if (!WIFEXITED(status)) {
            int killed = 0;
            ASSERT_TRUE(kill(child, SIGKILL) == 0 && waitpid(child, &killed, 0) == child);
        }
        const bool isNew = bytesOf(file) == textOf(newGame);
        ASSERT_TRUE(isNew || bytesOf(file) == textOf(oldGame)) << "killed at step " << steps;
        replaced += isNew ? 1 : 0;
    }
    EXPECT_EQ(bytesOf(file), textOf(newGame));
    EXPECT_GT(replaced, 1) << "never killed between the replacement and the end";
}

/// What the player does in the next dialog, which has to close with it.
void inNextDialog(const std::function<void(QDialog&)>& act) {
    QTimer::singleShot(0, qApp, [act] {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr) << "no dialog opened";
        act(*dialog);
        EXPECT_TRUE(dialog->isHidden()) << "it is still open";
        dialog->close();
    });
}

TEST_F(GameFile, IsChosenAmongEveryFileAndFoundAgain) {
    write(path("no dot"), {});
    qputenv("HOME", folder.path().toLocal8Bit());
    QWidget owner;
    ui::QtDesktop desktop;
    inNextDialog([&](QDialog& dialog) {
        auto* filters = test::find<QComboBox>(dialog, "fileTypeCombo");
        const auto* view = test::find<QAbstractItemView>(dialog, "listView");
        for (const auto& [filter, listed] :
             {std::pair{"Saved Game Files (*.zhb)", 1}, {"All Files (*.*)", 2}}) {
            EXPECT_EQ(filters->currentText(), filter);
            EXPECT_TRUE(QTest::qWaitFor(
                [&, rows = listed] { return view->model()->rowCount(view->rootIndex()) == rows; }));
            filters->setCurrentIndex(1);
            emit filters->activated(1);
        }
        test::act(dialog, "paste fileNameEdit as typed");
        test::act(dialog, "press fileNameEdit Return");
    });
    EXPECT_EQ(desktop.chooseFileToSave(&owner), path("as typed"));
    desktop.rememberFile(path("as typed"));
    inNextDialog([&](QDialog& dialog) {
        EXPECT_EQ(test::find<QLineEdit>(dialog, "fileNameEdit")->text(), "as typed");
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    EXPECT_EQ(desktop.chooseFileToSave(&owner), QString{});
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
              (QStringList{"game.zhb", "no dot"}))
        << "something is left behind";
}

/// The real file dialogs of a main window, and what its boxes told.
struct Files final : ui::QtDesktop {
    QStringList told;
    ui::Answer show(QWidget* /*owner*/, const ui::Box& box) override {
        told << box.title + '|' + box.text;
        return ui::Answer::Ok;
    }
};

TEST_F(GameFile, IsLoadedByItsNameAndRememberedIfThereIsOne) {
    ASSERT_TRUE(QDir(folder.path()).mkdir("deep"));
    write(path("deep/plainname"), textOf(newGame));
    qputenv("HOME", folder.path().toLocal8Bit());
    Files desktop;
    game::Generator chance(1);
    ui::frmMain mainForm(desktop, chance);
    const auto confirm = [](QDialog& dialog, const QString& name) {
        test::act(dialog, "paste fileNameEdit " + name);
        test::act(dialog, "press fileNameEdit Return");
    };
    inNextDialog([&](QDialog& dialog) {
        confirm(dialog, "deep");
        EXPECT_TRUE(dialog.isVisible()) << "a folder is opened and not chosen";
        EXPECT_EQ(dynamic_cast<QFileDialog&>(dialog).directory(), QDir(path("deep")));
        confirm(dialog, "nowhere");
    });
    ui::loadGame(mainForm);
    EXPECT_EQ(desktop.told.join(' '), "No such file or directory|Error Opening File   ");
    inNextDialog([&](QDialog& dialog) { confirm(dialog, "deep/plainname"); });
    ui::loadGame(mainForm);
    EXPECT_EQ(mainForm.state().gcurCash, newGame.gcurCash);
    inNextDialog([&](QDialog& dialog) { confirm(dialog, "/proc/none.zhb"); });
    ui::saveGame(mainForm);
    EXPECT_EQ(desktop.told.size(), 2);
    inNextDialog([&](QDialog& dialog) {
        EXPECT_EQ(dynamic_cast<QFileDialog&>(dialog).directory(), QDir(path("deep")));
        EXPECT_EQ(test::find<QLineEdit>(dialog, "fileNameEdit")->text(), "plainname");
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    ui::saveGame(mainForm);
}

}  // namespace
