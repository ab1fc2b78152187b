// The rules as scripts: tests/README.md explains them.

#include <gtest/gtest.h>

#include "approved.h"
#include "script.h"

TEST(Rules, HoldAsApproved) {
    test::expectApproved("rules.txt", test::played("rules.txt", [](const std::string& script) {
                             return test::play(script.substr(1));
                         }));
}
