#pragma once

#include "pace.h"

namespace ui {

/// Returns once `duration` has passed, never early; windows stay responsive meanwhile. Zero or less
/// returns at once without handling any event.
void Delay(game::Milliseconds duration);

}  // namespace ui
