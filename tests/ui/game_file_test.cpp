#include "game_file.h"

#include <gtest/gtest.h>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <csignal>
#include <tuple>

#include "absurd_games.h"
#include "fake_main_form.h"
#include "saved_game.h"
#include "saved_games.h"

namespace {

using game::GameState;

QByteArray textOf(const GameState& state) {
    return QByteArray::fromStdString(game::writeSavedGame(state));
}

/// A folder of its own with a saved game in it, and a game that is richer since.
class GameFile : public testing::Test {
protected:
    QTemporaryDir scratch;
    const GameState oldGame = test::newGame();
    const GameState newGame = test::newGameWith([](GameState& state) { state.gcurCash = 12'345; });
    const QString file = path("game.zhb");

    GameFile() { write(file, textOf(oldGame)); }

    QString path(const QString& name) const { return scratch.filePath(name); }
    static QByteArray bytesOf(const QString& path) {
        QFile opened(path);
        return opened.open(QIODevice::ReadOnly) ? opened.readAll() : QByteArray{"unreadable"};
    }
    static void write(const QString& path, const QByteArray& bytes) {
        QFile opened(path);
        ASSERT_TRUE(opened.open(QIODevice::WriteOnly) && opened.write(bytes) == bytes.size());
    }
    bool makeSpecial(const QString& name, mode_t kind, dev_t device = 0) const {
        return mknod(qPrintable(path(name)), kind | 0666, device) == 0;
    }
    QStringList files() const {
        return QDir(scratch.path()).entryList(QDir::Files | QDir::Hidden | QDir::NoSymLinks);
    }
};

/// Root may do everything; while one of these lives, so much is forbidden as to anybody else.
struct WithoutPrivileges {
    WithoutPrivileges() {
        if (getuid() == 0) {
            EXPECT_EQ(seteuid(65'534), 0);
        }
    }
    ~WithoutPrivileges() { EXPECT_EQ(seteuid(getuid()), 0); }
};

std::string failureOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const ui::FileError& error) {
        EXPECT_FALSE(error.description.isEmpty());
        return error.description.toStdString();
    }
    return "no failure";
}
std::string readFailure(const QString& path) {
    return failureOf([&] { std::ignore = ui::readGameFile(path); });
}
std::string writeFailure(const QString& path, const GameState& state) {
    return failureOf([&] { ui::writeGameFile(path, state); });
}

}  // namespace

TEST_F(GameFile, KeepsAccentsAndReadsThoseOfOtherSystems) {
    const GameState state =
        test::newGameWith([](GameState& s) { s.gstrFirm = "\uFEFFH\u00E9l\u00E8ne & \u4E2D"; });
    ui::writeGameFile(file, state);
    EXPECT_EQ(bytesOf(file), textOf(state));
    EXPECT_EQ(ui::readGameFile(file).gstrFirm, state.gstrFirm);
    write(file, textOf(oldGame).replace("Heron", "H\xE9ron \x80\x97"));
    EXPECT_EQ(ui::readGameFile(file).gstrFirm, "H\u00E9ron \u20AC\u2014 & Sons");
}

TEST_F(GameFile, LoadsWhatIsAbsurdButWellFormed) {
    for (const GameState& state : test::absurdGames()) {
        ui::writeGameFile(file, state);
        ASSERT_EQ(game::writeSavedGame(ui::readGameFile(file)), game::writeSavedGame(state));
    }
}

TEST_F(GameFile, RefusesToReadWhatIsNoSavedGame) {
    const QByteArray text = textOf(oldGame);
    QByteArray utf16("\xFF\xFE");
    for (const char byte : text) {
        utf16.append(byte).append('\0');
    }
    QByteArray withNul = text;
    for (const QByteArray& bytes :
         {QByteArray{}, utf16, withNul.replace("Heron", QByteArray("\0", 1)),
          text.left(text.lastIndexOf('#', -4)), QByteArray(100'000'000, '"')}) {
        write(path("bad.zhb"), bytes);
        EXPECT_EQ(readFailure(path("bad.zhb")), "Not a saved game");
    }
    EXPECT_TRUE(QFile::resize(path("bad.zhb"), 4LL << 30));
    EXPECT_EQ(readFailure(path("bad.zhb")), "Not a saved game");

    EXPECT_EQ(readFailure(path("gone.zhb")), "No such file or directory");
    EXPECT_EQ(readFailure(scratch.path()), "Is a directory");
    ASSERT_TRUE(makeSpecial("pipe", S_IFIFO));
    EXPECT_EQ(readFailure(path("pipe")), "Not a regular file");
    EXPECT_EQ(readFailure("/dev/zero"), "Not a regular file");
    ASSERT_TRUE(QFile::setPermissions(scratch.path(), {}));
    const WithoutPrivileges mortal;
    EXPECT_EQ(readFailure(file), "Permission denied");
}

TEST_F(GameFile, LeavesAloneWhatCannotBeSavedTo) {
    ASSERT_TRUE(QDir(scratch.path()).mkdir("folder"));
    ASSERT_TRUE(makeSpecial("pipe", S_IFIFO));
    ASSERT_TRUE(QFile::link("loop", path("loop")));
    QStringList targets{"folder", "pipe", "loop"};
    if (makeSpecial("null", S_IFCHR, makedev(1, 3))) {  // a privilege of root
        targets.append("null");
        ASSERT_TRUE(QFile::link("null", path("link to null")));
        targets.append("link to null");
    }
    for (const QString& name : targets) {
        struct stat before {};
        struct stat after {};
        ASSERT_EQ(lstat(qPrintable(path(name)), &before), 0);
        EXPECT_NE(writeFailure(path(name), newGame), "no failure") << name.toStdString();
        ASSERT_EQ(lstat(qPrintable(path(name)), &after), 0);
        EXPECT_EQ(before.st_ino, after.st_ino);
        EXPECT_EQ(before.st_mode, after.st_mode);
    }
    EXPECT_EQ(writeFailure(path(QString(300, 'n')), newGame), "File name too long");
    EXPECT_EQ(writeFailure(path("missing/game.zhb"), newGame), "No such file or directory");
    const GameState unreadable =
        test::newGameWith([](GameState& state) { state.gstrFirm = "two\nlines"; });
    EXPECT_EQ(writeFailure(file, unreadable), "The name of the firm cannot be saved");
    ASSERT_EQ(chmod(qPrintable(scratch.path()), 0555), 0);
    {
        const WithoutPrivileges mortal;
        EXPECT_EQ(writeFailure(path("new.zhb"), newGame), "Permission denied");
        EXPECT_NE(writeFailure(file, newGame), "no failure");
    }
    EXPECT_EQ(bytesOf(file), textOf(oldGame));
    EXPECT_EQ(files(), QStringList{"game.zhb"});
}

TEST_F(GameFile, FollowsLinksAndKeepsThem) {
    ASSERT_TRUE(QDir(scratch.path()).mkpath("deep/deeper/deepest"));
    write(path("deep/target"), textOf(oldGame));
    ASSERT_TRUE(QFile::link("deeper/deepest", path("deep/shortcut")));
    ASSERT_TRUE(QFile::link("../../target", path("deep/deeper/deepest/second")));
    ASSERT_TRUE(QFile::link("deep/shortcut/second", path("first")));
    ASSERT_TRUE(QFile::link(path("not there yet"), path("dangling")));
    const std::vector<std::pair<QString, QString>> links{{"first", "deep/target"},
                                                         {"dangling", "not there yet"}};
    for (const auto& [link, target] : links) {
        ui::writeGameFile(path(link), newGame);
        EXPECT_TRUE(QFileInfo(path(link)).isSymLink());
        EXPECT_FALSE(QFileInfo(path(target)).isSymLink());
        EXPECT_EQ(bytesOf(path(target)), textOf(newGame));
    }
    EXPECT_TRUE(QFileInfo(path("deep/deeper/deepest/second")).isSymLink());
}

TEST_F(GameFile, StaysWholeWhereverWritingFails) {
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    const QByteArray text = textOf(newGame);
    for (qsizetype room = 0; room < text.size(); ++room) {
        const rlimit limit{static_cast<rlim_t>(room), before.rlim_max};
        ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
        const std::string failure = writeFailure(file, newGame);
        ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &before), 0);
        ASSERT_EQ(failure, "File too large");
        ASSERT_EQ(bytesOf(file), textOf(oldGame)) << room;
        ASSERT_EQ(files(), QStringList{"game.zhb"});
    }
    ui::writeGameFile(file, newGame);
    EXPECT_EQ(bytesOf(file), text);
}

