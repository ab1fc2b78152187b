#pragma once

#include "game_state.h"
#include "random.h"

namespace game {

/// Draws the four prices of a port: each 5 to 25 steps of its good, never below 1 dollar.
void drawPrices(GameState& state, Random& random);

}  // namespace game
