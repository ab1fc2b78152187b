#pragma once

#include <algorithm>
#include <sstream>

#include "captain.h"
#include "games.h"

namespace test {

/// A captain who reads a script, a word for whatever is asked next. In a field "max" is as much as
/// it offers, "more" one more, "look" tells it. "24-" are 24 draws of no interest; "?" is the one
/// that is watched, and behind it none is of interest.
class Actor final : game::Random, public Captain {
public:
    Actor(game::GameState& state, const std::string& script, double watched)
        : Captain(state, *this, true), m_words(script), m_watched(watched) {}

    std::size_t choose(std::string_view words) override {
        const std::string_view before = words.substr(0, words.find(next()));
        return static_cast<std::size_t>(std::ranges::count(before, ' '));
    }
    bool leaves() override { return (m_words >> std::ws).eof(); }

private:
    std::string next() {
        std::string word;
        EXPECT_TRUE(m_words >> word) << "the script is too short";
        return word;
    }
    std::string type(game::Currency most) override {
        const std::string typed = next();
        if (typed == "look") {
            tell("up to ", most, "\n");
        }
        return typed == "max" ? plainText(most) : typed == "more" ? plainText(most + 1) : typed;
    }
    double Rnd() override {
        if (m_quiet > 0) {
            --m_quiet;
            return drawn("-");
        }
        const std::string die = next();
        m_quiet = die == "?"                                ? 1'000
                  : die.find('-') > 0 && die.ends_with('-') ? std::stoi(die) - 1
                                                            : 0;
        return die == "?" ? m_watched : drawn(die);
    }

    std::istringstream m_words;
    double m_watched;
    int m_quiet = 0;
};

/// Figures of a game just started, an order or a part of a passage, and all that is asked in it.
class Script {
public:
    explicit Script(const std::string& text)
        : m_deed(text.find(' ', text.rfind('=') + 1)),
          m_game(newGame(text.substr(0, m_deed))),
          m_words(text.substr(m_deed)) {}

    /// Its messages and behind them what has changed.
    [[nodiscard]] std::string told(double watched = 0) const {
        game::GameState state = m_game;
        Actor actor(state, m_words, watched);
        const std::string answer = actor.play(actor.choose(Actor::deeds));
        EXPECT_TRUE(actor.leaves()) << m_words;
        return actor.told + answer + changes(m_game, state);
    }

private:
    std::size_t m_deed;
    game::GameState m_game;
    std::string m_words;
};

}  // namespace test
