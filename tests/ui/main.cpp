#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>

#include "application.h"

/// What Qt and its plugins keep until the end of the process is not a leak of ours. A sanitized
/// program asks for its options under this name.
extern "C" const char* __asan_default_options() {
    return "detect_leaks=0";
}

int main(int argc, char** argv) {
    const QTemporaryDir home;
    qputenv("HOME", home.path().toLocal8Bit());
    for (const char* other : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"}) {
        qunsetenv(other);
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");  // also while the tests are only listed
    const ui::Application application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    const int failed = RUN_ALL_TESTS();
    QStringList left =
        QDir(home.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    left.removeOne(".cache");  // of the fonts, where the system keeps none
    EXPECT_EQ(left.join(' ').toStdString(), "") << "is left behind";
    return failed != 0 || testing::Test::HasFailure() ? 1 : 0;
}
