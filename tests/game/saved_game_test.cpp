#include "saved_game.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>

#include "approved.h"
#include "games.h"
#include "targets.h"

namespace {

using game::GameState;

/// A record of nothing but different figures, and its file.
const GameState someGame = test::newGame(
    "Date=0001-10-09 Firm=Smith,Jones&Co, Cannons=4 Status=5 Hold=6 MaxHold=7 SOpium=8 SSilk=9 "
    "SArms=10 SGeneral=11 WOpium=12 WSilk=13 WArms=14 WGeneral=15 POpium=16 PSilk=17 PArms=18 "
    "PGeneral=19 Bank=20 Debt=21 Cash=22 PCannon=23 PShip=24 Payoff=25 Millionaire=yes "
    "NetWorth=26 Score=27");
const std::string someFile =
    "#0001-10-09#\r\n\"Smith,Jones&Co,\"\r\n\"Hong Kong\"\r\n4\r\n5\r\n6\r\n7\r\n8\r\n9\r\n10\r\n"
    "11\r\n12\r\n13\r\n14\r\n15\r\n16\r\n17\r\n18\r\n19\r\n20\r\n21\r\n22\r\n23\r\n24\r\n25\r\n"
    "#TRUE#\r\n";

/// A text with something else for whatever matches a pattern.
std::string with(const std::string& other, const std::string& pattern,
                 const std::string& text = someFile) {
    return std::regex_replace(text, std::regex(pattern), other);
}

TEST(SavedGame, IsTwentySixLinesReadInEveryWayTheyMayBeParted) {
    EXPECT_EQ(game::writeSavedGame(someGame), someFile);
    const std::string none = game::writeSavedGame({});
    EXPECT_TRUE(none.starts_with("#1899-12-30#") && none.ends_with("#FALSE#\r\n")) << none;
    EXPECT_EQ(test::changes(someGame, game::readSavedGame(someFile).value()),
              " Active=no Saved=no NetWorth=0 Score=0");
    const std::string bare = someFile.substr(0, someFile.size() - 2);
    for (const std::string& form :
         {someFile, bare, with("\n", "\r\n"), with(",", "\r\n"), bare + '\r', bare + ",anything",
          "\xEF\xBB\xBF" + someFile, someFile + '\xFF'}) {
        GameState state = test::newGame("Active=no Saved=no NetWorth=26 Score=27");
        game::resumeGame(state, game::readSavedGame(form).value());
        EXPECT_EQ(state, someGame) << form;
    }
    for (std::size_t length = 0; length < bare.size(); ++length) {
        EXPECT_FALSE(game::readSavedGame(someFile.substr(0, length))) << length;
    }
}

/// A script is the beginning of a line and, in brackets, what stands there instead.
TEST(SavedGame, HoldsValuesOfTheirKindsAsApproved) {
    test::expectScripts("saved_games.txt", [](const std::string& script) {
        const std::size_t end = script.find(" [");
        std::string value = script.substr(end + 2, script.size() - end - 3);
        value = with("\r\n", R"(\\n)", with(std::string(1, '\0'), R"(\\0)", value));
        const auto read = game::readSavedGame(with(value, script.substr(2, end - 2) + ".*"));
        GameState state = someGame;
        game::resumeGame(state, read.value_or(someGame));
        return (read ? test::changes(someGame, state) : " refused") + "\n";
    });
}

TEST(SavedGame, SurvivesTheFuzzersFiles) {
    int files = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator{ZHENBAO_CORPUS}) {
        std::ostringstream text;
        text << std::ifstream{entry.path(), std::ios::binary}.rdbuf();
        for (const fuzz::Target target : {fuzz::savedGame, fuzz::number, fuzz::play}) {
            target(text.str());
        }
        files += entry.is_regular_file() ? 1 : 0;
    }
    EXPECT_GT(files, 0);
}

}  // namespace
