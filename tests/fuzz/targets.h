#pragma once

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <optional>
#include <string>

#include "captain.h"
#include "saved_game.h"
#include "standing.h"

namespace fuzz {

/// Text from outside, as a fuzzer or its corpus has it. What breaks a promise aborts.
using Target = void (*)(std::string_view text);

using game::Currency;
using game::GameState;

inline void require(bool holds, const char* what) {
    if (!holds) {
        std::cerr << "broken: " << what << '\n';
        std::abort();
    }
}

/// A captain who reads what he does off the bytes of a text; where they end he is done.
class Player final : public test::Captain {
public:
    Player(GameState& state, std::string_view choices)
        : Captain(state, m_generator), m_choices(choices), m_generator(choose(256)) {}

    std::size_t choose(std::string_view words) override {
        return choose(static_cast<std::size_t>(std::ranges::count(words, ' ')) + 1);
    }
    [[nodiscard]] bool done() const { return m_choices.empty() || !m_state.gblnActiveGame; }

private:
    std::size_t choose(std::size_t ways) {
        if (m_choices.empty()) {
            return 0;
        }
        const auto choice = static_cast<unsigned char>(m_choices.front());
        m_choices.remove_prefix(1);
        return choice % ways;
    }
    /// As the player types it: nothing, all there is, a little more, a number, anything.
    std::string type(Currency most) override {
        const std::size_t way = choose(6);
        return way == 0   ? std::string{}
               : way == 1 ? game::plainText(most)
               : way == 2 ? game::moneyText(most + 1)
               : way == 3 ? game::plainText(choose(256))
               : way == 4 ? game::plainText(Currency::highest())
                          : std::string{m_choices.substr(0, choose(30))};
    }

    bool confirmDumping() override { return true; }
    bool playAgain() override { return true; }

    std::string_view m_choices;
    game::Generator m_generator;
};

/// A saved game: one that is read is saved and loads again.
inline void savedGame(std::string_view text) {
    if (const std::optional<GameState> read = game::readSavedGame(text)) {
        require(game::readSavedGame(game::writeSavedGame(*read)) == read,
                "a game that was read is saved and loads again");
    }
}

/// A number of a saved game, and an amount typed or pasted with the list it opens.
inline void number(std::string_view text) {
    const std::optional<Currency> read = game::readDecimal(text);
    require(!read || game::readDecimal(game::plainText(*read)) == read,
            "a number that was read is written and reads again");

    const Currency amount = game::MakeNumber(text);
    require(amount >= 0 && amount.tenThousandths() % Currency::scale == 0,
            "an amount is whole and not negative");
    const std::vector<Currency> steps = game::amountSteps(amount);
    require(steps.size() <= 21 && steps.front() == 0 && steps.back() == amount,
            "a list of amounts is short, starts with 0 and ends with its maximum");
}

/// A saved game, a zero byte, a seed for chance and then what a captain does, a byte a choice, at
/// most 200 orders. What was played is saved and goes on as it was.
inline void play(std::string_view text) {
    const std::string_view file = text.substr(0, text.find('\0'));
    const std::optional<GameState> read = game::readSavedGame(file);
    if (!read) {
        return;
    }
    GameState state;
    game::resumeGame(state, *read);
    game::updateStanding(state);
    Player player(state, text.substr(std::min(file.size() + 1, text.size())));
    for (int order = 0; order < 200 && !player.done(); ++order) {
        (void)player.play(player.choose(test::Captain::orders));
        game::updateStanding(state);
    }
    const std::optional<GameState> saved = game::readSavedGame(game::writeSavedGame(state));
    require(saved.has_value(), "a game that was played is saved and loads again");
    GameState resumed = state;
    game::resumeGame(resumed, *saved);
    state.gblnActiveGame = state.gblnGameSaved = true;
    require(resumed == state, "a game that was played goes on as it was saved");
}

}  // namespace fuzz