TEST_F(GameFile, StaysWholeWheneverTheProgramIsKilled) {
    constexpr int untraceable = 77;
    bool finished = false;
    int replaced = 0;
    for (int steps = 0; !finished; ++steps) {  // a step: into a system call, or out of it
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
            _exit(writeFailure(file, newGame) == "no failure" ? 0 : 1);
        }
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        for (int step = 0; step < steps && !WIFEXITED(status); ++step) {
            ASSERT_EQ(ptrace(PTRACE_SYSCALL, child, nullptr, nullptr), 0);
            ASSERT_EQ(waitpid(child, &status, 0), child);
        }
        if (WIFEXITED(status) && WEXITSTATUS(status) == untraceable) {
            GTEST_SKIP() << "this system lets no program watch another";
        }
        finished = WIFEXITED(status);
        if (!finished) {
            ASSERT_EQ(kill(child, SIGKILL), 0);
            ASSERT_EQ(waitpid(child, &status, 0), child);
        }
        const bool isNew = bytesOf(file) == textOf(newGame);
        ASSERT_TRUE(isNew || bytesOf(file) == textOf(oldGame)) << "killed at step " << steps;
        replaced += isNew ? 1 : 0;
        ASSERT_LT(steps, 1'000);
    }
    EXPECT_EQ(bytesOf(file), textOf(newGame));
    EXPECT_GT(replaced, 1) << "never killed between the replacement and the end";
}

