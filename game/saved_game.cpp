#include "saved_game.h"

#include <algorithm>
#include <charconv>
#include <tuple>

namespace game {

namespace {

/// What is saved, in the order of the file's lines.
constexpr std::tuple savedFields{
    &GameState::gdtmDate,     &GameState::gstrFirm,       &GameState::gstrLocation,
    &GameState::gcurCannons,  &GameState::gcurStatus,     &GameState::gcurHold,
    &GameState::gcurMaxHold,  &GameState::gcurSOpium,     &GameState::gcurSSilk,
    &GameState::gcurSArms,    &GameState::gcurSGeneral,   &GameState::gcurWOpium,
    &GameState::gcurWSilk,    &GameState::gcurWArms,      &GameState::gcurWGeneral,
    &GameState::gcurPOpium,   &GameState::gcurPSilk,      &GameState::gcurPArms,
    &GameState::gcurPGeneral, &GameState::gcurBank,       &GameState::gcurDebt,
    &GameState::gcurCash,     &GameState::gcurPCannon,    &GameState::gcurPShip,
    &GameState::gcurPayoff,   &GameState::gblnMillionaire};
static_assert(std::tuple_size_v<decltype(savedFields)> == 26);

constexpr std::string_view yes = "#TRUE#";
constexpr std::string_view no = "#FALSE#";

std::string written(const GameDate& date) {
    std::string text{'#'};
    text.append(zeroPadded(static_cast<unsigned>(static_cast<int>(date.year())), 4)).append("-");
    text.append(zeroPadded(static_cast<unsigned>(date.month()), 2)).append("-");
    text.append(zeroPadded(static_cast<unsigned>(date.day()), 2)).append("#");
    return text;
}
std::string written(const std::string& text) {
    return '"' + text + '"';
}
std::string written(Currency number) {
    return plainText(number);
}
std::string written(bool flag) {
    return std::string{flag ? yes : no};
}

bool read(std::string_view value, GameDate& date) {
    constexpr std::string_view pattern = "#0000-00-00#";
    const auto fits = [](char character, char expected) {
        return expected == '0' ? character >= '0' && character <= '9' : character == expected;
    };
    if (!std::ranges::equal(value, pattern, fits)) {
        return false;
    }
    const auto number = [value](std::size_t from, std::size_t width) {
        unsigned count = 0;
        std::from_chars(value.data() + from, value.data() + from + width, count);
        return count;
    };
    date = GameDate{std::chrono::year{static_cast<int>(number(1, 4))},
                    std::chrono::month{number(6, 2)}, std::chrono::day{number(9, 2)}};
    return date.ok() && date.year() >= firstYear;
}
bool read(std::string_view value, std::string& text) {
    if (!value.starts_with('"') || value.find('\0') != std::string_view::npos) {
        return false;
    }
    const std::size_t end = value.find('"', 1);
    if (end == std::string_view::npos) {
        return false;
    }
    text = value.substr(1, end - 1);
    return true;
}
bool read(std::string_view value, Currency& number) {
    const std::optional<Currency> decimal = readDecimal(value);
    number = decimal.value_or(0);
    return decimal.has_value();
}
bool read(std::string_view value, bool& flag) {
    flag = value == yes;
    return flag || value == no;
}

/// The length of the first value of `line`, which ends at a comma outside double quotes.
std::size_t valueLength(std::string_view line) {
    bool quoted = false;
    const auto endsValue = [&quoted](char character) {
        quoted = quoted != (character == '"');
        return character == ',' && !quoted;
    };
    return static_cast<std::size_t>(std::ranges::find_if(line, endsValue) - line.begin());
}

/// Takes the next value off the front of `text`; after the last one all are empty.
std::string_view takeValue(std::string_view& text) {
    const std::string_view line = text.substr(0, text.find('\n'));
    std::string_view value = line.substr(0, valueLength(line));
    text.remove_prefix(std::min(value.size() + 1, text.size()));
    if (value.ends_with('\r')) {
        value.remove_suffix(1);
    }
    return value;
}

}  // namespace

std::string writeSavedGame(const GameState& state) {
    std::string text;
    const auto writeLine = [&text](const auto& value) { text += written(value) + "\r\n"; };
    std::apply([&](auto... field) { (writeLine(state.*field), ...); }, savedFields);
    return text;
}

std::optional<GameState> readSavedGame(std::string_view text) {
    if (constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
        text.starts_with(byteOrderMark)) {
        text.remove_prefix(byteOrderMark.size());
    }
    GameState state;
    const auto readAll = [&](auto... field) {
        return (read(takeValue(text), state.*field) && ...);
    };
    return std::apply(readAll, savedFields) ? std::optional{std::move(state)} : std::nullopt;
}

void resumeGame(GameState& state, const GameState& saved) {
    std::apply([&](auto... field) { ((state.*field = saved.*field), ...); }, savedFields);
    state.gblnActiveGame = true;
    state.gblnGameSaved = true;
}

}  // namespace game
