#pragma once

#include "arrival.h"
#include "captain.h"
#include "events.h"
#include "games.h"
#include "scripted_random.h"
#include "standing.h"
#include "visitors.h"

namespace test {

/// A captain who takes every choice, text and draw from the words of a script.
class Actor final : ScriptedRandom, Captain {
public:
    Actor(game::GameState& state, const std::string& script)
        : ScriptedRandom(script), Captain(state, *this, true) {}

    /// Plays the deed that the script begins with, and gives back what happened.
    std::string play() {
        const std::string word = next();
        const auto order = std::ranges::find(orders(), word, &Deed::name);
        const std::string outcome = order != orders().end() ? order->play(*this) : playPart(word);
        if (const std::string left = rest(); !left.empty()) {
            throw std::runtime_error("not used:" + left);
        }
        return transcript + outcome;
    }

private:
    /// A part of a voyage, or of what a window does on its own.
    std::string playPart(std::string_view part) {
        if (part == "arrive") {
            game::arrive(m_state, m_random, *this, game::ports.at(choose(ports)));
        } else if (part == "events") {
            meetEvents(m_state, m_random, *this);
        } else if (part == "visitors") {
            receiveVisitors(m_state, m_random, *this);
        } else if (part == "battle") {
            showBattle();
        } else if (part == "start") {
            const std::size_t scenario = choose({"debt", "cannons"});
            startGame(m_state, m_random, static_cast<game::Scenario>(scenario), "Heron");
        } else if (part == "port") {
            for (const game::Order order : game::orders) {
                if (const auto allowed = allowedInPort(m_state, order)) {
                    setOrderEnabled(order, *allowed);
                }
            }
        } else if (part == "propose") {
            add(proposedPort(m_random, game::ports.at(choose(ports))));
        } else if (part == "standing") {
            updateStanding(m_state);
            add(millionaireNoticeDue(m_state) ? " millionaire" : "",
                isTrillionaire(m_state) ? " trillionaire" : "",
                isBankrupt(m_state) ? " bankrupt" : "");
        } else {
            throw std::runtime_error("no deed: " + std::string{part});
        }
        return {};
    }

    std::size_t choose(const Options& options) override {
        const std::string word = next();
        const auto chosen = std::ranges::find(options, word);
        if (chosen == options.end()) {
            throw std::runtime_error(word + " is no option like " + std::string{options.front()});
        }
        return static_cast<std::size_t>(chosen - options.begin());
    }
    std::string type(game::Currency most) override {
        const std::string word = next();
        if (word == "look") {
            add("up to ", most, "\n");
            return {};
        }
        if (word == "max" || word == "more") {
            return plainText(word == "max" ? most : most + 1);
        }
        if (word.find_first_of("0123456789") == std::string::npos) {
            throw std::runtime_error("neither an amount nor max, more or look: " + word);
        }
        return word;
    }
    bool leavesBattle() override { return atEnd(); }
    void showBattle() override {
        add(" ", attackers(m_state));
        Captain::showBattle();
    }
};

/// Plays a script: figures of a new game, a deed and the answers to what it asks. Gives back what
/// happened and, at the end, the figures that changed.
inline std::string play(const std::string& script) {
    const std::size_t figures = script.rfind('=') + 1;
    const std::size_t deed = figures == 0 ? 0 : std::min(script.find(' ', figures), script.size());
    const game::GameState before = scriptedGame(script.substr(0, deed));
    if (std::ranges::count(game::ports, before.gstrLocation) == 0) {
        throw std::runtime_error("no port: " + before.gstrLocation);
    }
    game::GameState after = before;
    const std::string happened = Actor(after, script.substr(deed)).play();
    return happened + changes(before, after);
}

}  // namespace test
