#pragma once

#include <string_view>

#include "game_state.h"
#include "random.h"
#include "voyage_scene.h"

namespace game {

inline constexpr int passageSteps = 25;

/// The destination proposed at `location`: a drawn port, or the next one if the ship lies in the
/// drawn one. Hong Kong follows Batavia.
[[nodiscard]] std::string_view proposedPort(Random& random, std::string_view location);

/// A whole month: departure, passage with its pirates and, if the ship survives them, the arrival
/// at `destination` with its events and visitors.
void sail(GameState& state, Random& random, VoyageScene& scene, std::string_view destination);

}  // namespace game
