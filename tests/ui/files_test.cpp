#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <fstream>

#include "game_file.h"
#include "saved_game.h"
#include "stage.h"

namespace {

/// What `act` returns, or why it fails.
std::string resultOf(const std::function<std::string()>& act) {
    try {
        return act();
    } catch (const ui::FileError& error) {
        return error.description.toStdString();
    }
}
/// The cash of the game that a file holds.
std::string cashIn(const QString& path) {
    return resultOf([&path] { return plainText(ui::readGameFile(path).gcurCash); });
}

/// A folder with a saved game of $1,000 in it, and a game that has gone on to $12,345.
struct GameFile : testing::Test {
    QTemporaryDir folder;
    game::GameState newGame = test::newGame("Cash=12345");
    const QString file = path("game.zhb");

    GameFile() { ui::writeGameFile(file, test::newGame()); }

    QString path(const QString& name) const { return QDir(folder.path()).absoluteFilePath(name); }

    void run(const std::string& commands) const {
        const std::string inFolder = "cd '" + folder.path().toStdString() + "' && " + commands;
        ASSERT_EQ(std::system(inFolder.c_str()), 0);
    }
    std::string failureOfWriting(const QString& name) const {
        return resultOf([&] {
            ui::writeGameFile(path(name), newGame);
            return std::string{};
        });
    }
};

TEST_F(GameFile, KeepsAnyNameAndReadsAccentsOfOtherSystems) {
    for (const auto& firm :
         {std::string{"\uFEFFH\u00E9l\u00E8ne & \u4E2D"}, std::string{"two\u2028lines\u2029\r\x01"},
          std::string(10'000'000, 'W')}) {
        newGame.gstrFirm = firm;
        ui::writeGameFile(file, newGame);
        EXPECT_EQ(ui::readGameFile(file).gstrFirm, firm);
    }
    newGame.gstrFirm = "H\xE9ron \x80\x97";
    std::ofstream{file.toStdString()} << game::writeSavedGame(newGame);
    EXPECT_EQ(ui::readGameFile(file).gstrFirm, "H\u00E9ron \u20AC\u2014");
}

TEST_F(GameFile, FailureNamesItsReason) {
    run("ln -s loop loop && mkfifo pipe && ln -s pipe link && chmod 666 pipe");
    run("yes '\"' | tr -d '\\n' | head -c 100000000 >huge && truncate -s 4G huge");
    run("cp game.zhb ours && chmod 666 ours && chmod 444 game.zhb && chmod 555 .");
    ASSERT_TRUE(getuid() != 0 || seteuid(65'534) == 0);  // root may write anywhere
    EXPECT_EQ(cashIn(path("huge")), "Not a saved game");
    EXPECT_EQ(cashIn(path(".")), "Is a directory");
    EXPECT_EQ(cashIn(path("pipe")), "Not a regular file");
    EXPECT_EQ(failureOfWriting("."), "Is a directory");
    EXPECT_EQ(failureOfWriting("link"), "Not a regular file");
    EXPECT_EQ(failureOfWriting("loop"), "Too many levels of symbolic links");
    EXPECT_EQ(failureOfWriting("new"), "Permission denied");
    EXPECT_EQ(failureOfWriting("game.zhb"), "Permission denied");
    EXPECT_EQ(failureOfWriting("ours"), "") << "it can be written over, but not replaced";
    ASSERT_EQ(seteuid(getuid()), 0);
    run("chmod 755 .");
    EXPECT_EQ(cashIn(path("ours")), "12345");
    newGame.gstrFirm = "two\nlines";
    EXPECT_EQ(failureOfWriting("game.zhb"), "The name of the firm cannot be saved");
    EXPECT_EQ(cashIn(file), "1000");
}

TEST_F(GameFile, WritingReplacesFilesBehindLinks) {
    run("mkdir -p deep/deeper && ln -s deep/deeper shortcut && ln -s 'not there yet' dangling");
    run("ln -s ../../game.zhb deep/deeper/second && ln -s shortcut/second first && ln game.zhb "
        "old");
    for (const auto& [link, target] :
         {std::pair{"first", "game.zhb"}, {"dangling", "not there yet"}}) {
        EXPECT_EQ(failureOfWriting(link), "");
        EXPECT_TRUE(QFileInfo(path(link)).isSymLink() && !QFileInfo(path(target)).isSymLink());
        EXPECT_EQ(cashIn(path(target)), "12345");
    }
    EXPECT_EQ(cashIn(path("old")), "1000") << "written over, not replaced";
}

TEST_F(GameFile, StaysWholeWhereverWritingFails) {
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    for (rlim_t room = 0; room < game::writeSavedGame(newGame).size(); ++room) {
        const rlimit limit{room, before.rlim_max};
        ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
        const std::string failure = failureOfWriting("game.zhb");
        ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &before), 0);
        ASSERT_EQ(failure, "File too large");
        ASSERT_EQ(cashIn(file), "1000");
        ASSERT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).join(' '), "game.zhb");
    }
}

/// The stage with the real file dialogs.
class FileStage final : public test::Stage {
public:
    using Stage::Stage;

private:
    QString chooseFileToLoad(QWidget* owner) override { return QtDesktop::chooseFileToLoad(owner); }
    QString chooseFileToSave(QWidget* owner) override { return QtDesktop::chooseFileToSave(owner); }
};

TEST_F(GameFile, DialogTakesAnyNameAndRemembersWhatWorked) {
    run("mkdir deep && cp game.zhb deep && cp game.zhb 'deep/no dot'");
    FileStage stage("frmMain Cash=5 |", [this](QWidget& window, const QString& nameShown) {
        const auto& dialog = dynamic_cast<QFileDialog&>(window);
        EXPECT_EQ(dialog.directory(), QDir(path("deep")));
        EXPECT_EQ(test::find<QLineEdit>(dialog, "fileNameEdit")->text(), nameShown);
        if (dialog.acceptMode() == QFileDialog::AcceptSave) {
            EXPECT_FALSE(dialog.testOption(QFileDialog::DontConfirmOverwrite));
            return;
        }
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
    });
    const auto typed = [](const QString& name) {
        return "press fileNameEdit Ctrl+A > paste fileNameEdit " + name +
               " > press fileNameEdit Return";
    };
    // A folder is opened and not chosen.
    EXPECT_EQ(
        stage.act("choose mnuLoadItem > " + typed(path("deep")) + " > visit  > " + typed("no dot")),
        " - Game Loaded Successfully Cash=1000 NetWorth=1000");
    EXPECT_EQ(stage.act("choose mnuLoadItem > " + typed("nowhere")),
              "[No such file or directory] Error Opening File   |Critical Ok+-");
    EXPECT_EQ(stage.act("choose mnuSaveItem > " + typed("/proc/none.zhb")),
              "[No such file or directory] Error Saving File   |Critical Ok+-");
    EXPECT_EQ(stage.act("choose mnuSaveItem > visit no dot > " + typed("as typed")),
              " - Game Saved Successfully");
    EXPECT_EQ(cashIn(path("deep/as typed")), "1000");
}

}  // namespace
