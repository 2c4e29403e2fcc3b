#include <QApplication>

#include <clocale>
#include <gtest/gtest.h>

int main(int argc, char **argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // The user's own configuration must not decide how the tools behave in a test.
    qputenv("GIT_CONFIG_GLOBAL", "/dev/null");
    qputenv("GIT_CONFIG_NOSYSTEM", "1");
    QApplication application(argc, argv);
    // What tests read with libarchive has UTF-8 names.
    std::setlocale(LC_CTYPE, "C.UTF-8");
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
