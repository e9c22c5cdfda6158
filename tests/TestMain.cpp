// The entry point of all tests.
#include "TestFolder.h"

#include <gtest/gtest.h>

#ifdef QT_WIDGETS_LIB
#include <QApplication>
#endif

int main(int argc, char** argv) {
    const pellam::TestFolder folder;
    testing::InitGoogleTest(&argc, argv);
#ifdef QT_WIDGETS_LIB
    // The build lists the cases where no display is.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Pellam"));
    // The tests tell when they are done; no window closing may end the event loop for good.
    QApplication::setQuitOnLastWindowClosed(false);
#endif
    return RUN_ALL_TESTS();
}
