#pragma once

#include "game_state.h"
#include "new_game.h"
#include "scripted_random.h"

namespace test {

/// A game just started: Hong Kong, $1,000 cash, no debt, no cannons, an empty hold of 60, prices
/// 12,000, 1,100, 90 and 14. A case changes what it is about.
inline game::GameState newGame() {
    ScriptedRandom prices{roll(8, 21), roll(7, 21), roll(5, 21), roll(10, 21)};
    game::GameState state;
    game::startGame(state, prices, game::Scenario::CashAndDebt, "Heron & Sons");
    state.gcurCash = 1'000;
    state.gcurDebt = 0;
    state.gblnGameSaved = true;
    return state;
}

/// The same with `change` applied.
template <class Change>
game::GameState newGameWith(Change change) {
    game::GameState state = newGame();
    change(state);
    return state;
}

}  // namespace test
