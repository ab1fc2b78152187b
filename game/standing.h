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

[[nodiscard]] std::string_view rankName(Currency score);

/// Net worth / (100 x months elapsed), rounded down; `months` is above 0.
[[nodiscard]] Currency score(Currency netWorth, int months);

/// Recomputes net worth, score and rank. The score stays as it was in the first month.
void updateStanding(GameState& state);

/// A first million, below a trillion, that has not been announced in this game.
[[nodiscard]] bool millionaireNoticeDue(const GameState& state);
[[nodiscard]] bool isTrillionaire(const GameState& state);
[[nodiscard]] bool isBankrupt(const GameState& state);
/// From a million on the trader may retire.
[[nodiscard]] bool mayRetire(const GameState& state);

inline constexpr std::string_view bankruptcyQuestion =
    "Zhenbao, you are Bankrupt.  Would you like to play again?   ";

/// The game has ended; only a new one can follow.
void endGame(GameState& state);

}  // namespace game
