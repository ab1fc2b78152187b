#pragma once

#include <string>

#include "game_state.h"
#include "random.h"

namespace game {

enum class Scenario {
    CashAndDebt,  ///< 400 dollars, 5,000 of debt, no cannons
    Cannons,      ///< no money, no debt, 5 cannons that fill 50 of the hold's 60 units
};

inline constexpr std::string_view defaultFirm = "Zhenbao";
inline constexpr std::string_view welcomeMessage = " - Welcome Captain";

/// Begins a game in Hong Kong and draws the opening prices. The prices of past offers, the score
/// and the rank stay as they are.
void startGame(GameState& state, Random& random, Scenario scenario, std::string firm);

}  // namespace game
