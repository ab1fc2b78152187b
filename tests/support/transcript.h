#pragma once

#include <array>
#include <string>
#include <string_view>

#include "battle_scene.h"
#include "voyage_scene.h"

namespace test {

/// A voyage and its battles as a transcript, if one is wanted: a line for each entry or report,
/// followed by what else happens.
class Scene : public game::VoyageScene, public game::BattleScene {
public:
    explicit Scene(bool writes = false) : m_writes(writes) {}

    void appendEntry(std::string_view message, std::string_view continuation) override {
        line(message, continuation.empty() ? "" : "\n| ", continuation);
    }
    void appendEntry(std::string_view message) override { line(message); }
    void appendText(std::string_view text) override { add(text); }
    void report(std::string_view text) override { line(text); }
    void flash(game::Alert alert) override { add(alert == game::Alert::News ? " cyan" : " red"); }
    void flash() override { add(" flash"); }
    void wait(game::Milliseconds duration) override { add(" ", duration); }
    void setOrderEnabled(game::Order order, bool enabled) override {
        constexpr std::array<std::string_view, 9> names{
            "Buy", "Sell", "Leave", "Visit", "Money", "Transfer", "Repair", "Cannon", "Ship"};
        add(enabled ? " +" : " -", names.at(static_cast<std::size_t>(order)));
    }
    void setOrderEnabled(game::BattleOrder order, bool enabled) override {
        constexpr std::string_view letters = "FDRC";  // Fight, to the Death, Run, dump Cargo
        add(enabled ? " +" : " -", letters.substr(static_cast<std::size_t>(order), 1));
    }
    void setAtSea(bool atSea) override { add(atSea ? " at sea" : " in port"); }
    bool ask(std::string_view text, std::string_view title) override {
        inform(text, title);
        return answer();
    }
    void inform(std::string_view text, std::string_view title) override {
        line("[", title, "] ", text);
    }
    void inform(std::string_view text) override { line("[] ", text); }
    void showBattle() override {}
    void showFleet(game::Currency ships) override { add(" fleet:", ships); }
    void showStatus(game::Currency percent) override { add(" status:", percent); }
    void showCannons(game::Currency cannons) override { add(" cannons:", cannons); }
    void sinkLast(game::Currency ships, game::Milliseconds step) override {
        add(" sink:", ships, "x", step);
    }
    void refresh() override { add(" refresh"); }
    bool confirmDumping() override { return ask(" dump?"); }
    bool playAgain() override { return ask(" again?"); }
    void finish() override { end(" finish"); }
    void endProgram() override { end(" the end"); }

protected:
    /// Yes to every question, unless a subclass answers.
    virtual bool answer() { return true; }

    template <class... Parts>
    void add(const Parts&... parts) {
        if (m_writes) {
            (transcript.append(text(parts)), ...);
        }
    }
    template <class... Parts>
    void line(const Parts&... parts) {
        add(transcript.empty() ? "" : "\n", parts...);
    }

    std::string transcript;
    bool finished = false;  ///< the battle

private:
    bool ask(std::string_view question) {
        add(question);
        return answer();
    }
    void end(std::string_view how) {
        add(how);
        finished = true;
    }
    static std::string_view text(std::string_view part) { return part; }
    static std::string text(game::Currency part) { return plainText(part); }
    static std::string text(game::Milliseconds part) { return std::to_string(part.count()); }

    bool m_writes;
};

}  // namespace test
