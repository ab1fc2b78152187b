#pragma once

#include <algorithm>
#include <string_view>
#include <utility>

#include "new_game.h"
#include "scripted_random.h"

namespace test {

/// Visits every member of the record with its name in scripts.
template <class Visit>
void eachMember(Visit visit) {
    using G = game::GameState;
    const auto visitAll = [&visit](const auto&... rows) { (visit(rows.first, rows.second), ...); };
    using std::pair;
    visitAll(pair{"Date", &G::gdtmDate}, pair{"Firm", &G::gstrFirm}, pair{"At", &G::gstrLocation},
             pair{"Cannons", &G::gcurCannons}, pair{"Status", &G::gcurStatus},
             pair{"Hold", &G::gcurHold}, pair{"MaxHold", &G::gcurMaxHold},
             pair{"SOpium", &G::gcurSOpium}, pair{"SSilk", &G::gcurSSilk},
             pair{"SArms", &G::gcurSArms}, pair{"SGeneral", &G::gcurSGeneral},
             pair{"WOpium", &G::gcurWOpium}, pair{"WSilk", &G::gcurWSilk},
             pair{"WArms", &G::gcurWArms}, pair{"WGeneral", &G::gcurWGeneral},
             pair{"POpium", &G::gcurPOpium}, pair{"PSilk", &G::gcurPSilk},
             pair{"PArms", &G::gcurPArms}, pair{"PGeneral", &G::gcurPGeneral},
             pair{"Bank", &G::gcurBank}, pair{"Debt", &G::gcurDebt}, pair{"Cash", &G::gcurCash},
             pair{"PCannon", &G::gcurPCannon}, pair{"PShip", &G::gcurPShip},
             pair{"Payoff", &G::gcurPayoff}, pair{"Millionaire", &G::gblnMillionaire},
             pair{"Active", &G::gblnActiveGame}, pair{"Saved", &G::gblnGameSaved},
             pair{"Over", &G::gblnGameOver}, pair{"NetWorth", &G::gcurNetWorth},
             pair{"Score", &G::gcurRank}, pair{"Rank", &G::gstrRank});
}

/// How scripts write the figures of a record. Each function `read` returns whether it could.
struct Figure {
    static bool read(const std::string& text, game::Currency& amount) {
        amount = game::readDecimal(text).value_or(0);
        return game::readDecimal(text).has_value();
    }
    static bool read(const std::string& text, game::GameDate& date) {
        const auto number = [&](std::size_t from) { return std::stoi(text.substr(from)); };
        date = std::chrono::year{number(0)} / number(5) / number(8);
        return date.ok();
    }
    static bool read(const std::string& text, std::string& name) {
        name = text;
        return true;
    }
    static bool read(const std::string& text, bool& flag) {
        flag = text == "yes";
        return flag || text == "no";
    }

    static std::string text(game::Currency amount) { return plainText(amount); }
    static std::string text(const game::GameDate& date) { return game::dateText(date); }
    static std::string text(const std::string& name) { return name; }
    static std::string text(bool flag) { return flag ? "yes" : "no"; }
};

/// Changes one figure of a record, as in "Cash=22.5". What is wrong or without effect throws.
inline void change(game::GameState& state, const std::string& figure) {
    const game::GameState before = state;
    const std::size_t equals = std::min(figure.find('='), figure.size() - 1);
    bool valid = false;
    eachMember([&](std::string_view name, auto member) {
        if (name == figure.substr(0, equals)) {
            valid = Figure::read(figure.substr(equals + 1), state.*member);
        }
    });
    if (!valid || state == before || std::ranges::count(game::ports, state.gstrLocation) == 0) {
        throw std::runtime_error("unknown, wrong or without effect: " + figure);
    }
}

/// A game just started: Hong Kong, $1,000 cash, no debt, no cannons, an empty hold of 60, prices
/// 12,000, 1,100, 90 and 14, saved; then `figures`, as in "Date=1860-02-15 Cash=22.5".
inline game::GameState newGame(const std::string& figures = {}) {
    ScriptedRandom prices("8/21 7/21 5/21 10/21");
    game::GameState state;
    game::startGame(state, prices, game::Scenario::CashAndDebt, "Heron & Sons");
    state.gcurCash = 1'000;
    state.gcurDebt = 0;
    state.gblnGameSaved = true;
    std::istringstream words(figures);
    for (std::string figure; words >> figure;) {
        change(state, figure);
    }
    return state;
}

/// Every figure that differs, as in " At=Manila Cash=0 Saved=no".
inline std::string changes(const game::GameState& before, const game::GameState& after) {
    std::string text;
    eachMember([&](std::string_view name, auto member) {
        if (before.*member != after.*member) {
            text.append(" ").append(name).append("=").append(Figure::text(after.*member));
        }
    });
    return text;
}

}  // namespace test
