#include "app/CLumasetApp.h"
#include "settings/SettingsStore.h"

#include <QApplication>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Pellam"));
    QApplication::setApplicationVersion(QStringLiteral(PELLAM_VERSION));
    pellam::SettingsStore settings(pellam::SettingsStore::defaultPath());
    pellam::CLumasetApp pellam(settings);
    const auto arguments = QApplication::arguments();
    if (!pellam.InitInstance(arguments.value(1))) return 1;
    return QApplication::exec();
}
