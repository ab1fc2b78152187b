#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace test {

/// Compares `found` with the approved text in tests/approved, line by line. With ZHENBAO_APPROVE=1
/// it replaces the approved text: read the difference before you commit it.
inline void expectApproved(const std::string& name, const std::string& found) {
    const std::string path = ZHENBAO_APPROVED "/" + name;
    if (std::getenv("ZHENBAO_APPROVE") != nullptr) {
        std::ofstream{path} << found;
    }
    std::ifstream file{path};
    ASSERT_TRUE(file.is_open()) << path;
    std::istringstream lines{found};
    std::string approved;
    std::string line;
    for (int number = 1; std::getline(file, approved); ++number) {
        std::getline(lines, line);
        ASSERT_EQ(line, approved) << name << ":" << number;
    }
    EXPECT_FALSE(std::getline(lines, line)) << name << " ends before " << line;
}

/// Plays every script of such a file, a line that begins with `>`, and gives back the file with
/// what `play` says below each. Headings and blank lines stay as they are. A script that cannot be
/// played fails with its line.
template <class Play>
std::string played(const std::string& name, Play play) {
    std::ifstream file{ZHENBAO_APPROVED "/" + name};
    std::string text;
    std::string line;
    for (int number = 1; std::getline(file, line); ++number) {
        if (line.empty() || line.starts_with("# ")) {
            text += line + "\n";
        }
        if (!line.starts_with('>')) {
            continue;
        }
        const std::string script = line.substr(0, line.find(" => "));
        try {
            const std::string result = play(script);
            text += script + (result.starts_with("=> ") ? " " : "\n") + result;
        } catch (const std::exception& error) {
            ADD_FAILURE() << name << ":" << number << ": " << error.what() << "\n" << line;
        }
    }
    return text;
}

/// Plays every script of such a file and compares what happens with what the file says.
template <class Play>
void expectScripts(const std::string& name, Play play) {
    const std::string text = played(name, play);
    if (!testing::Test::HasFailure()) {
        expectApproved(name, text);
    }
}

}  // namespace test
