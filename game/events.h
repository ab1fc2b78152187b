#pragma once

#include "game_state.h"
#include "random.h"
#include "voyage_scene.h"

namespace game {

/// The events of an arrival, in this order: the offer of a cannon, the offer of a ship, an opium
/// seizure, a robbery, a theft from the warehouse and a price shock. Each draws before it checks
/// its condition; none depends on the port.
void meetEvents(GameState& state, Random& random, VoyageScene& scene);

}  // namespace game
