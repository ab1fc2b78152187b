#pragma once

#include <chrono>

namespace game {

using Milliseconds = std::chrono::milliseconds;

/// The durations of everything that the player watches. The waits are rules of the game.
namespace pace {
inline constexpr Milliseconds passageStep{90};
inline constexpr Milliseconds alertFlash{20};
inline constexpr Milliseconds hitFlash{10};
inline constexpr Milliseconds runOrder{2'500};
inline constexpr Milliseconds runOutcome{2'000};
}  // namespace pace

/// The waits of a fight, which a fight to the death plays faster.
struct FightPace {
    Milliseconds volleyOrder;  ///< after either side's announcement of a volley
    Milliseconds beforeShot;
    Milliseconds sinkingStep;  ///< after each of the steps of a sinking
    Milliseconds sunkReport;
    Milliseconds afterHit;
    Milliseconds cannonHit;
};

namespace pace {
inline constexpr FightPace fight{Milliseconds{2'000}, Milliseconds{200}, Milliseconds{5},
                                 Milliseconds{2'000}, Milliseconds{200}, Milliseconds{2'000}};
inline constexpr FightPace toTheDeath{Milliseconds{500}, Milliseconds{50}, Milliseconds{0},
                                      Milliseconds{500}, Milliseconds{50}, Milliseconds{500}};
}  // namespace pace

}  // namespace game
