#pragma once

#include <vector>

#include "games.h"

namespace test {

/// Records that no play leads to, but a file can: all load, and none may do harm afterwards.
inline std::vector<game::GameState> absurdGames() {
    using game::Currency;
    using game::GameState;
    std::vector<GameState> games;
    const auto add = [&games](auto change) { games.push_back(newGameWith(change)); };
    const auto addDate = [&add](int year, unsigned month, unsigned day) {
        add([=](GameState& state) {
            state.gdtmDate = game::GameDate{std::chrono::year{year}, std::chrono::month{month},
                                            std::chrono::day{day}};
        });
    };
    addDate(1, 1, 1);
    addDate(100, 1, 31);
    addDate(9999, 11, 30);
    addDate(9999, 12, 31);
    for (const char* port : {"", "hong kong", "Atlantis", "<h1>&Macao</h1>"}) {
        add([=](GameState& state) { state.gstrLocation = port; });
    }
    for (const std::string& firm :
         {std::string{}, std::string{"Smith & Sons"}, std::string{"<b>x</b><img src=y>"},
          std::string{"\u202Eright to left\u2067"}, std::string{"two\u2028lines\u2029\r\x01"},
          std::string(10'000'000, 'W')}) {
        add([&](GameState& state) { state.gstrFirm = firm; });
    }
    for (const Currency amount :
         {Currency{0}, Currency{-5}, Currency{1'000}, Currency{1'000'000'000},
          Currency{100'000'000'000'000}, Currency::fromTenThousandths(1), Currency::highest(),
          Currency::lowest()}) {
        for (const game::Field field :
             {&GameState::gcurCannons, &GameState::gcurStatus, &GameState::gcurHold,
              &GameState::gcurMaxHold, &GameState::gcurBank, &GameState::gcurDebt,
              &GameState::gcurCash, &GameState::gcurPCannon, &GameState::gcurPShip,
              &GameState::gcurPayoff}) {
            add([=](GameState& state) { state.*field = amount; });
        }
        for (const auto column :
             {&game::GoodRow::ship, &game::GoodRow::warehouse, &game::GoodRow::price}) {
            add([=](GameState& state) {
                for (const game::GoodRow& good : game::goods) {
                    state.*(good.*column) = amount;
                }
            });
        }
    }
    return games;
}

}  // namespace test
