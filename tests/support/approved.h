#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>

namespace test {

/// Compares what the program tells with what somebody has read and found right, a file of
/// tests/approved. With ZHENBAO_APPROVE=1 it becomes the file: then read the difference.
inline void expectApproved(const std::string& name, const std::string& told) {
    const std::string path = ZHENBAO_APPROVED "/" + name;
    if (std::getenv("ZHENBAO_APPROVE") != nullptr) {
        std::ofstream{path} << told;
    }
    std::istringstream found{told};
    std::ifstream file{path};
    std::string line;
    for (std::string approved; std::getline(file, approved);) {
        ASSERT_TRUE(std::getline(found, line) && line == approved) << name << ":\n"
                                                                   << line << "\nis not\n"
                                                                   << approved;
    }
    EXPECT_FALSE(std::getline(found, line)) << name << " knows no " << line;
}

/// Plays every script of such a file, the lines that begin with `>`, and gives back the file with
/// what `play` tells of each. Headings and blank lines stay as they are.
template <class Play>
std::string played(const std::string& name, Play play) {
    std::string told;
    int scripts = 0;
    std::ifstream file{ZHENBAO_APPROVED "/" + name};
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with('>')) {
            told += line + "\n" + play(line);
            ++scripts;
        } else if (line.empty() || line.starts_with("# ")) {
            told += line + "\n";
        }
    }
    EXPECT_GT(scripts, 0) << "nothing to play in " << name;
    return told;
}

/// Plays every script of such a file and compares what is told with it.
template <class Play>
void expectScripts(const std::string& name, Play play) {
    expectApproved(name, played(name, play));
}

}  // namespace test
