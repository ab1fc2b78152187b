// The rules as scripts: tests/README.md explains them.

#include <gtest/gtest.h>

#include "approved.h"
#include "script.h"

TEST(Rules, HoldAsApproved) {
    constexpr std::size_t longestLine = 100;
    test::expectScripts("rules.txt", [](const std::string& script) {
        const std::string happened = test::play(script.substr(1));
        const bool fits = happened.find('\n') == happened.npos &&
                          script.size() + happened.size() + 4 <= longestLine;
        return happened.empty() ? "" : (fits ? "=> " : "") + happened + "\n";
    });
}
