#include "saved_game.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>

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

/// That file with something else for whatever matches a pattern.
std::string fileWith(const std::string& other, const char* pattern) {
    return std::regex_replace(someFile, std::regex(pattern), other);
}

TEST(SavedGame, IsTwentySixLinesReadInEveryWayTheyMayBeParted) {
    EXPECT_EQ(game::writeSavedGame(someGame), someFile);
    EXPECT_TRUE(game::writeSavedGame({}).starts_with("#1899-12-30#")) << "before any game";
    const std::string bare = someFile.substr(0, someFile.size() - 2);
    for (const std::string& form :
         {someFile, bare, fileWith("\n", "\r\n"), fileWith(",", "\r\n"), bare + '\r',
          bare + ",anything", "\xEF\xBB\xBF" + someFile, someFile + '\xFF'}) {
        GameState state = test::newGame("Active=no Saved=no NetWorth=26 Score=27");
        game::resumeGame(state, game::readSavedGame(form).value());
        EXPECT_EQ(state, someGame) << form;
    }
    for (const std::string firm : {"\"\"", "\"Jo \"the Red\"\"", "\"a\"b\"c,d\""}) {
        const auto read = game::readSavedGame(fileWith(firm, "\"Smith.*\""));
        EXPECT_EQ(read.value().gstrFirm, firm.substr(1, firm.find('"', 1) - 1));
    }
}

TEST(SavedGame, RefusesWhatIsNotAValueOfItsKindAndAFileThatEndsEarly) {
    using namespace std::string_literals;
    const std::pair<const char*, std::vector<std::string>> wrong[]{
        {"#0001.*#",
         {"", "1860-01-15", "#1860-01-15", "#1860-02-30#", "#1900-02-29#", "#1860-13-01#",
          "#1860-1-15#", "#18a0-01-15#", "#18/0-01-15#", "#0000-01-01#", "#10000-01-01#",
          "#-001-01-01#", "#1860/01/15#", " #1860-01-15#", "#1860-01-15##"}},
        {"\"Smith.*\"",
         {"", "Smith", "\"Smith", "Smith\"", "\"two\r\nlines\"", " \"Smith\"", "\"a\0b\""s,
          "\"a\"b, c\""}},
        {"\\b4", {"", "1 ", "1$", "#TRUE#", "1\0"s, std::string(400, '9')}},
        {"#TRUE#", {"", "#true#", "TRUE", "#TRUE", "#FALSE# ", "0"}}};
    for (const auto& [value, others] : wrong) {
        for (const std::string& other : others) {
            EXPECT_FALSE(game::readSavedGame(fileWith(other, value))) << other;
        }
    }
    for (std::size_t length = 0; length < someFile.size() - 2; ++length) {
        EXPECT_FALSE(game::readSavedGame(someFile.substr(0, length))) << length;
    }
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
