#pragma once

#include <string_view>

#include "game_state.h"
#include "random.h"
#include "voyage_scene.h"

namespace game {

inline constexpr int passageSteps = 25;
inline constexpr int encounterSides = 110;  ///< a step meets pirates when this die ...
inline constexpr int encounterFace = 5;     ///< ... shows this face
inline constexpr int mostEncounters = 2;    ///< a voyage

/// The destination proposed to a captain who lies at `location`: one drawn port, and where that
/// is the port he lies in the next one, Batavia being followed by Hong Kong.
[[nodiscard]] std::string_view proposedPort(Random& random, std::string_view location);

/// A whole month: departure, passage with its pirates and, where the game survives them, the
/// arrival at `destination` with all that awaits there.
void sail(GameState& state, Random& random, VoyageScene& scene, std::string_view destination);

}  // namespace game
