#pragma once

#include <map>

#include "arrival.h"
#include "captain.h"
#include "events.h"
#include "games.h"
#include "standing.h"
#include "visitors.h"

namespace test {

/// A captain who takes every choice, text and draw from the words of a script.
class Actor final : ScriptedRandom, Captain {
public:
    Actor(game::GameState& state, const std::string& script)
        : ScriptedRandom(script), Captain(state, *this, true) {}

    /// Changes figures and plays deeds, and gives back what happened by each deed and the figures
    /// that it changed.
    std::string play() {
        while (!rest().empty()) {
            std::string word = next();
            for (; word.find('=') != std::string::npos; word = next()) {
                change(m_state, word);
            }
            const game::GameState before = m_state;
            perform(word);
            add(changes(before, m_state), rest().empty() ? "" : ";");
        }
        return transcript;
    }

private:
    void perform(const std::string& word) {
        if (const auto order = std::ranges::find(orders(), word, &Deed::name);
            order != orders().end()) {
            order->play(*this);
        } else if (const auto part = parts().find(word); part != parts().end()) {
            part->second(*this);
        } else {
            throw std::runtime_error("no deed: " + word);
        }
    }

    /// Parts of a voyage, and what windows do on their own.
    static const std::map<std::string, void (*)(Actor&)>& parts() {
        using namespace game;
        using A = Actor;
        static const std::map<std::string, void (*)(A&)> all{
            {"arrive", [](A& a) { arrive(a.m_state, a, a, a.choosePort()); }},
            {"battle", [](A& a) { a.showBattle(); }},
            {"events", [](A& a) { meetEvents(a.m_state, a, a); }},
            {"port", [](A& a) { a.enablePortOrders(); }},
            {"propose", [](A& a) { a.add(" ", proposedPort(a, a.choosePort())); }},
            {"standing", [](A& a) { a.takeStock(); }},
            {"start", [](A& a) { a.startGame(); }},
            {"visitors", [](A& a) { receiveVisitors(a.m_state, a, a); }},
        };
        return all;
    }
    void enablePortOrders() {
        for (const game::Order order : game::orders) {
            if (const auto allowed = allowedInPort(m_state, order)) {
                setOrderEnabled(order, *allowed);
            }
        }
    }
    void takeStock() {
        updateStanding(m_state);
        add(millionaireNoticeDue(m_state) ? " millionaire" : "",
            isTrillionaire(m_state) ? " trillionaire" : "", isBankrupt(m_state) ? " bankrupt" : "");
    }
    void startGame() {
        const auto scenario = static_cast<game::Scenario>(choose({"debt", "cannons"}));
        game::startGame(m_state, *this, scenario, "Heron");
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
            add(" up to ", most);
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
};

/// What happens in a new game by a script.
inline std::string play(const std::string& script) {
    game::GameState state = newGame();
    return Actor(state, script).play();
}

}  // namespace test
