#pragma once

#include <cstdint>
#include <random>

#include "currency.h"

namespace game {

/// The source of chance. A function that draws takes it as a parameter.
class Random {
public:
    virtual ~Random() = default;

    /// A uniform value in [0, 1), never 1.
    [[nodiscard]] virtual double Rnd() = 0;
    /// Rnd() x `span`. Every draw of the rules goes through it, so a scripted generator knows which
    /// die is rolled.
    [[nodiscard]] virtual double draw(double span) { return Rnd() * span; }
};

/// The game's own generator.
class Generator final : public Random {
public:
    explicit Generator(std::uint64_t seed) : m_engine(seed) {}

    /// 53 bits, so that every value is exact in a double.
    [[nodiscard]] double Rnd() override {
        return static_cast<double>(m_engine() >> 11U) * 0x1.0p-53;
    }

private:
    std::mt19937_64 m_engine;
};

/// A die with `sides` faces: a whole number from 1 to `sides`.
[[nodiscard]] inline int roll(Random& random, int sides) {
    return static_cast<int>(random.draw(sides)) + 1;
}

/// A whole number from `lowest` up over a `span` that need not be whole: Int(Rnd x `span`) +
/// `lowest`. The floor comes before the sum, which could round the highest draw up.
[[nodiscard]] inline Currency drawFrom(Random& random, Currency lowest, double span) {
    return Int(random.draw(span)) + lowest;
}

/// From 1 to half of `amount`, rounded up: what a misfortune takes.
[[nodiscard]] inline Currency drawUpToHalf(Random& random, Currency amount) {
    return drawFrom(random, 1, amount.toDouble() / 2);
}

}  // namespace game
