#pragma once

#include <string_view>

#include "game_state.h"
#include "random.h"
#include "voyage_scene.h"

namespace game {

/// The end of the month: new prices, the calendar, the port (perhaps not `destination`), perhaps a
/// storm, interest rounded down to whole dollars, and the tribute counter.
void arrive(GameState& state, Random& random, VoyageScene& scene, std::string_view destination);

}  // namespace game
