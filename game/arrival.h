#pragma once

#include <string_view>

#include "game_state.h"
#include "random.h"
#include "voyage_scene.h"

namespace game {

inline constexpr double bankInterest = 0.005;  ///< of the balance, each month
inline constexpr double debtInterest = 0.1;    ///< of the debt, each month

/// The month's end: new prices, the calendar, the port (perhaps another than was steered for),
/// perhaps a storm, interest rounded down to whole dollars, and the tribute counter.
void arrive(GameState& state, Random& random, VoyageScene& scene, std::string_view destination);

}  // namespace game
