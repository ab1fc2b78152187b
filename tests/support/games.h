#pragma once

#include <cmath>
#include <sstream>
#include <string>
#include <string_view>

#include "new_game.h"

namespace test {

/// A draw as scripts write it: the face of a die ("3/25"), 0 for the lowest and 1 for the highest
/// there are, or - for none of interest.
inline double drawn(const std::string& die) {
    const std::size_t slash = die.find('/');
    return die == "0"          ? 0.0
           : die == "1"        ? std::nextafter(1.0, 0.0)
           : slash == die.npos ? 0.99
                               : (std::stoi(die) - 0.5) / std::stoi(die.substr(slash + 1));
}

/// Visits the whole record member by member, each with its name.
template <class Visit>
void eachMember(Visit visit) {
    using G = game::GameState;
    visit("Date", &G::gdtmDate), visit("Firm", &G::gstrFirm), visit("At", &G::gstrLocation),
        visit("Cannons", &G::gcurCannons), visit("Status", &G::gcurStatus),
        visit("Hold", &G::gcurHold), visit("MaxHold", &G::gcurMaxHold),
        visit("SOpium", &G::gcurSOpium), visit("SSilk", &G::gcurSSilk),
        visit("SArms", &G::gcurSArms), visit("SGeneral", &G::gcurSGeneral),
        visit("WOpium", &G::gcurWOpium), visit("WSilk", &G::gcurWSilk),
        visit("WArms", &G::gcurWArms), visit("WGeneral", &G::gcurWGeneral),
        visit("POpium", &G::gcurPOpium), visit("PSilk", &G::gcurPSilk),
        visit("PArms", &G::gcurPArms), visit("PGeneral", &G::gcurPGeneral),
        visit("Bank", &G::gcurBank), visit("Debt", &G::gcurDebt), visit("Cash", &G::gcurCash),
        visit("PCannon", &G::gcurPCannon), visit("PShip", &G::gcurPShip),
        visit("Payoff", &G::gcurPayoff), visit("Millionaire", &G::gblnMillionaire),
        visit("Active", &G::gblnActiveGame), visit("Saved", &G::gblnGameSaved),
        visit("Over", &G::gblnGameOver), visit("NetWorth", &G::gcurNetWorth),
        visit("Score", &G::gcurRank), visit("Rank", &G::gstrRank);
}

/// A member of the record as scripts write it, and as they tell it.
struct Figure {
    static void read(const std::string& text, game::Currency& amount) {
        amount = game::readDecimal(text).value();
    }
    static void read(const std::string& text, game::GameDate& date) {
        const auto number = [&](std::size_t from) { return std::stoi(text.substr(from)); };
        date = std::chrono::year{number(0)} / number(5) / number(8);
    }
    static void read(const std::string& text, std::string& name) { name = text; }
    static void read(const std::string& text, bool& flag) { flag = text == "yes"; }

    static std::string told(game::Currency amount) { return plainText(amount); }
    static std::string told(const game::GameDate& date) { return game::dateText(date); }
    static std::string told(const std::string& name) { return name; }
    static std::string told(bool flag) { return flag ? "yes" : "no"; }
};

/// A game just started: Hong Kong, $1,000 cash, no debt, no cannons, an empty hold of 60, prices
/// 12,000, 1,100, 90 and 14. A case changes what it is about, as in "Date=1860-02-15 Cash=22.5".
inline game::GameState newGame(const std::string& figures = {}) {
    game::Generator prices(0);
    game::GameState state;
    game::startGame(state, prices, game::Scenario::CashAndDebt, "Heron & Sons");
    std::istringstream words(
        "Cash=1000 Debt=0 POpium=12000 PSilk=1100 PArms=90 PGeneral=14 Saved=yes " + figures);
    for (std::string name, value;
         std::getline(words >> std::ws, name, '=') && std::getline(words, value, ' ');) {
        eachMember([&](std::string_view known, auto member) {
            if (known == name) {
                Figure::read(value, state.*member);
            }
        });
    }
    return state;
}

/// Every member that differs, as in " At=Manila Cash=0 Saved=no".
inline std::string changes(const game::GameState& before, const game::GameState& after) {
    std::string told;
    eachMember([&](std::string_view name, auto member) {
        if (before.*member != after.*member) {
            told.append(" ").append(name).append("=").append(Figure::told(after.*member));
        }
    });
    return told;
}

}  // namespace test
