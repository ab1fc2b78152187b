#pragma once

#include "pace.h"

namespace ui {

/// Returns once `duration` has passed, never early; windows stay responsive meanwhile. Nothing
/// or less than nothing returns at once without handling any event.
void Delay(game::Milliseconds duration);

}  // namespace ui
