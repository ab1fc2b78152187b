#include "saved_game.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <limits>
#include <random>
#include <sstream>
#include <vector>

#include "games.h"
#include "targets.h"

namespace {

using game::Currency;
using game::GameState;
using Lines = std::vector<std::string>;

const Lines newGameLines = [] {
    std::istringstream values{
        "#1860-01-15#|\"Smith, Jones & Co\"|\"Hong Kong\"|0|100|0|60|0|0|0|0|0|0|0|0|"
        "12000|1100|90|14|0|5000|400|0|0|0|#FALSE#"};
    Lines lines;
    for (std::string value; std::getline(values, value, '|');) {
        lines.push_back(value);
    }
    return lines;
}();

std::string joined(const Lines& lines, const std::string& separator) {
    std::string text;
    for (const std::string& line : lines) {
        text += line + separator;
    }
    return text;
}

/// The record of a new game whose line `number`, from 1, holds `value` instead.
std::optional<GameState> readWith(std::size_t number, const std::string& value) {
    Lines lines = newGameLines;
    lines.at(number - 1) = value;
    return game::readSavedGame(joined(lines, "\r\n"));
}

GameState newGame() {
    return test::newGameWith([](GameState& state) {
        state.gstrFirm = "Smith, Jones & Co";
        state.gcurCash = 400;
        state.gcurDebt = 5'000;
    });
}

}  // namespace

TEST(SavedGame, IsTwentySixLinesOfPlainValues) {
    EXPECT_EQ(game::writeSavedGame(newGame()), joined(newGameLines, "\r\n"));
}

TEST(SavedGame, ReadsEveryWayItsValuesMayBeParted) {
    const std::string text = joined(newGameLines, "\r\n");
    std::string bare = joined(newGameLines, ",");
    bare.pop_back();
    for (const std::string& form :
         {text, joined(newGameLines, "\n"), joined(newGameLines, ","), bare, "\xEF\xBB\xBF" + text,
          text + std::string{"\0\xFF", 2}, bare + "\r", bare + ",anything"}) {
        const std::optional<GameState> read = game::readSavedGame(form);
        ASSERT_TRUE(read) << form;
        EXPECT_EQ(game::writeSavedGame(*read), text);
    }
}

TEST(SavedGame, ReadsATextUpToItsClosingQuote) {
    struct Case {
        std::string value;
        const char* firm;
    };
    for (const Case& c :
         {Case{"\"\"", ""}, {"\"Jo \"the Red\"\"", "Jo "}, {"\"a\"b\"c,d\"", "a"}}) {
        const std::optional<GameState> read = readWith(2, c.value);
        ASSERT_TRUE(read) << c.value;
        EXPECT_EQ(read->gstrFirm, c.firm);
    }
}

TEST(SavedGame, ReadsNumbersExactly) {
    using Range = std::numeric_limits<std::int64_t>;
    struct Case {
        const char* value;
        std::int64_t tenThousandths;
    };
    for (const Case& c : {Case{"007", 70'000},
                          {"-0", 0},
                          {"-12.25", -122'500},
                          {"1.00005", 10'001},
                          {"-1.00005", -10'001},
                          {"1.000049", 10'000},
                          {"922337203685477.5807", Range::max()},
                          {"922337203685477.58074", Range::max()},
                          {"-922337203685477.5808", Range::min()}}) {
        const std::optional<GameState> read = readWith(22, c.value);
        ASSERT_TRUE(read) << c.value;
        EXPECT_EQ(read->gcurCash.tenThousandths(), c.tenThousandths) << c.value;
    }
}

TEST(SavedGame, RefusesWhatIsNotAValueOfItsKind) {
    struct Case {
        std::size_t line;
        std::vector<std::string> values;
    };
    for (const Case& c :
         {Case{1,
               {"", "1860-01-15", "#1860-01-15", "#1860-02-30#", "#1900-02-29#", "#1860-13-01#",
                "#1860-00-10#", "#1860-1-15#", "#0000-01-01#", "#10000-01-01#", "#-001-01-01#",
                "#1860/01/15#", " #1860-01-15#", "#1860-01-15##"}},
          {2,
           {"", "Smith", "\"Smith", "Smith\"", "\"two\r\nlines\"", " \"Smith\"",
            std::string{"\"a\0b\"", 5}, "\"a\"b, c\""}},
          {4,
           {"",
            "+1",
            "1e3",
            "0x10",
            " 1",
            "1 ",
            "1,000",
            ".5",
            "5.",
            "-",
            "--1",
            "1.2.3",
            "inf",
            "nan",
            "$1",
            "#TRUE#",
            std::string{"1\0", 2},
            "922337203685477.5808",
            "922337203685477.58075",
            "-922337203685477.5809",
            std::string(400, '9')}},
          {26, {"", "#true#", "TRUE", "#TRUE", "#FALSE# ", "0"}}}) {
        for (const std::string& value : c.values) {
            EXPECT_FALSE(readWith(c.line, value)) << "line " << c.line << ": " << value;
        }
    }
}

TEST(SavedGame, RefusesAFileThatEndsEarly) {
    const std::string text = joined(newGameLines, "\r\n");
    for (std::size_t length = 0; length < text.size() - 2; ++length) {
        EXPECT_FALSE(game::readSavedGame(text.substr(0, length))) << length;
    }
}

TEST(SavedGame, BringsEveryFieldBack) {
    std::mt19937_64 engine{1860};
    const auto amount = [&engine] {
        return Currency::fromTenThousandths(static_cast<std::int64_t>(engine()) >> engine() % 64);
    };
    const auto below = [&engine](unsigned limit) {
        return static_cast<unsigned>(engine() % limit);
    };
    for (int game = 0; game < 5'000; ++game) {
        GameState state;
        state.gdtmDate = std::chrono::year_month_day{std::chrono::sys_days{game::firstDay} +
                                                     std::chrono::days{below(2'900'000)}};
        for (std::string* text : {&state.gstrFirm, &state.gstrLocation}) {
            for (unsigned left = below(20); left > 0; --left) {
                static constexpr std::string_view letters = "aZ ,#&'\\\t\r\x80\xE9\xFF";
                *text += letters[below(letters.size())];
            }
        }
        for (const game::GoodRow& good : game::goods) {
            for (const game::Field field : {good.ship, good.warehouse, good.price}) {
                state.*field = amount();
            }
        }
        for (const game::Field field :
             {&GameState::gcurCannons, &GameState::gcurStatus, &GameState::gcurHold,
              &GameState::gcurMaxHold, &GameState::gcurBank, &GameState::gcurDebt,
              &GameState::gcurCash, &GameState::gcurPCannon, &GameState::gcurPShip,
              &GameState::gcurPayoff}) {
            state.*field = amount();
        }
        state.gblnMillionaire = below(2) == 0;
        ASSERT_EQ(game::readSavedGame(game::writeSavedGame(state)), state);
    }
}

TEST(SavedGame, IsGoneOnWithWhereItsFileIsSilent) {
    GameState state;
    state.gblnGameOver = true;
    state.gcurNetWorth = 1;
    state.gstrRank = "Ma Tsu";
    state.gcurRank = 2;
    GameState expected = newGame();
    expected.gblnActiveGame = expected.gblnGameSaved = expected.gblnGameOver = true;
    expected.gcurNetWorth = 1;
    expected.gstrRank = "Ma Tsu";
    expected.gcurRank = 2;
    GameState saved = newGame();
    saved.gblnActiveGame = saved.gblnGameSaved = false;
    game::resumeGame(state, saved);
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
