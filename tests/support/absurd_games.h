#pragma once

#include <string>
#include <vector>

#include "games.h"

namespace test {

/// Records that no play leads to, but a file can: all load, and none may do harm afterwards.
inline std::vector<game::GameState> absurdGames() {
    using namespace std::chrono;
    using game::Currency, game::GameState;
    std::vector<GameState> games;
    const auto add = [&games](auto field, const auto&... values) {
        ((games.push_back(newGame()), games.back().*field = values), ...);
    };
    add(&GameState::gdtmDate, year{1} / 1 / 1, year{100} / 1 / 31, year{9999} / 11 / 30,
        year{9999} / 12 / 31);
    add(&GameState::gstrLocation, "", "hong kong", "Atlantis", "<h1>&Macao</h1>");
    add(&GameState::gstrFirm, "", "Smith & Sons", "<b>x</b><img src=y>",
        "\u202Eright to left\u2067", "two\u2028lines\u2029\r\x01", std::string(10'000'000, 'W'));
    eachMember([&add](std::string_view /*name*/, auto member) {
        if constexpr (std::is_same_v<decltype(member), game::Field>) {
            add(member, 0, -5, 1'000, 1'000'000'000, 100'000'000'000'000,
                Currency::fromTenThousandths(1), Currency::highest(), Currency::lowest());
        }
    });
    return games;
}

}  // namespace test
