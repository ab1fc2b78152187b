#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace test {

/// Compares `found` with the approved text in tests/approved. With ZHENBAO_APPROVE=1 it replaces
/// the approved text: read the difference before you commit it.
inline void expectApproved(const std::string& name, const std::string& found) {
    if (testing::Test::HasFailure()) {
        return;
    }
    const std::string path = ZHENBAO_APPROVED "/" + name;
    if (std::getenv("ZHENBAO_APPROVE") != nullptr) {
        std::ofstream{path} << found;
    }
    const std::string approved = (std::ostringstream{} << std::ifstream{path}.rdbuf()).str();
    const auto difference = std::ranges::mismatch(found, approved).in1;
    const std::string same(found.begin(), difference);
    const std::size_t line = same.rfind('\n') + 1;
    const std::size_t length = same.size() - line + 200;  // to behind the difference
    EXPECT_EQ(approved.substr(line, length), found.substr(line, length))
        << name << ':' << std::ranges::count(same, '\n') + 1;
}

/// Plays every script of such a file, a line that begins with `>`, and gives back the file with
/// what `play` says beside each, or below it. Headings and blank lines stay as they are. A script
/// that cannot be played fails with its line.
template <class Play>
std::string played(const std::string& name, Play play) {
    constexpr std::size_t longestLine = 100;
    std::ifstream file{ZHENBAO_APPROVED "/" + name};
    std::string text;
    std::string line;
    for (int number = 1; std::getline(file, line); ++number) {
        if (line.empty() || line.starts_with("# ")) {
            text += line + "\n";
        } else if (line.starts_with('>')) {
            const std::string script = line.substr(0, line.find(" => "));
            const testing::ScopedTrace trace(name.c_str(), number, script);
            try {
                const std::string result = play(script);
                const bool fits = result.find('\n') == std::string::npos &&
                                  script.size() + result.size() + 4 <= longestLine;
                text += script + (result.empty() ? "" : fits ? " => " : "\n") + result + "\n";
            } catch (const std::exception& error) {
                ADD_FAILURE() << error.what();
            }
        }
    }
    return text;
}

}  // namespace test
