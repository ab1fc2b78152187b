#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

namespace test {

/// Compares what the program tells with what somebody has read and found right, a file of
/// tests/approved. With ZHENBAO_APPROVE=1 it becomes the file: then read the difference.
inline void expectApproved(const std::string& name, const std::string& told) {
    const std::string path = ZHENBAO_APPROVED "/" + name;
    if (std::getenv("ZHENBAO_APPROVE") != nullptr) {
        std::ofstream{path} << told;
    }
    std::ifstream file{path};
    EXPECT_EQ(told, (std::string{std::istreambuf_iterator<char>{file}, {}}));
}

}  // namespace test
