#pragma once

#include <algorithm>
#include <cmath>
#include <limits>
#include <sstream>
#include <stdexcept>
#include <string>

#include "currency.h"
#include "random.h"

namespace test {

/// A script's words, and a generator that takes its draws from them. "3/25" is face 3 of a die that
/// must have 25 sides; a span that is not whole has a last face as well: "51/50.5". "0" and "1" are
/// the lowest and the highest draw there is, "-" is any draw, "24-" are 24 of them, and "*" stands
/// for all that follow. What cannot be drawn throws.
class ScriptedRandom : public game::Random {
public:
    explicit ScriptedRandom(const std::string& script) : m_words(script) {}

    double Rnd() override { return draw(1); }

    double draw(double span) override {
        if (m_anyDraws == 0) {
            const std::string die = next();
            if (die == "0") {
                return 0;
            }
            if (die == "1") {
                return std::nextafter(1.0, 0.0) * span;
            }
            if (const std::size_t slash = die.find('/'); slash != std::string::npos) {
                return face(number(die.substr(0, slash), die), number(die.substr(slash + 1), die),
                            span);
            }
            m_anyDraws = count(die);
        }
        --m_anyDraws;
        return 0.99 * span;
    }

    /// The script's next word.
    std::string next() {
        std::string word;
        if (!(m_words >> word)) {
            throw std::runtime_error("the script ends too soon");
        }
        return word;
    }

    /// The words that nobody has asked for, empty where all were used.
    [[nodiscard]] std::string rest() {
        std::string left;
        if (m_anyDraws > 0 && m_anyDraws < endless / 2) {
            left = " " + std::to_string(m_anyDraws) + "-";
        }
        for (std::string word; m_words >> word;) {
            left += word == "*" ? "" : " " + word;
        }
        return left;
    }

private:
    static constexpr int endless = std::numeric_limits<int>::max();

    static double number(const std::string& text, const std::string& die) {
        const auto amount = game::readDecimal(text);
        return amount ? amount->toDouble() : throw std::runtime_error("no draw: " + die);
    }
    static int count(const std::string& die) {
        if (die == "*") {
            return endless;
        }
        if (die == "-") {
            return 1;
        }
        const double draws = die.ends_with('-') ? number(die.substr(0, die.size() - 1), die) : 0;
        return draws >= 1 ? static_cast<int>(draws) : throw std::runtime_error("no draw: " + die);
    }
    /// The middle of a face, which may be the narrower last one.
    static double face(double face, double sides, double span) {
        std::ostringstream wrong;
        if (std::abs(sides - span) > 1e-4) {
            wrong << "the script rolls a die of " << sides << ", the rule one of " << span;
            throw std::runtime_error(wrong.str());
        }
        const double width = std::abs(span);
        if (face < 1 || face - 1 > width) {
            wrong << "a die of " << sides << " has no face " << face;
            throw std::runtime_error(wrong.str());
        }
        return std::copysign((face - 1 + std::min(face, width)) / 2, span);
    }

    std::istringstream m_words;
    int m_anyDraws = 0;  ///< of the last word, still to come
};

}  // namespace test
