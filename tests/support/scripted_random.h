#pragma once

#include <algorithm>
#include <cmath>
#include <deque>
#include <sstream>
#include <stdexcept>
#include <string>

#include "random.h"

namespace test {

/// A script's words, and a generator that takes its draws from them. "3/25" is face 3 of a die that
/// must have 25 sides; a span that is not whole has a last face as well: "51/50.5". "0" and "1" are
/// the lowest and the highest draw there is, "-" is any draw, "24-" are 24 of them, and "*" at the
/// end stands for all that follow. What cannot be drawn throws.
class ScriptedRandom : public game::Random {
public:
    explicit ScriptedRandom(const std::string& script) {
        std::istringstream words(script);
        for (std::string word; words >> word;) {
            const bool anyDraws = word.find_first_not_of("0123456789") == word.size() - 1 &&
                                  word.size() > 1 && word.ends_with('-');
            m_words.insert(m_words.end(), anyDraws ? std::stoul(word) : 1, anyDraws ? "-" : word);
        }
    }

    double Rnd() override { return draw(1); }

    double draw(double span) override {
        const std::string die = next();
        if (die == "0" || die == "1") {
            return die == "0" ? 0 : std::nextafter(1.0, 0.0) * span;
        }
        return die == "-" || die == "*" ? 0.99 * span : face(die, span);
    }

    /// The script's next word.
    std::string next() {
        if (m_words.empty()) {
            throw std::runtime_error("the script ends too soon");
        }
        std::string word = m_words.front();
        if (word != "*") {
            m_words.pop_front();
        }
        return word;
    }

    /// The words that nothing has asked for, each after a blank.
    [[nodiscard]] std::string rest() const {
        std::string left;
        for (const std::string& word : m_words) {
            left += word == "*" ? "" : " " + word;
        }
        return left;
    }

private:
    /// The middle of a face, which may be the narrower last one.
    static double face(const std::string& die, double span) {
        std::istringstream parts(die);
        double face = 0;
        char slash = 0;
        double sides = 0;
        const bool read = parts >> face >> slash >> sides && parts.eof() && slash == '/';
        const double width = std::abs(span);
        if (!read || std::abs(sides - span) > 1e-4 || face < 1 || (face > 1 && face - 1 >= width)) {
            throw std::runtime_error(
                (std::ostringstream{} << die << " is no face of a die of " << span).str());
        }
        return std::copysign((face - 1 + std::min(face, width)) / 2, span);
    }

    std::deque<std::string> m_words;
};

}  // namespace test
