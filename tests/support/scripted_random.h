#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <deque>
#include <string>
#include <vector>

#include "random.h"

namespace test {

/// A draw that lets a die of `sides` show `face`.
inline double roll(int face, int sides) {
    return (face - 0.5) / sides;
}

/// A draw as scripts write it: the face of a die ("3/25"), 0 for the lowest and 1 for the highest
/// there are, or - for none of interest.
inline double drawn(const std::string& die) {
    const std::size_t slash = die.find('/');
    return die == "0"          ? 0.0
           : die == "1"        ? std::nextafter(1.0, 0.0)
           : slash == die.npos ? 0.99
                               : roll(std::stoi(die), std::stoi(die.substr(slash + 1)));
}

/// Chance as a test wants it. Running out of draws fails the test, and so does one left over.
class ScriptedRandom final : public game::Random {
public:
    ScriptedRandom() = default;
    ScriptedRandom(const ScriptedRandom&) = delete;
    ScriptedRandom& operator=(const ScriptedRandom&) = delete;
    ~ScriptedRandom() override { EXPECT_EQ(m_draws.size(), 0U) << "draws left over"; }

    void add(const std::vector<double>& draws, int times = 1) {
        for (int time = 0; time < times; ++time) {
            m_draws.insert(m_draws.end(), draws.begin(), draws.end());
        }
    }

    double Rnd() override {
        const double draw = m_draws.at(0);  // throws where there is none left
        m_draws.pop_front();
        return draw;
    }

private:
    std::deque<double> m_draws;
};

}  // namespace test
