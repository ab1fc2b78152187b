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

    /// Plays the deed that the script begins with, and gives back what happened.
    std::string play() {
        const std::string word = next();
        const auto order = std::ranges::find(orders(), word, &Deed::name);
        std::string outcome;
        if (order != orders().end()) {
            outcome = order->play(*this);
        } else if (const auto part = parts().find(word); part != parts().end()) {
            part->second(*this);
        } else {
            throw std::runtime_error("no deed: " + word);
        }
        return rest().empty() ? transcript + outcome
                              : throw std::runtime_error("not used:" + rest());
    }

private:
    /// Parts of a voyage, and what windows do on their own.
    static const std::map<std::string, void (*)(Actor&)>& parts() {
        using namespace game;
        static const std::map<std::string, void (*)(Actor&)> all{
            {"arrive", [](Actor& a) { arrive(a.m_state, a, a, a.choosePort()); }},
            {"battle", [](Actor& a) { a.showBattle(); }},
            {"events", [](Actor& a) { meetEvents(a.m_state, a, a); }},
            {"port", [](Actor& a) { a.enablePortOrders(); }},
            {"propose", [](Actor& a) { a.add(proposedPort(a, a.choosePort())); }},
            {"standing", [](Actor& a) { a.takeStock(); }},
            {"start", [](Actor& a) { a.startGame(); }},
            {"visitors", [](Actor& a) { receiveVisitors(a.m_state, a, a); }},
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
    bool leavesBattle() override { return rest().empty(); }
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
    const game::GameState before = newGame(script.substr(0, deed));
    game::GameState after = before;
    const std::string happened = Actor(after, script.substr(deed)).play();
    return happened + changes(before, after);
}

}  // namespace test
