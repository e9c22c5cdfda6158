#include "app/frame/RecentFiles.h"

#include "app/frame/CommandIds.h"
#include "settings/ProfileKeys.h"
#include "settings/SettingsStore.h"

#include <QDir>
#include <QFileInfo>
#include <QMenu>

namespace pellam {

static std::string keyOf(int index) {
    return "File" + std::to_string(index + 1);
}

RecentFiles::RecentFiles(SettingsStore& settings, QMenu* menu)
    : QObject(menu),
      m_settings(settings),
      m_menu(menu) {
    m_menu->setToolTipsVisible(true);
    load();
    fillMenu();
}

void RecentFiles::add(const QString& path) {
    const auto whole = QFileInfo(path).absoluteFilePath();
    m_paths.removeAll(whole);
    m_paths.prepend(whole);
    m_paths = m_paths.mid(0, kMaximum);
    save();
    fillMenu();
}

void RecentFiles::remove(const QString& path) {
    if (m_paths.removeAll(QFileInfo(path).absoluteFilePath()) == 0) return;
    save();
    fillMenu();
}

void RecentFiles::load() {
    const auto section = profile::kRecentSection.toStdString();
    for (int index = 0; index < kMaximum; ++index) {
        const auto path =
            QString::fromStdString(m_settings.GetProfileString(section, keyOf(index)));
        if (!path.isEmpty()) m_paths += path;
    }
}

void RecentFiles::save() {
    const auto section = profile::kRecentSection.toStdString();
    for (int index = 0; index < kMaximum; ++index)
        m_settings.WriteProfileString(section, keyOf(index), m_paths.value(index).toStdString());
}

void RecentFiles::fillMenu() {
    m_menu->clear();
    for (int index = 0; index < m_paths.size(); ++index) {
        const auto& path = m_paths[index];
        auto name = QFileInfo(path).fileName();
        name.replace(u'&', QStringLiteral("&&"));
        auto* action = m_menu->addAction(QStringLiteral("&%1 %2").arg(index + 1).arg(name), this,
                                         [this, path] { Q_EMIT chosen(path); });
        action->setData(static_cast<int>(Command::FirstRecentFile) + index);
        action->setToolTip(QDir::toNativeSeparators(path));
        action->setStatusTip(action->toolTip());
    }
    m_menu->setEnabled(!m_paths.isEmpty());
}

} // namespace pellam
