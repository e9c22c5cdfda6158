// The entry point of the tests that need an application object.
#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    // The build lists the cases where no display is.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Pellam"));
    // The tests tell when they are done; no window closing may end the event loop for good.
    QApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
