#include "saved_game.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <vector>

#include "games.h"
#include "targets.h"

namespace {

using game::GameState;
using Lines = std::vector<std::string>;

/// A record of nothing but different figures, and the lines of its file.
const GameState someGame = [] {
    GameState state = test::newGame(
        "Cannons=4 Status=5 Hold=6 MaxHold=7 SOpium=8 SSilk=9 SArms=10 SGeneral=11 WOpium=12 "
        "WSilk=13 WArms=14 WGeneral=15 POpium=16 PSilk=17 PArms=18 PGeneral=19 Bank=20 Debt=21 "
        "Cash=22 PCannon=23 PShip=24 Payoff=25 NetWorth=26 Score=27");
    state.gdtmDate = {std::chrono::year{1}, std::chrono::October, std::chrono::day{9}};
    state.gstrFirm = "Smith, Jones & Co,";
    state.gblnMillionaire = true;
    return state;
}();
const Lines someLines = [] {
    Lines lines{"#0001-10-09#", "\"Smith, Jones & Co,\"", "\"Hong Kong\""};
    for (int figure = 4; figure <= 25; ++figure) {
        lines.push_back(std::to_string(figure));
    }
    lines.emplace_back("#TRUE#");
    return lines;
}();

std::string joined(const Lines& lines, const std::string& separator) {
    std::string text;
    for (const std::string& line : lines) {
        text += line + separator;
    }
    return text;
}
const std::string someFile = joined(someLines, "\r\n");

/// The record of that file where line `number`, from 1, holds `value` instead.
std::optional<GameState> readWith(std::size_t number, const std::string& value) {
    Lines lines = someLines;
    lines.at(number - 1) = value;
    return game::readSavedGame(joined(lines, "\r\n"));
}

TEST(SavedGame, IsTwentySixLinesReadInEveryWayTheyMayBeParted) {
    EXPECT_EQ(game::writeSavedGame(someGame), someFile);
    EXPECT_TRUE(game::writeSavedGame({}).starts_with("#1899-12-30#")) << "before any game";
    const std::string bare = joined(someLines, ",").substr(0, someFile.size() - 27);
    for (const std::string& form :
         {someFile, joined(someLines, "\n"), bare, "\xEF\xBB\xBF" + someFile, someFile + '\xFF',
          bare + "\r", bare + ",anything"}) {
        GameState state = test::newGame("NetWorth=26 Score=27");
        state.gblnActiveGame = state.gblnGameSaved = false;
        game::resumeGame(state, game::readSavedGame(form).value());
        EXPECT_EQ(state, someGame) << form;
    }
    for (const char* firm : {"\"\"", "\"Jo \"the Red\"\"", "\"a\"b\"c,d\""}) {
        const std::string text{firm};
        EXPECT_EQ(readWith(2, text).value().gstrFirm, text.substr(1, text.find('"', 1) - 1));
    }
}

TEST(SavedGame, RefusesWhatIsNotAValueOfItsKindAndAFileThatEndsEarly) {
    const std::pair<std::size_t, Lines> wrong[]{
        {1,
         {"", "1860-01-15", "#1860-01-15", "#1860-02-30#", "#1900-02-29#", "#1860-13-01#",
          "#1860-1-15#", "#18a0-01-15#", "#18/0-01-15#", "#0000-01-01#", "#10000-01-01#",
          "#-001-01-01#", "#1860/01/15#", " #1860-01-15#", "#1860-01-15##"}},
        {2,
         {"", "Smith", "\"Smith", "Smith\"", "\"two\r\nlines\"", " \"Smith\"",
          std::string{"\"a\0b\"", 5}, "\"a\"b, c\""}},
        {4, {"", "1 ", "$1", "#TRUE#", std::string{"1\0", 2}, std::string(400, '9')}},
        {26, {"", "#true#", "TRUE", "#TRUE", "#FALSE# ", "0"}}};
    for (const auto& [line, values] : wrong) {
        for (const std::string& value : values) {
            EXPECT_FALSE(readWith(line, value)) << "line " << line << ": " << value;
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
