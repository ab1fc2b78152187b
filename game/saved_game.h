#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "game_state.h"

namespace game {

/// The text of a saved game: 26 lines, each a value, a carriage return and a line feed.
[[nodiscard]] std::string writeSavedGame(const GameState& state);

/// The record in the text of a saved game; what is not saved is as in a program just started.
///
/// A value ends with its line or at a comma outside double quotes; text after the 26th is ignored.
/// A date must exist, a number fit an amount and a text end with a quote in its line; what follows
/// that quote is ignored. Returns nothing for any other text.
[[nodiscard]] std::optional<GameState> readSavedGame(std::string_view text);

/// Goes on with a saved game. What is not saved stays as it is in `state`, but a game is now in
/// play and has no unsaved changes.
void resumeGame(GameState& state, const GameState& saved);

}  // namespace game
