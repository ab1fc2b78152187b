// The rules as scripts: a game, what happens in it, and what came of that.

#include <gtest/gtest.h>

#include "approved.h"
#include "script.h"

TEST(Rules, HoldAsApproved) {
    test::expectScripts("rules.txt", [](const std::string& line) {
        const std::string told = test::Script(line.substr(1)).told();
        return told.empty() ? told : told + "\n";
    });
}
