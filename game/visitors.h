#pragma once

#include "game_state.h"
#include "random.h"
#include "voyage_scene.h"

namespace game {

/// Kwan Tat loses his patience: he summons the captain, and pirates met at sea are his own.
[[nodiscard]] inline bool tributeOverdue(const GameState& state) {
    return state.gcurPayoff > 10;
}

/// What Kwan Tat asks for: up to a twentieth of the net worth of the last refresh and, where that
/// is below 20, 21 to 100 more, without its sign.
[[nodiscard]] Currency drawTribute(const GameState& state, Random& random);

/// Takes the tribute out of the cash. What is missing is added to the debt and given back.
[[nodiscard]] Currency payTribute(GameState& state, Currency tribute);

/// Whoever calls in the port: Kwan Tat's lieutenant abroad; in Hong Kong the money lender, the
/// shipyard's Dunmore and Kwan Tat's request, which the captain may pay or refuse.
void receiveVisitors(GameState& state, Random& random, VoyageScene& scene);

}  // namespace game
