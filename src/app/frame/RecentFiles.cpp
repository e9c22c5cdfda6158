#include "app/frame/RecentFiles.h"

#include "settings/ProfileKeys.h"
#include "settings/SettingsStore.h"
#include "ui/commands/CommandIds.h"

#include <QDir>
#include <QFileInfo>
#include <QMenu>

namespace pellam {

static QString keyOf(int index) {
    return QStringLiteral("File%1").arg(index + 1);
}

static QString textKeyOf(int index) {
    return QStringLiteral("File%1Text").arg(index + 1);
}

RecentFiles::RecentFiles(SettingsStore& settings, QMenu* menu)
    : QObject(menu),
      m_settings(settings),
      m_menu(menu) {
    m_menu->setToolTipsVisible(true);
    m_paths = stored();
    fillMenu();
}

void RecentFiles::add(const QString& path, bool text) {
    const auto whole = QFileInfo(path).absoluteFilePath();
    m_paths = stored(); // other windows add to it too
    m_texts.removeAll(whole);
    if (text) m_texts.append(whole);
    m_paths.removeAll(whole);
    m_paths.prepend(whole);
    m_paths = m_paths.mid(0, kMaximum);
    save();
    fillMenu();
}

void RecentFiles::remove(const QString& path) {
    m_paths = stored();
    if (m_paths.removeAll(QFileInfo(path).absoluteFilePath()) == 0) return;
    save();
    fillMenu();
}

bool RecentFiles::isText(const QString& path) const {
    return m_texts.contains(QFileInfo(path).absoluteFilePath());
}

QStringList RecentFiles::stored() {
    QStringList paths;
    m_texts.clear();
    for (int index = 0; index < kMaximum; ++index) {
        paths += m_settings.GetProfileString(profile::kRecentSection, keyOf(index));
        if (!m_settings.GetProfileString(profile::kRecentSection, textKeyOf(index)).isEmpty())
            m_texts += paths.back();
    }
    paths.removeAll(QString());
    paths.removeDuplicates();
    return paths;
}

void RecentFiles::save() {
    for (int index = 0; index < kMaximum; ++index) {
        const auto path = m_paths.value(index);
        if (path != m_settings.GetProfileString(profile::kRecentSection, keyOf(index)))
            m_settings.WriteProfileString(profile::kRecentSection, keyOf(index), path);
        const auto text = m_texts.contains(path) ? QStringLiteral("1") : QString();
        if (text != m_settings.GetProfileString(profile::kRecentSection, textKeyOf(index)))
            m_settings.WriteProfileString(profile::kRecentSection, textKeyOf(index), text);
    }
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
