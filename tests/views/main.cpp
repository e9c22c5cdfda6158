#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    // The build lists the cases where no display is.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
