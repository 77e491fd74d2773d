#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char **argv)
{
    // Test discovery runs this binary at build time, often without a display.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    ::testing::InitGoogleTest(&argc, argv);
    QApplication app(argc, argv);
    return RUN_ALL_TESTS();
}
