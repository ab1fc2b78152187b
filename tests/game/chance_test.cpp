// Every draw of the game against its exact odds, each judged twice by 20,000 numbers.
//
// Where they are spread evenly over [0, 1), whatever can come of a draw comes up exactly as often
// as odds.txt says: what is more or less likely than it should be by 1 in 10,000 is found with
// certainty.
//
// Where the game's own generator draws them, Pearson's sum of at most 50 cells fails a fair draw
// one time in a million (z = 4.75); the seed is fixed, so it passes always or never. An unfair one
// is found 99 times in 100 where, of two things, 1 in 110 is off by 56 % of itself, 1 in 25 by
// 27 %, 1 in 8 by 15 % or 4 in 10 by 7 %; or where one of 21 is off by 31 %, one of 50 cells by
// 54 %.

#include <gtest/gtest.h>

#include <cmath>
#include <map>

#include "approved.h"
#include "script.h"

namespace {

struct Count {
    double even = 0;
    double drawn = 0;
};

/// Texts that differ in a number alone stand in the order of the numbers.
struct Shortest {
    bool operator()(const std::string& a, const std::string& b) const {
        return a.size() != b.size() ? a.size() < b.size() : a < b;
    }
};
using Outcomes = std::map<std::string, Count, Shortest>;

/// The words with what is told behind them up to a blank, "nothing" where they are not told.
std::string outcome(const std::string& told, const std::string& words) {
    const std::size_t start = told.find(words);
    const std::size_t end = told.find_first_of(" \n", start + words.size());
    return start == told.npos ? "nothing" : told.substr(start, end - start);
}

/// How many sides of the die bring what; many in a row that are equally likely share a line.
std::string odds(const Outcomes& outcomes, int rounds) {
    std::ostringstream told;
    for (auto next = outcomes.begin(); next != outcomes.end(); ++next) {
        const auto& [text, count] = *next;
        const auto last = std::find_if(
            next, outcomes.end(),
            [fair = count.even](const auto& other) { return other.second.even != fair; });
        told << count.even / rounds << ": " << text;
        if (const auto number = std::distance(next, last); number > 9) {
            next = std::prev(last);
            told << " to " << next->first << ", " << number << " of them";
        }
        told << '\n';
    }
    return told.str();
}

/// Pearson's sum as a figure of the normal distribution (Wilson and Hilferty).
double deviation(const Outcomes& outcomes) {
    const std::size_t number = std::min<std::size_t>(outcomes.size(), 50);
    std::vector<Count> cells(number);
    std::size_t place = 0;
    for (const auto& [text, count] : outcomes) {
        Count& cell = cells[place++ * number / outcomes.size()];
        cell.even += count.even;
        cell.drawn += count.drawn;
    }
    double sum = 0;
    for (const auto& [fair, seen] : cells) {
        sum += (seen - fair) * (seen - fair) / fair;
    }
    const double freedom = static_cast<double>(number) - 1;
    const double spread = 2 / (9 * freedom);
    return (std::cbrt(sum / freedom) - (1 - spread)) / std::sqrt(spread);
}

TEST(Chance, KeepsTheOddsOfEveryDraw) {
    game::Generator generator(1'860);
    test::expectScripts("odds.txt", [&](const std::string& line) {
        std::istringstream parts(line.substr(1));
        std::string script, sides, words;
        std::getline(parts, script, '|') >> sides >> std::ws;
        std::getline(parts, words);
        const test::Script draw(script);
        const int rounds = 20'000 / std::stoi(sides) + 1;
        const int trials = rounds * std::stoi(sides);
        Outcomes outcomes;
        for (int trial = 0; trial < trials; ++trial) {
            outcomes[outcome(draw.told((trial + 0.5) / trials), words)].even += 1;
            outcomes[outcome(draw.told(generator.Rnd()), words)].drawn += 1;
        }
        EXPECT_LT(deviation(outcomes), 4.75) << line;
        return odds(outcomes, rounds);
    });
}

}  // namespace
