#include "saved_game.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <numeric>
#include <vector>

#include "games.h"
#include "targets.h"

namespace {

using game::Currency;
using game::GameDate;
using game::GameState;
using Lines = std::vector<std::string>;

/// A record of nothing but different figures, and its file.
GameState someGame() {
    GameState state;
    state.gdtmDate = GameDate{std::chrono::year{1}, std::chrono::October, std::chrono::day{9}};
    state.gstrFirm = "Smith, Jones & Co,";
    state.gstrLocation = "Hong Kong";
    int figure = 4;
    for (const game::Field field :
         {&GameState::gcurCannons,  &GameState::gcurStatus,   &GameState::gcurHold,
          &GameState::gcurMaxHold,  &GameState::gcurSOpium,   &GameState::gcurSSilk,
          &GameState::gcurSArms,    &GameState::gcurSGeneral, &GameState::gcurWOpium,
          &GameState::gcurWSilk,    &GameState::gcurWArms,    &GameState::gcurWGeneral,
          &GameState::gcurPOpium,   &GameState::gcurPSilk,    &GameState::gcurPArms,
          &GameState::gcurPGeneral, &GameState::gcurBank,     &GameState::gcurDebt,
          &GameState::gcurCash,     &GameState::gcurPCannon,  &GameState::gcurPShip,
          &GameState::gcurPayoff}) {
        state.*field = figure++;
    }
    state.gcurDebt = Currency::lowest();
    state.gblnMillionaire = true;
    return state;
}

const Lines someLines = [] {
    Lines lines{"#0001-10-09#", "\"Smith, Jones & Co,\"", "\"Hong Kong\""};
    for (int figure = 4; figure <= 25; ++figure) {
        lines.push_back(figure == 21 ? "-922337203685477.5808" : std::to_string(figure));
    }
    lines.emplace_back("#TRUE#");
    return lines;
}();

std::string joined(const Lines& lines, const std::string& separator) {
    return std::accumulate(
        lines.begin(), lines.end(), std::string{},
        [&](const auto& text, const auto& line) { return text + line + separator; });
}

/// The record of that file where line `number`, from 1, holds `value` instead.
std::optional<GameState> readWith(std::size_t number, const std::string& value) {
    Lines lines = someLines;
    lines.at(number - 1) = value;
    return game::readSavedGame(joined(lines, "\r\n"));
}

}  // namespace

TEST(SavedGame, IsTwentySixLinesOfPlainValues) {
    EXPECT_EQ(game::writeSavedGame(someGame()), joined(someLines, "\r\n"));
    EXPECT_TRUE(game::writeSavedGame({}).starts_with("#1899-12-30#")) << "before any game";
    EXPECT_FALSE(GameState{}.gblnActiveGame || GameState{}.gblnGameSaved ||
                 GameState{}.gblnGameOver);
}

TEST(SavedGame, ReadsEveryWayItsValuesMayBeParted) {
    const std::string text = joined(someLines, "\r\n");
    std::string bare = joined(someLines, ",");
    bare.pop_back();
    for (const std::string& form : {joined(someLines, "\n"), bare, "\xEF\xBB\xBF" + text,
                                    text + '\xFF', bare + "\r", bare + ",anything"}) {
        EXPECT_EQ(game::readSavedGame(form), someGame()) << form;
    }
}

TEST(SavedGame, ReadsATextUpToItsClosingQuote) {
    using Row = std::pair<const char*, const char*>;
    for (const auto& [value, firm] :
         {Row{"\"\"", ""}, {"\"Jo \"the Red\"\"", "Jo "}, {"\"a\"b\"c,d\"", "a"}}) {
        GameState expected = someGame();
        expected.gstrFirm = firm;
        EXPECT_EQ(readWith(2, value), expected);
    }
}

TEST(SavedGame, RefusesWhatIsNotAValueOfItsKindAndAFileThatEndsEarly) {
    const auto refuse = [](std::size_t line, const Lines& values) {
        for (const std::string& value : values) {
            EXPECT_FALSE(readWith(line, value)) << "line " << line << ": " << value;
        }
    };
    refuse(1, {"", "1860-01-15", "#1860-01-15", "#1860-02-30#", "#1900-02-29#", "#1860-13-01#",
               "#1860-1-15#", "#18a0-01-15#", "#18/0-01-15#", "#0000-01-01#", "#10000-01-01#",
               "#-001-01-01#", "#1860/01/15#", " #1860-01-15#", "#1860-01-15##"});
    refuse(2, {"", "Smith", "\"Smith", "Smith\"", "\"two\r\nlines\"", " \"Smith\"",
               std::string{"\"a\0b\"", 5}, "\"a\"b, c\""});
    refuse(4, {"", "1 ", "$1", "#TRUE#", std::string{"1\0", 2}, std::string(400, '9')});
    refuse(26, {"", "#true#", "TRUE", "#TRUE", "#FALSE# ", "0"});
    const std::string text = joined(someLines, "\r\n");
    for (std::size_t length = 0; length < text.size() - 2; ++length) {
        EXPECT_FALSE(game::readSavedGame(text.substr(0, length))) << length;
    }
}

TEST(SavedGame, IsGoneOnWithWhereItsFileIsSilent) {
    GameState state;
    state.gblnGameOver = true;
    state.gcurNetWorth = state.gcurRank = 1;
    state.gstrRank = "Ma Tsu";
    GameState expected = someGame();
    expected.gblnActiveGame = expected.gblnGameSaved = expected.gblnGameOver = true;
    expected.gcurNetWorth = expected.gcurRank = 1;
    expected.gstrRank = "Ma Tsu";
    game::resumeGame(state, someGame());
    EXPECT_EQ(state, expected);
}

TEST(SavedGame, SurvivesTheFuzzersFiles) {
    int files = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator{ZHENBAO_CORPUS}) {
        if (entry.is_directory()) {
            continue;
        }
        std::ifstream file{entry.path(), std::ios::binary};
        const std::string text{std::istreambuf_iterator<char>{file}, {}};
        for (const fuzz::Target target : {fuzz::savedGame, fuzz::number, fuzz::play}) {
            target(text);
        }
        ++files;
    }
    EXPECT_GT(files, 0);
}
