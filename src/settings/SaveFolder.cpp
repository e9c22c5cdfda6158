#include "settings/SaveFolder.h"

#include "settings/ProfileKeys.h"
#include "settings/SettingsStore.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

namespace pellam {

QString saveFolder(SettingsStore& settings) {
    QString folder = settings.GetProfileString(profile::kSection, profile::kSaveFolder);
    if (!folder.isEmpty() || homeFolder().isEmpty()) return folder;
    // Without it, the toolkit takes the root folder for the user's home.
    if (qEnvironmentVariableIsEmpty("HOME")) qputenv("HOME", QFile::encodeName(homeFolder()));
    const auto documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    if (documents.isEmpty()) return {};
    folder = documents + QStringLiteral("/Korvane/Pellam");
    QDir().mkpath(folder);
    return folder;
}

} // namespace pellam