TEST_F(GameFile, IsSavedByItsCommand) {
    test::FakeMainForm form;
    form.record.gblnGameSaved = false;
    const GameState before = form.record;
    ui::saveGame(form);  // cancelled
    form.fakeDesktop.fileToSave = scratch.path();
    form.fakeDesktop.expect("Error Saving File   ", "Is a directory");
    ui::saveGame(form);
    EXPECT_EQ(form.fakeDesktop.lastBox.icon, ui::Icon::Stop);
    EXPECT_EQ(form.record, before);
    EXPECT_EQ(form.report.take(), "");

    form.fakeDesktop.fileToSave = path("no extension");
    ui::saveGame(form);
    EXPECT_EQ(bytesOf(path("no extension")), textOf(before));
    EXPECT_TRUE(form.record.gblnGameSaved);
    EXPECT_EQ(form.report.take(), " - Game Saved Successfully\n");
}

TEST_F(GameFile, IsLoadedByItsCommand) {
    test::FakeMainForm form;
    form.record = GameState{};
    form.record.gblnGameOver = true;
    const GameState before = form.record;
    ui::loadGame(form);  // cancelled
    write(path("short"), textOf(newGame).chopped(9));
    form.fakeDesktop.fileToLoad = path("short");
    form.fakeDesktop.expect("Error Opening File   ", "Not a saved game");
    ui::loadGame(form);
    EXPECT_EQ(form.fakeDesktop.lastBox.icon, ui::Icon::Stop);
    EXPECT_EQ(form.record, before);
    EXPECT_EQ(form.refreshes, 0);
    EXPECT_EQ(form.report.take(), "");

    form.fakeDesktop.fileToLoad = file;
    ui::loadGame(form);
    EXPECT_EQ(textOf(form.record), textOf(oldGame));
    EXPECT_TRUE(form.record.gblnActiveGame && form.record.gblnGameSaved &&
                form.record.gblnGameOver);
    EXPECT_EQ(form.refreshes, 1);
    EXPECT_EQ(form.report.take(), " - Game Loaded Successfully\n");
}
