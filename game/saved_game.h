#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "game_state.h"

namespace game {

/// The text of a saved game: 26 lines, each a value and a carriage return and line feed.
[[nodiscard]] std::string writeSavedGame(const GameState& state);

/// The record that a saved game tells of; what is not saved is as in a program just started.
///
/// A value ends with its line or at a comma outside double quotes; what follows the 26th is not
/// looked at. A date must exist, a number fit an amount and a text be closed in its line, where
/// nothing after its closing quote counts. What is no saved game reads as nothing.
[[nodiscard]] std::optional<GameState> readSavedGame(std::string_view text);

/// Goes on with a saved game. What is not saved stays as it is in `state`, save that a game is now
/// in play and has no unsaved changes.
void resumeGame(GameState& state, const GameState& saved);

}  // namespace game
