#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <csignal>

#include "absurd_games.h"
#include "game_file.h"
#include "player.h"
#include "qt_desktop.h"
#include "saved_game.h"

namespace {

using game::GameState;
using test::inNextDialog;

QByteArray textOf(const GameState& state) {
    return QByteArray::fromStdString(game::writeSavedGame(state));
}

/// A folder of its own with a saved game in it, and a game that is richer since.
struct GameFile : testing::Test {
    QTemporaryDir folder;
    const GameState oldGame = test::newGame();
    const GameState newGame = test::newGameWith([](GameState& state) { state.gcurCash = 12'345; });
    const QString file = path("game.zhb");

    GameFile() { write(file, textOf(oldGame)); }

    QString path(const QString& name) const { return folder.filePath(name); }
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
    void expectOnly(const GameState& state) const {
        EXPECT_EQ(bytesOf(file), textOf(state));
        EXPECT_EQ(files(), QStringList{"game.zhb"});
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
    return failureOf([&] { (void)ui::readGameFile(path); });
}
std::string writeFailure(const QString& path, const GameState& state) {
    return failureOf([&] { ui::writeGameFile(path, state); });
}

TEST_F(GameFile, KeepsWhatIsAbsurdAndAccentsAlsoOfOtherSystems) {
    std::vector<GameState> games = test::absurdGames();
    games.push_back(
        test::newGameWith([](GameState& s) { s.gstrFirm = "\uFEFFH\u00E9l\u00E8ne & \u4E2D"; }));
    for (const GameState& state : games) {
        ui::writeGameFile(file, state);
        ASSERT_EQ(textOf(ui::readGameFile(file)), textOf(state));
    }
    write(file, textOf(oldGame).replace("Heron", "H\xE9ron \x80\x97"));
    EXPECT_EQ(ui::readGameFile(file).gstrFirm, "H\u00E9ron \u20AC\u2014 & Sons");
}

TEST_F(GameFile, TellsWhyItCannotBeReadOrWritten) {
    write(path("zero"), textOf(oldGame).replace("Heron", QByteArray("\0", 1)));
    write(path("huge"), QByteArray(100'000'000, '"'));
    ASSERT_TRUE(QFile::resize(path("huge"), 4LL << 30));
    ASSERT_EQ(mkfifo(qPrintable(path("pipe")), 0666), 0);
    ASSERT_TRUE(QFile::link("loop", path("loop")) && QFile::link("pipe", path("link")));
    for (const auto& [name, failure] : {std::pair{"zero", "Not a saved game"},
                                        {"huge", "Not a saved game"},
                                        {"gone", "No such file or directory"},
                                        {".", "Is a directory"},
                                        {"pipe", "Not a regular file"},
                                        {"/dev/zero", "Not a regular file"}}) {
        EXPECT_EQ(readFailure(QDir(folder.path()).absoluteFilePath(name)), failure);
    }
    for (const auto& [name, failure] : {std::pair{".", "Is a directory"},
                                        {"pipe", "Not a regular file"},
                                        {"link", "Not a regular file"},
                                        {"loop", "Too many levels of symbolic links"},
                                        {"missing/game.zhb", "No such file or directory"}}) {
        EXPECT_EQ(writeFailure(path(name), newGame), failure);
    }
    EXPECT_EQ(writeFailure(path(QString(300, 'n')), newGame), "File name too long");
    EXPECT_EQ(writeFailure(file, test::newGameWith([](auto& s) { s.gstrFirm = "two\nlines"; })),
              "The name of the firm cannot be saved");
    EXPECT_TRUE(QFileInfo(path("link")).isSymLink() && QFileInfo(path("loop")).isSymLink());
    ASSERT_EQ(chmod(qPrintable(folder.path()), 0555) + chmod(qPrintable(path("zero")), 0666), 0);
    const WithoutPrivileges mortal;
    EXPECT_EQ(writeFailure(path("new.zhb"), newGame), "Permission denied");
    EXPECT_EQ(writeFailure(file, newGame), "Permission denied");
    EXPECT_EQ(writeFailure(path("zero"), newGame), "no failure");
    EXPECT_EQ(bytesOf(file) + bytesOf(path("zero")), textOf(oldGame) + textOf(newGame));
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
        const std::string failure = writeFailure(file, newGame);
        ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &before), 0);
        ASSERT_EQ(failure, "File too large");
        expectOnly(oldGame);
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
    }
    EXPECT_EQ(bytesOf(file), textOf(newGame));
    EXPECT_GT(replaced, 1) << "never killed between the replacement and the end";
}

/// Whether the open dialog comes to list exactly these files.
bool lists(QDialog& dialog, const QStringList& expected) {
    auto* view = test::find<QAbstractItemView>(dialog, "listView");
    return QTest::qWaitFor([&] {
        QStringList names;
        for (int row = 0; row < view->model()->rowCount(view->rootIndex()); ++row) {
            names.append(view->model()->index(row, 0, view->rootIndex()).data().toString());
        }
        names.sort();
        return names == expected;
    });
}

TEST_F(GameFile, IsChosenAmongEveryFileAndFoundAgain) {
    write(path("no dot"), {});
    qputenv("HOME", folder.path().toLocal8Bit());
    QWidget owner;
    ui::QtDesktop desktop;
    inNextDialog([&](QDialog& dialog) {
        auto* filters = test::find<QComboBox>(dialog, "fileTypeCombo");
        EXPECT_EQ(filters->itemText(0), "Saved Game Files (*.zhb)");
        EXPECT_TRUE(lists(dialog, {"game.zhb"}));
        filters->setCurrentIndex(1);
        emit filters->activated(1);
        EXPECT_TRUE(filters->itemText(1) == "All Files (*.*)" &&
                    lists(dialog, {"game.zhb", "no dot"}));
        test::act(dialog, "paste fileNameEdit as typed");
        test::act(dialog, "press fileNameEdit Return");
    });
    EXPECT_EQ(desktop.chooseFileToSave(&owner), path("as typed"));
    inNextDialog([&](QDialog& dialog) {
        EXPECT_EQ(test::shown(dialog, "fileNameEdit"), "as typed");
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    EXPECT_EQ(desktop.chooseFileToSave(&owner), QString{});
}

TEST(MessageBox, HasRoomForTheReasonInItsTitleAndAnswersAsItSays) {
    using ui::Answer;
    const ui::Box box{.text = "Error Saving File   ",
                      .title = "Too many levels of symbolic links",
                      .buttons = {Answer::Yes, Answer::No, Answer::Cancel},
                      .byDefault = Answer::No,
                      .onEscape = Answer::Cancel};
    QWidget owner;
    for (const auto& [key, answer] :
         {std::pair{Qt::Key_Return, Answer::No}, {Qt::Key_Escape, Answer::Cancel}}) {
        inNextDialog([&box, pressed = key](QDialog& dialog) {
            EXPECT_GT(dialog.width(), dialog.fontMetrics().horizontalAdvance(box.title) + 100);
            QTest::keyClick(&dialog, pressed);
        });
        EXPECT_EQ(ui::QtDesktop().show(&owner, box), answer);
    }
}

}  // namespace
