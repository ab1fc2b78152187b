#pragma once

#include <array>
#include <string>
#include <string_view>

#include "battle_scene.h"
#include "voyage_scene.h"

namespace test {

/// A voyage and its battles watched by nobody, or by a writer: one line an entry or report, with
/// what else happens behind it.
class Scene : public game::VoyageScene, public game::BattleScene {
public:
    explicit Scene(bool writes = false) : m_writes(writes) {}

    std::string told;
    bool finished = false;

    void appendEntry(std::string_view message, std::string_view continuation) override {
        line(message, continuation.empty() ? "" : "\n| ", continuation);
    }
    void appendEntry(std::string_view message) override { line(message); }
    void appendText(std::string_view text) override { tell(text); }
    void report(std::string_view text) override { line(text); }
    void flash(game::Alert alert) override { tell(alert == game::Alert::News ? " cyan" : " red"); }
    void flash() override { tell(" flash"); }
    void wait(game::Milliseconds duration) override { tell(" ", duration); }
    void setOrderEnabled(game::Order order, bool enabled) override {
        constexpr std::array<std::string_view, 9> words{
            "Buy", "Sell", "Leave", "Visit", "Money", "Transfer", "Repair", "Cannon", "Ship"};
        tell(enabled ? " +" : " -", words.at(static_cast<std::size_t>(order)));
    }
    void setOrderEnabled(game::BattleOrder order, bool enabled) override {
        constexpr std::string_view letters = "FDRC";  // Fight, to the Death, Run, dump Cargo
        tell(enabled ? " +" : " -", letters.substr(static_cast<std::size_t>(order), 1));
    }
    void setAtSea(bool atSea) override { tell(atSea ? " at sea" : " in port"); }
    bool ask(std::string_view text, std::string_view title) override {
        return inform(text, title), answer();
    }
    void inform(std::string_view text, std::string_view title) override {
        line("[", title, "] ", text);
    }
    void inform(std::string_view text) override { line("[] ", text); }
    void showBattle() override {}
    void showFleet(game::Currency ships) override { tell(" fleet:", ships); }
    void showStatus(game::Currency percent) override { tell(" status:", percent); }
    void showCannons(game::Currency cannons) override { tell(" cannons:", cannons); }
    void sinkLast(game::Currency ships, game::Milliseconds step) override {
        tell(" sink:", ships, "x", step);
    }
    void refresh() override { tell(" refresh"); }
    bool confirmDumping() override { return tell(" dump?"), answer(); }
    bool playAgain() override { return tell(" again?"), answer(); }
    void finish() override { tell(" finish"), finished = true; }
    void endProgram() override { tell(" the end"), finished = true; }

protected:
    /// Yes to every question, unless someone knows better.
    virtual bool answer() { return true; }

    template <class... Parts>
    void tell(const Parts&... parts) {
        if (m_writes) {
            (told.append(text(parts)), ...);
        }
    }
    template <class... Parts>
    void line(const Parts&... parts) {
        tell(told.empty() ? "" : "\n", parts...);
    }

private:
    static std::string_view text(std::string_view part) { return part; }
    static std::string text(game::Currency part) { return plainText(part); }
    static std::string text(game::Milliseconds part) { return std::to_string(part.count()); }

    bool m_writes;
};

}  // namespace test
