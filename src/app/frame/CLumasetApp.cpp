#include "app/frame/CLumasetApp.h"

#include "app/dialogs/HelpWindow.h"
#include "app/frame/CMainFrame.h"
#include "settings/ProfileKeys.h"
#include "settings/SettingsStore.h"

#include <QDir>
#include <QEvent>
#include <QStandardPaths>
#include <QTimer>

namespace pellam {

CLumasetApp::CLumasetApp(SettingsStore& settings) : m_settings(settings) {}

CLumasetApp::~CLumasetApp() = default;

bool CLumasetApp::InitInstance(const QString& file) {
    chooseSaveFolder();
    m_frame = std::make_unique<CMainFrame>(*this);
    m_file = file;
    m_frame->installEventFilter(this);
    m_frame->show();
    return true;
}

bool CLumasetApp::eventFilter(QObject* watched, QEvent* event) {
    // Whatever can come after the first painted window does.
    if (event->type() == QEvent::Paint) {
        watched->removeEventFilter(this);
        QTimer::singleShot(0, m_frame.get(), [this] {
            m_frame->finishStartUp();
            if (!m_file.isEmpty()) m_frame->OnLoadSessionFromFile(m_file);
        });
    }
    return false;
}

void CLumasetApp::chooseSaveFolder() {
    if (!storedSaveFolder().isEmpty()) return;
    const auto folder = saveFolder();
    if (!folder.isEmpty()) storeSaveFolder(folder);
}

QString CLumasetApp::saveFolder() const {
    const auto stored = storedSaveFolder();
    if (!stored.isEmpty()) return stored;
    const auto documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    if (documents.isEmpty()) return {};
    const auto folder = documents + QStringLiteral("/Korvane/Pellam");
    QDir().mkpath(folder);
    return folder;
}

QString CLumasetApp::storedSaveFolder() const {
    return GetProfileString(profile::kSection, profile::kSaveFolder);
}

void CLumasetApp::storeSaveFolder(const QString& folder) {
    WriteProfileString(profile::kSection, profile::kSaveFolder, folder);
}

void CLumasetApp::OnMyHelp() {
    if (!m_help) m_help = new HelpWindow(m_frame.get());
    m_help->show();
    m_help->raise();
    m_help->activateWindow();
}

QString CLumasetApp::GetAppRegistryKey() const {
    return QString::fromStdString(m_settings.GetAppRegistryKey());
}

QString CLumasetApp::GetSectionKey(const QString& section) const {
    return QString::fromStdString(m_settings.GetSectionKey(section.toStdString()));
}

int CLumasetApp::GetProfileInt(const QString& section, const QString& key, int defaultValue) const {
    return m_settings.GetProfileInt(section.toStdString(), key.toStdString(), defaultValue);
}

QString CLumasetApp::GetProfileString(const QString& section, const QString& key,
                                      const QString& defaultValue) const {
    return QString::fromStdString(m_settings.GetProfileString(
        section.toStdString(), key.toStdString(), defaultValue.toStdString()));
}

QByteArray CLumasetApp::GetProfileBinary(const QString& section, const QString& key) const {
    const auto bytes = m_settings.GetProfileBinary(section.toStdString(), key.toStdString());
    return bytes ? QByteArray::fromStdString(*bytes) : QByteArray();
}

bool CLumasetApp::WriteProfileInt(const QString& section, const QString& key, int value) {
    return m_settings.WriteProfileInt(section.toStdString(), key.toStdString(), value);
}

bool CLumasetApp::WriteProfileString(const QString& section, const QString& key,
                                     const QString& text) {
    return m_settings.WriteProfileString(section.toStdString(), key.toStdString(),
                                         text.toStdString());
}

bool CLumasetApp::WriteProfileBinary(const QString& section, const QString& key,
                                     const QByteArray& data) {
    return m_settings.WriteProfileBinary(section.toStdString(), key.toStdString(),
                                         data.toStdString());
}

InternationalSettings CLumasetApp::international() const {
    return m_settings.international(InternationalSettings::fromLocale());
}

} // namespace pellam
