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
            if (die == "0" || die == "1") {
                return die == "0" ? 0 : std::nextafter(1.0, 0.0) * span;
            }
            if (const std::size_t slash = die.find('/'); slash != die.npos) {
                return face(number(die.substr(0, slash)), number(die.substr(slash + 1)), span);
            }
            if (!die.ends_with('-') && die != "*") {
                throw std::runtime_error("not a draw: " + die);
            }
            m_anyDraws = die == "-"   ? 1
                         : die == "*" ? endless
                                      : static_cast<int>(number(die.substr(0, die.size() - 1)));
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

    [[nodiscard]] bool atEnd() { return (m_words >> std::ws).eof(); }

    /// What nobody has asked for, empty where every word was used.
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

    static double number(const std::string& text) {
        const auto read = game::readDecimal(text);
        return read ? read->toDouble() : throw std::runtime_error("not a number: " + text);
    }
    /// The middle of a face, which may be the narrower last one.
    static double face(double face, double sides, double span) {
        const double width = std::abs(span);
        if (std::abs(sides - span) > 1e-4 || face < 1 || (face > 1 && face - 1 >= width)) {
            std::ostringstream wrong;
            wrong << face << '/' << sides << " is no face of a die of " << span;
            throw std::runtime_error(wrong.str());
        }
        return std::copysign((face - 1 + std::min(face, width)) / 2, span);
    }

    std::istringstream m_words;
    int m_anyDraws = 0;  ///< of the last word, still to come
};

}  // namespace test
