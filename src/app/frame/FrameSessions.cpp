#include "app/frame/FrameSessions.h"

#include "app/frame/CLumasetApp.h"
#include "app/frame/FrameLoader.h"
#include "base/Utf8.h"
#include "database/sessions/CSessionFromDatabase.h"
#include "database/ui/CSessionNameDlg.h"
#include "database/ui/LoadCall.h"
#include "database/ui/LoginDlg.h"
#include "database/ui/WorkEvent.h"
#include "replay/outcome/LoadOutcome.h"
#include "replay/time/TimeCorrections.h"
#include "settings/ProfileKeys.h"
#include "settings/SettingsStore.h"
#include "ui/dialogs/CConnectionStatus.h"
#include "views/grid/CGridView.h"

#include <QApplication>
#include <QRegularExpression>

namespace pellam {

namespace {

/// A file name of a session's name.
QString fileName(const SessionRequest& request) {
    static const QRegularExpression unfit(QStringLiteral("[\\x00-\\x1f/\\\\*?\"<>|:]"));
    return FrameSessions::title(request).replace(unfit, QStringLiteral("_"));
}

} // namespace

FrameSessions::FrameSessions(const Context& context)
    : QObject(context.window),
      m_context(context),
      m_login([this](const DataSourceLogin::Question& question) { return askForLogin(question); }) {
}

std::optional<SessionRequest> FrameSessions::ask() {
    auto& settings = m_context.app.settings();
    CSessionNameDlg dialog(
        {[&settings] { return settings.GetProfileString(profile::kSection, profile::kLastDsn); },
         [&settings](const QString& name) {
             settings.WriteProfileString(profile::kSection, profile::kLastDsn, name);
         },
         m_context.messages, m_login, m_context.corrections.standardBias,
         m_context.corrections.daylightBias},
        m_context.window);
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    return dialog.request();
}

LoadOutcome FrameSessions::load(const SessionRequest& request) {
    return m_context.loader.onPage(fileName(request), [&] {
        m_context.page.data().reset();
        return fetch(request);
    });
}

std::optional<Login> FrameSessions::askForLogin(const DataSourceLogin::Question& question) {
    m_context.loader.progress().hide(); // it comes back when the work goes on
    auto* const above = QApplication::activeModalWidget();
    LoginDlg dialog(question, above ? above : m_context.window);
    return dialog.ask();
}

LoadOutcome FrameSessions::fetch(const SessionRequest& request) {
    auto& progress = m_context.loader.progress();
    LoadCall call(progress);
    const auto tell = [this](bool starts) { WorkEvent::post(m_context.window, starts); };
    CSessionFromDatabase session({m_context.messages, progress, call, m_login, tell});
    const bool written = session.CreateFileFromDatabaseSession(request);
    LoadOutcome outcome;
    if (!written) {
        outcome.aborted = progress.Aborted();
        return outcome;
    }
    outcome = m_context.loader.readSession(session.TempFileName());
    outcome.incomplete = session.LastError().has_value();
    outcome.passedOver.add(session.passedOver());
    progress.addString("Opened data file...");
    return outcome;
}

QString FrameSessions::title(const SessionRequest& request) {
    return QString::fromStdString(toUtf8(request.session));
}

QString FrameSessions::exportPath(const SessionRequest& request) const {
    return m_context.app.storedSaveFolder() + u'/' + fileName(request) + QStringLiteral(".dlr");
}

} // namespace pellam
