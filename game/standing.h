#pragma once

#include <array>
#include <string_view>

#include "game_state.h"

namespace game {

struct RankRow {
    std::string_view name;
    Currency from;  ///< the lowest score of the rank; the first also takes every lower one
    std::string_view points;  ///< as the legend shows them
};

inline constexpr std::array<RankRow, 5> ranks{{
    {"Galley Hand", 0, "0 - 500"},
    {"Compradore", 501, "500 - 999"},
    {"Zhenbao", 1'000, "1,000 - 7,999"},
    {"Master Zhenbao", 8'000, "8,000 - 49,999"},
    {"Ma Tsu", 50'000, "50,000 +"},
}};

inline constexpr Currency million = 1'000'000;
inline constexpr Currency trillion = 1'000'000'000'000;

/// Recomputes net worth, score and rank. The score stays as it was in the first month.
void updateStanding(GameState& state);

/// From a million up to a trillion, unless the notice was shown in this game.
[[nodiscard]] bool millionaireNoticeDue(const GameState& state);
[[nodiscard]] bool isTrillionaire(const GameState& state);
[[nodiscard]] bool isBankrupt(const GameState& state);
/// From a million dollars of net worth on.
[[nodiscard]] bool mayRetire(const GameState& state);

inline constexpr std::string_view bankruptcyQuestion =
    "Zhenbao, you are Bankrupt.  Would you like to play again?   ";

/// Ends the game; only a new one can follow.
void endGame(GameState& state);

}  // namespace game
