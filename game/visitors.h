#pragma once

#include "game_state.h"
#include "random.h"
#include "voyage_scene.h"

namespace game {

/// Kwan Tat has lost patience: he summons the captain, and pirates met at sea are his own.
[[nodiscard]] inline bool tributeOverdue(const GameState& state) {
    return state.gcurPayoff > 10;
}

/// The visits in the port: Kwan Tat's lieutenant abroad; in Hong Kong the money lender, Dunmore of
/// the shipyard and Kwan Tat's request for tribute, which the captain may pay or refuse.
void receiveVisitors(GameState& state, Random& random, VoyageScene& scene);

}  // namespace game
