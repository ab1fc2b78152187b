#include <gtest/gtest.h>

#include <QApplication>

/// What Qt and its plugins keep until the end of the process is not a leak of ours. A sanitized
/// program asks for its options under this name.
extern "C" const char* __asan_default_options() {
    return "detect_leaks=0";
}

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");  // also while the tests are only listed
    const QApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
