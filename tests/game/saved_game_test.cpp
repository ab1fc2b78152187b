#include "saved_game.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <regex>

#include "games.h"
#include "targets.h"

namespace {

using game::GameState;
using namespace std::string_literals;

/// A record in which every figure is different, and its file.
const GameState someGame = test::newGame(
    "Date=0001-10-09 Firm=Smith,Jones&Co, Cannons=4 Status=5 Hold=6 MaxHold=7 SOpium=8 SSilk=9 "
    "SArms=10 SGeneral=11 WOpium=12 WSilk=13 WArms=14 WGeneral=15 POpium=16 PSilk=17 PArms=18 "
    "PGeneral=19 Bank=20 Debt=21 Cash=22 PCannon=23 PShip=24 Payoff=25 Millionaire=yes "
    "NetWorth=26 Score=27");
const std::string someFile =
    "#0001-10-09#\r\n\"Smith,Jones&Co,\"\r\n\"Hong Kong\"\r\n4\r\n5\r\n6\r\n7\r\n8\r\n9\r\n10\r\n"
    "11\r\n12\r\n13\r\n14\r\n15\r\n16\r\n17\r\n18\r\n19\r\n20\r\n21\r\n22\r\n23\r\n24\r\n25\r\n"
    "#TRUE#\r\n";

/// The file with something else wherever a pattern matches.
std::string fileWith(const std::string& pattern, const std::string& other) {
    return std::regex_replace(someFile, std::regex(pattern), other);
}

TEST(SavedGame, IsTwentySixLinesHoweverTheyAreSeparated) {
    EXPECT_EQ(game::writeSavedGame(someGame), someFile);
    const std::string noGame = game::writeSavedGame({});
    EXPECT_TRUE(noGame.starts_with("#1899-12-30#") && noGame.ends_with("#FALSE#\r\n")) << noGame;
    EXPECT_EQ(test::changes(someGame, game::readSavedGame(someFile).value()),
              " Active=no Saved=no NetWorth=0 Score=0");
    const std::string bare = someFile.substr(0, someFile.size() - 2);
    for (const std::string& form :
         {someFile, bare, fileWith("\r\n", "\n"), fileWith("\r\n", ","), bare + '\r',
          bare + ",anything", "\xEF\xBB\xBF" + someFile, someFile + '\xFF'}) {
        GameState state = test::newGame("Active=no Saved=no NetWorth=26 Score=27");
        game::resumeGame(state, game::readSavedGame(form).value());
        EXPECT_EQ(state, someGame) << form;
    }
    for (std::size_t length = 0; length < bare.size(); ++length) {
        EXPECT_FALSE(game::readSavedGame(someFile.substr(0, length))) << length;
    }
}

struct Kind {
    std::string line;                                       ///< how it begins
    std::vector<std::pair<std::string, std::string>> read;  ///< and what changes
    std::vector<std::string> refused;
};

const std::vector<Kind> kinds{
    {"#0001",
     {{"#1860-02-29#", " Date=Feb 29, 1860"}, {"#9999-12-31#", " Date=Dec 31, 9999"}},
     {"", "1860-01-15", "#1860-01-15", "#1900-02-29#", "#1860-13-01#", "#1860-1-15#",
      "#18a0-01-15#", "#18/0-01-15#", "#0000-01-01#", "#10000-01-01#", "#1860/01/15#",
      " #1860-01-15#", "#1860-01-15##"}},
    {"\"Smith",
     {{R"("")", " Firm="}, {R"("Jo "the Red"")", " Firm=Jo "}, {R"("a"b"c,d")", " Firm=a"}},
     {"", "Smith", R"("Smith)", R"(Smith")", "\"two\nlines\"", R"( "Smith")", "\"a\0b\""s,
      R"("a"b, c")"}},
    {"25",
     {{"-5", " Payoff=-5"}, {"0.0001", " Payoff=0.0001"}},
     {"", "1 ", " 1", "#TRUE#", "1\0"s, "922337203685477.5808"}},
    {"#TRUE", {{"#FALSE#", " Millionaire=no"}}, {"", "#true#", "TRUE", "#TRUE", "#FALSE# ", "0"}}};

TEST(SavedGame, HoldsValuesOfTheirKinds) {
    for (const Kind& kind : kinds) {
        for (const auto& [value, change] : kind.read) {
            GameState state = someGame;
            game::resumeGame(state, game::readSavedGame(fileWith(kind.line + ".*", value)).value());
            EXPECT_EQ(test::changes(someGame, state), change) << value;
        }
        for (const std::string& value : kind.refused) {
            EXPECT_FALSE(game::readSavedGame(fileWith(kind.line + ".*", value))) << value;
        }
    }
}

TEST(Fuzz, PassesOnTheCorpus) {
    for (const auto& entry : std::filesystem::recursive_directory_iterator{ZHENBAO_CORPUS}) {
        std::ostringstream text;
        text << std::ifstream{entry.path(), std::ios::binary}.rdbuf();
        fuzz::play(text.str());
    }
}

TEST(Fuzz, PassesOnGamesOfRandomOrders) {
    std::mt19937 bytes(1'860);
    for (int game = 0; game < 2'000; ++game) {
        std::string text = game::writeSavedGame(test::newGame("Cash=50000 Cannons=2 Hold=20"));
        text += '\0';
        for (int choice = 0; choice < 1'500; ++choice) {
            text += static_cast<char>(bytes());
        }
        fuzz::play(text);
    }
}

}  // namespace
