#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>

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

/// Why a file could not be read or, if a game is given, written; empty on success.
std::string failureOf(const QString& path, const GameState* state = nullptr) {
    try {
        state != nullptr ? ui::writeGameFile(path, *state) : (void)ui::readGameFile(path);
    } catch (const ui::FileError& error) {
        return error.description.toStdString();
    }
    return {};
}

/// A folder with a saved game in it, and a game that has gone on since.
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
};

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

TEST_F(GameFile, FailureNamesItsReason) {
    write(path("huge"), QByteArray(100'000'000, '"'));
    write(path("ours"), textOf(oldGame));
    ASSERT_TRUE(QFile::resize(path("huge"), 4LL << 30) && QFile::link("loop", path("loop")) &&
                QFile::link("pipe", path("link")) && mkfifo(qPrintable(path("pipe")), 0666) == 0 &&
                chmod(qPrintable(path("ours")), 0666) == 0 && chmod(qPrintable(file), 0444) == 0 &&
                chmod(qPrintable(folder.path()), 0555) == 0);  // only root can add files to it
    enum class Act { Read, Write };
    using enum Act;
    const std::tuple<Act, QString, std::string> cases[]{
        {Read, "huge", "Not a saved game"},
        {Read, ".", "Is a directory"},
        {Read, "pipe", "Not a regular file"},
        {Write, ".", "Is a directory"},
        {Write, "link", "Not a regular file"},
        {Write, "loop", "Too many levels of symbolic links"},
        {Write, "new", "Permission denied"},
        {Write, "game.zhb", "Permission denied"},
        {Write, "ours", ""},
    };
    ASSERT_TRUE(getuid() != 0 || seteuid(65'534) == 0);  // root may write anywhere
    for (const auto& [act, name, reason] : cases) {
        EXPECT_EQ(failureOf(path(name), act == Read ? nullptr : &newGame), reason)
            << name.toStdString();
    }
    ASSERT_EQ(seteuid(getuid()), 0);
    EXPECT_EQ(chmod(qPrintable(folder.path()), 0755), 0);
    EXPECT_EQ(bytesOf(path("ours")), textOf(newGame));
    GameState broken = newGame;
    broken.gstrFirm = "two\nlines";
    EXPECT_EQ(failureOf(file, &broken), "The name of the firm cannot be saved");
    EXPECT_EQ(bytesOf(file), textOf(oldGame));
}

TEST_F(GameFile, WritingReplacesFilesBehindLinks) {
    ASSERT_TRUE(QDir(folder.path()).mkpath("deep/deeper") &&
                QFile::link("deep/deeper", path("shortcut")) &&
                QFile::link("../../game.zhb", path("deep/deeper/second")) &&
                QFile::link("shortcut/second", path("first")) &&
                QFile::link(path("not there yet"), path("dangling")));
    QFile old(file);
    ASSERT_TRUE(old.open(QIODevice::ReadOnly));
    for (const auto& [link, target] :
         {std::pair{"first", "game.zhb"}, {"dangling", "not there yet"}}) {
        ui::writeGameFile(path(link), newGame);
        EXPECT_TRUE(QFileInfo(path(link)).isSymLink() && !QFileInfo(path(target)).isSymLink());
        EXPECT_EQ(bytesOf(path(target)), textOf(newGame));
    }
    EXPECT_EQ(old.readAll(), textOf(oldGame)) << "written over, not replaced";
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
        ASSERT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).join(' '), "game.zhb");
    }
}

/// The real file dialogs, with the boxes that follow them written down.
struct Files final : ui::QtDesktop {
    QStringList boxes;
    ui::Answer show(QWidget* /*owner*/, const ui::Box& box) override {
        boxes << box.title;
        return ui::Answer::Ok;
    }
};

TEST_F(GameFile, DialogTakesAnyNameAndRemembersWhatWorked) {
    ASSERT_TRUE(QDir(folder.path()).mkdir("deep"));
    write(path("deep/no dot"), textOf(newGame));
    write(path("deep/game.zhb"), {});
    Files desktop;
    game::Generator chance(1);
    ui::frmMain mainForm(desktop, chance);
    const auto inNextDialog = [](const std::function<void(QFileDialog&)>& play) {
        QTimer::singleShot(0, qApp, [play] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr) << "no dialog opened";
            test::activate(*dialog);
            play(*dialog);
            EXPECT_TRUE(dialog->isHidden()) << "it is still open";
            dialog->close();
        });
    };
    const auto confirm = [](QFileDialog& dialog, const QString& typed) {
        auto* name = test::find<QLineEdit>(dialog, "fileNameEdit");
        name->setText(typed);
        test::press(name, {"Return"});
    };
    inNextDialog([&](QFileDialog& dialog) {
        confirm(dialog, path("deep"));  // a folder is opened and not chosen
        EXPECT_EQ(dialog.directory(), QDir(path("deep")));
        EXPECT_EQ(test::find<QLineEdit>(dialog, "fileNameEdit")->text(), "");
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
        confirm(dialog, "no dot");
    });
    ui::loadGame(mainForm);
    EXPECT_EQ(mainForm.state().gcurCash, newGame.gcurCash);
    inNextDialog([&](QFileDialog& dialog) { confirm(dialog, "nowhere"); });
    ui::loadGame(mainForm);
    inNextDialog([&](QFileDialog& dialog) { confirm(dialog, "/proc/none.zhb"); });
    ui::saveGame(mainForm);
    EXPECT_EQ(desktop.boxes.size(), 2) << desktop.boxes.join('|').toStdString();
    inNextDialog([&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.directory(), QDir(path("deep")));
        EXPECT_EQ(test::find<QLineEdit>(dialog, "fileNameEdit")->text(), "no dot");
        confirm(dialog, "as typed");
    });
    ui::saveGame(mainForm);
    EXPECT_EQ(ui::readGameFile(path("deep/as typed")).gcurCash, newGame.gcurCash);
}

}  // namespace
