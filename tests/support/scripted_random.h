#pragma once

#include <cmath>
#include <string>

namespace test {

/// A draw as scripts write it: the face of a die ("3/25"), 0 for the lowest and 1 for the highest
/// there are, or - for none of interest.
inline double drawn(const std::string& die) {
    const std::size_t slash = die.find('/');
    return die == "0"          ? 0.0
           : die == "1"        ? std::nextafter(1.0, 0.0)
           : slash == die.npos ? 0.99
                               : (std::stoi(die) - 0.5) / std::stoi(die.substr(slash + 1));
}

}  // namespace test
