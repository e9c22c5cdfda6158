#include "app/frame/CLumasetApp.h"

#include "app/dialogs/HelpWindow.h"
#include "app/frame/CMainFrame.h"
#include "base/FileUrl.h"
#include "settings/ProfileKeys.h"
#include "settings/SaveFolder.h"
#include "settings/SettingsStore.h"
#include "ui/dialogs/ShowMessage.h"

#include <QEvent>
#include <QFile>
#include <QTimer>

namespace pellam {

CLumasetApp::CLumasetApp(SettingsStore& settings) : m_settings(settings) {}

CLumasetApp::~CLumasetApp() = default;

bool CLumasetApp::InitInstance(const QString& file, First first) {
    // Without it, the toolkit takes the root folder for the user's home.
    if (qEnvironmentVariableIsEmpty("HOME")) qputenv("HOME", QFile::encodeName(homeFolder()));
    chooseSaveFolder();
    m_frame = std::make_unique<CMainFrame>(*this);
    m_file = file;
    m_first = first;
    m_frame->installEventFilter(this);
    m_frame->show();
    return true;
}

bool CLumasetApp::eventFilter(QObject* watched, QEvent* event) {
    // Whatever can come after the first painted window does.
    if (event->type() == QEvent::Paint) {
        watched->removeEventFilter(this);
        QTimer::singleShot(0, m_frame.get(), [this] { begin(); });
    }
    return false;
}

void CLumasetApp::begin() {
    m_frame->finishStartUp();
    if (m_first == First::AskForFile)
        m_frame->OnLoadLoadreplayfile();
    else if (m_first == First::AskForSession)
        m_frame->OnLoadFromDatabase();
    else if (isForeignUrl(QFile::encodeName(m_file).toStdString()))
        showMessage(m_frame.get(),
                    tr("Warning: %1 is not on this computer. Save it to a folder and "
                       "open it there.")
                        .arg(m_file));
    else if (!m_file.isEmpty())
        m_frame->OnLoadSessionFromFile(m_file);
}

void CLumasetApp::chooseSaveFolder() {
    if (!storedSaveFolder().isEmpty()) return;
    const auto folder = saveFolder();
    if (!folder.isEmpty()) storeSaveFolder(folder);
}

QString CLumasetApp::saveFolder() const {
    return pellam::saveFolder(m_settings);
}

QString CLumasetApp::storedSaveFolder() const {
    return m_settings.GetProfileString(profile::kSection, profile::kSaveFolder);
}

void CLumasetApp::storeSaveFolder(const QString& folder) {
    m_settings.WriteProfileString(profile::kSection, profile::kSaveFolder, folder);
}

void CLumasetApp::OnMyHelp() {
    if (!m_help) m_help = new HelpWindow(m_frame.get());
    m_help->show();
    m_help->raise();
    m_help->activateWindow();
}

InternationalSettings CLumasetApp::international() const {
    return m_settings.international(InternationalSettings::fromLocale());
}

} // namespace pellam
