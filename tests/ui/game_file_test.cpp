#include "game_file.h"

#include <gtest/gtest.h>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QtCore>
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
struct GameFile : testing::Test {
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
    bool makePipe(const char* name) const { return mkfifo(qPrintable(path(name)), 0666) == 0; }
    QStringList files() const {
        return QDir(scratch.path()).entryList(QDir::Files | QDir::Hidden | QDir::NoSymLinks);
    }
};

/// Root may do everything; while one of these lives, so much is forbidden as to anybody else.
struct WithoutPrivileges {
    WithoutPrivileges() { EXPECT_EQ(getuid() == 0 ? seteuid(65'534) : 0, 0); }
    ~WithoutPrivileges() { EXPECT_EQ(seteuid(getuid()), 0); }
};

std::string failureOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const ui::FileError& error) {
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

TEST_F(GameFile, KeepsWhatIsAbsurdAndAccentsAlsoOfOtherSystems) {
    std::vector<GameState> games = test::absurdGames();
    games.push_back(
        test::newGameWith([](GameState& s) { s.gstrFirm = "\uFEFFH\u00E9l\u00E8ne & \u4E2D"; }));
    for (const GameState& state : games) {
        ui::writeGameFile(file, state);
        ASSERT_EQ(textOf(ui::readGameFile(file)), textOf(state));
    }
    EXPECT_EQ(bytesOf(file), textOf(games.back()));
    write(file, textOf(oldGame).replace("Heron", "H\xE9ron \x80\x97"));
    EXPECT_EQ(ui::readGameFile(file).gstrFirm, "H\u00E9ron \u20AC\u2014 & Sons");
}

TEST_F(GameFile, RefusesToReadWhatIsNoSavedGame) {
    const QByteArray text = textOf(oldGame);
    for (const QByteArray& bytes :
         {QByteArray{}, QByteArray{text}.replace("Heron", QByteArray("\0", 1)),
          text.left(text.lastIndexOf('#', -4)), QByteArray(100'000'000, '"')}) {
        write(path("bad"), bytes);
        EXPECT_EQ(readFailure(path("bad")), "Not a saved game");
    }
    EXPECT_TRUE(QFile::resize(path("bad"), 4LL << 30) && makePipe("pipe"));
    for (const auto& [name, failure] : {std::pair{"bad", "Not a saved game"},
                                        {"gone", "No such file or directory"},
                                        {".", "Is a directory"},
                                        {"pipe", "Not a regular file"},
                                        {"/dev/zero", "Not a regular file"}}) {
        EXPECT_EQ(readFailure(QDir(scratch.path()).absoluteFilePath(name)), failure);
    }
    ASSERT_TRUE(QFile::setPermissions(scratch.path(), {}));
    const WithoutPrivileges mortal;
    EXPECT_EQ(readFailure(file), "Permission denied");
}

TEST_F(GameFile, LeavesAloneWhatCannotBeSavedTo) {
    ASSERT_TRUE(QDir(scratch.path()).mkdir("folder") && makePipe("pipe") &&
                QFile::link("loop", path("loop")));
    ASSERT_TRUE(QFile::link("pipe", path("link")));
    for (const char* name : {"folder", "pipe", "loop", "link"}) {
        struct stat before {};
        struct stat after {};
        ASSERT_EQ(lstat(qPrintable(path(name)), &before), 0);
        EXPECT_NE(writeFailure(path(name), newGame), "no failure") << name;
        ASSERT_EQ(lstat(qPrintable(path(name)), &after), 0);
        EXPECT_TRUE(before.st_ino == after.st_ino && before.st_mode == after.st_mode);
    }
    EXPECT_EQ(writeFailure(path(QString(300, 'n')), newGame), "File name too long");
    EXPECT_EQ(writeFailure(path("missing/game.zhb"), newGame), "No such file or directory");
    EXPECT_EQ(writeFailure(file, test::newGameWith([](auto& s) { s.gstrFirm = "two\nlines"; })),
              "The name of the firm cannot be saved");
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
    EXPECT_TRUE(QFileInfo(path("deep/deeper/deepest/second")).isSymLink());
}

TEST_F(GameFile, StaysWholeWhereverWritingFails) {
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    for (qsizetype room = 0; room < textOf(newGame).size(); ++room) {
        const rlimit limit{static_cast<rlim_t>(room), before.rlim_max};
        ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
        const std::string failure = writeFailure(file, newGame);
        ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &before), 0);
        ASSERT_EQ(failure, "File too large");
        ASSERT_EQ(bytesOf(file), textOf(oldGame)) << room;
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
            _exit(writeFailure(file, newGame) == "no failure" ? 0 : 1);
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
        ASSERT_LT(steps, 1'000);
    }
    EXPECT_EQ(bytesOf(file), textOf(newGame));
    EXPECT_GT(replaced, 1) << "never killed between the replacement and the end";
}

TEST_F(GameFile, IsSavedAndLoadedByItsCommands) {
    test::FakeMainForm form;
    form.record.gblnGameSaved = false;
    form.record.gblnGameOver = true;
    const GameState before = form.record;
    ui::saveGame(form);  // cancelled
    ui::loadGame(form);
    form.fakeDesktop.fileToSave = scratch.path();
    form.fakeDesktop.fileToLoad = path("gone");
    form.fakeDesktop.expect("Error Saving File   ", "Is a directory");
    ui::saveGame(form);
    form.fakeDesktop.expect("Error Opening File   ", "No such file or directory");
    ui::loadGame(form);
    EXPECT_EQ(form.fakeDesktop.lastButtons, "Stop: OK (both)");
    EXPECT_EQ(form.record, before);
    EXPECT_EQ(form.refreshes, 0);

    form.fakeDesktop.fileToSave = form.fakeDesktop.fileToLoad = path("no extension");
    ui::saveGame(form);
    EXPECT_EQ(bytesOf(path("no extension")), textOf(before));
    GameState expected = before;
    expected.gblnGameSaved = true;
    EXPECT_EQ(form.record, expected);
    form.record.gcurCash += 1;
    ui::loadGame(form);
    expected.gblnActiveGame = true;
    EXPECT_EQ(form.record, expected);
    EXPECT_EQ(form.refreshes, 1);
    EXPECT_EQ(form.report.take(), " - Game Saved Successfully\n - Game Loaded Successfully\n");
}
