#pragma once

#include <iterator>
#include <sstream>
#include <string>
#include <string_view>

#include "new_game.h"
#include "scripted_random.h"

namespace test {

/// Visits the whole record member by member, each with its name; first what a saved game holds.
template <class Visit>
void eachMember(Visit visit) {
    using G = game::GameState;
    std::istringstream names(
        "Date Firm At Cannons Status Hold MaxHold SOpium SSilk SArms SGeneral WOpium WSilk WArms "
        "WGeneral POpium PSilk PArms PGeneral Bank Debt Cash PCannon PShip Payoff Millionaire "
        "Active Saved Over NetWorth Score Rank");
    const auto visitAll = [&](auto... member) {
        (visit(*std::istream_iterator<std::string>(names), member), ...);
    };
    visitAll(&G::gdtmDate, &G::gstrFirm, &G::gstrLocation, &G::gcurCannons, &G::gcurStatus,
             &G::gcurHold, &G::gcurMaxHold, &G::gcurSOpium, &G::gcurSSilk, &G::gcurSArms,
             &G::gcurSGeneral, &G::gcurWOpium, &G::gcurWSilk, &G::gcurWArms, &G::gcurWGeneral,
             &G::gcurPOpium, &G::gcurPSilk, &G::gcurPArms, &G::gcurPGeneral, &G::gcurBank,
             &G::gcurDebt, &G::gcurCash, &G::gcurPCannon, &G::gcurPShip, &G::gcurPayoff,
             &G::gblnMillionaire, &G::gblnActiveGame, &G::gblnGameSaved, &G::gblnGameOver,
             &G::gcurNetWorth, &G::gcurRank, &G::gstrRank);
}

/// A game just started: Hong Kong, $1,000 cash, no debt, no cannons, an empty hold of 60, prices
/// 12,000, 1,100, 90 and 14. A case changes what it is about, as in "At=Manila Cash=22.5".
inline game::GameState newGame(const std::string& figures = {}) {
    ScriptedRandom prices{roll(8, 21), roll(7, 21), roll(5, 21), roll(10, 21)};
    game::GameState state;
    game::startGame(state, prices, game::Scenario::CashAndDebt, "Heron & Sons");
    state.gcurCash = 1'000;
    state.gcurDebt = 0;
    state.gblnGameSaved = true;

    std::istringstream words(figures);
    for (std::string name, value; std::getline(words >> std::ws, name, '=') && words >> value;) {
        eachMember([&](std::string_view known, auto member) {
            if constexpr (std::is_same_v<decltype(member), game::Field>) {
                state.*member = known == name ? game::readDecimal(value).value() : state.*member;
            } else if constexpr (std::is_same_v<decltype(member), bool game::GameState::*>) {
                state.*member = known == name ? value == "yes" : state.*member;
            }
        });
        state.gstrLocation = name == "At" ? value : state.gstrLocation;
    }
    return state;
}

/// The same with `change` applied.
template <class Change>
game::GameState newGameWith(Change change) {
    game::GameState state = newGame();
    change(state);
    return state;
}

struct Written {
    static std::string text(game::Currency amount) { return plainText(amount); }
    static std::string text(const game::GameDate& date) { return game::dateText(date); }
    static std::string text(const std::string& text) { return text; }
    static std::string text(bool flag) { return flag ? "yes" : "no"; }
};

/// Every member that differs, as in " At=Manila Cash=0 Saved=no".
inline std::string changes(const game::GameState& before, const game::GameState& after) {
    std::string told;
    eachMember([&](std::string_view name, auto member) {
        if (before.*member != after.*member) {
            told.append(" ").append(name).append("=").append(Written::text(after.*member));
        }
    });
    return told;
}

}  // namespace test
