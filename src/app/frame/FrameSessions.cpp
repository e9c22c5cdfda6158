#include "app/frame/FrameSessions.h"

#include "app/frame/CLumasetApp.h"
#include "app/frame/FrameLoader.h"
#include "base/Utf8.h"
#include "database/sessions/CSessionFromDatabase.h"
#include "database/ui/CSessionNameDlg.h"
#include "database/ui/LoadCall.h"
#include "database/ui/WorkEvent.h"
#include "replay/time/TimeCorrections.h"
#include "settings/ProfileKeys.h"
#include "settings/SettingsStore.h"
#include "ui/dialogs/CConnectionStatus.h"
#include "views/grid/CGridView.h"

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
      m_context(context) {}

std::optional<SessionRequest> FrameSessions::ask() {
    auto& settings = m_context.app.settings();
    CSessionNameDlg dialog(
        {[&settings] { return settings.GetProfileString(profile::kSection, profile::kLastDsn); },
         [&settings](const QString& name) {
             settings.WriteProfileString(profile::kSection, profile::kLastDsn, name);
         },
         m_context.messages, m_context.corrections.standardBias,
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

LoadOutcome FrameSessions::fetch(const SessionRequest& request) {
    auto& progress = m_context.loader.progress();
    // From here on, so that a connection that takes its time can be seen and stopped.
    const ProgressScope scope = sessionProgress(progress, request.session);
    LoadCall call(progress);
    const auto tell = [this](bool starts) { WorkEvent::post(m_context.window, starts); };
    CSessionFromDatabase session({m_context.messages, progress, call, m_context.corrections, tell});
    const bool written = session.CreateFileFromDatabaseSession(request);
    LoadOutcome outcome;
    if (!written) {
        outcome.aborted = progress.Aborted();
        return outcome;
    }
    outcome = m_context.loader.read(QString::fromStdString(session.TempFileName()));
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
