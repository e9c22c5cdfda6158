#include "app/FrameSessions.h"

#include "app/CLumasetApp.h"
#include "app/FrameLoader.h"
#include "app/ProfileKeys.h"
#include "base/Utf8.h"
#include "database/CSessionFromDatabase.h"
#include "database/SessionTime.h"
#include "database/ui/CConnectionStatus.h"
#include "database/ui/LoadCall.h"
#include "database/ui/WorkEvent.h"
#include "replay/TimeCorrections.h"
#include "views/CGridView.h"

#include <QRegularExpression>

namespace pellam {

namespace {

/// A file name of a session's name.
QString fileName(const SessionSelection& selection) {
    static const QRegularExpression unfit(QStringLiteral("[\\x00-\\x1f/\\\\*?\"<>|:]"));
    return FrameSessions::title(selection).replace(unfit, QStringLiteral("_"));
}

} // namespace

FrameSessions::FrameSessions(const Context& context)
    : QObject(context.window),
      m_context(context) {}

std::optional<SessionSelection> FrameSessions::ask() {
    auto& app = m_context.app;
    CSessionNameDlg dialog(
        {[&app] { return app.GetProfileString(profile::kSection, profile::kLastDsn); },
         [&app](const QString& name) {
             app.WriteProfileString(profile::kSection, profile::kLastDsn, name);
         },
         m_context.messages, m_context.corrections.standardBias,
         m_context.corrections.daylightBias},
        m_context.window);
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    return dialog.selection();
}

LoadOutcome FrameSessions::load(const SessionSelection& selection) {
    return m_context.loader.onPage(fileName(selection), [&] {
        m_context.page.data().reset();
        return fetch(selection);
    });
}

LoadOutcome FrameSessions::fetch(const SessionSelection& selection) {
    auto& progress = m_context.loader.progress();
    // From here on, so that a connection that takes its time can be seen and stopped.
    const ProgressScope scope(progress, "Loading Session - " + selection.choice.session,
                              "Querying the database. Please wait...", 0, 100);
    LoadCall call(progress);
    const auto tell = [this](bool starts) { WorkEvent::post(m_context.window, starts); };
    CSessionFromDatabase session({m_context.messages, progress, call, m_context.corrections, tell});
    const bool written = session.CreateFileFromDatabaseSession(
        {.dataSource = selection.dsn,
         .session = selection.choice.session,
         .site = selection.choice.site,
         .job = selection.choice.job,
         .schedule = selection.choice.schedule,
         .label = selection.label,
         .start = sessionTime(selection.start).value_or(CMyTime()),
         .end = sessionTime(selection.end).value_or(CMyTime())});
    LoadOutcome outcome;
    if (!written) {
        outcome.aborted = progress.Aborted();
        return outcome;
    }
    outcome = m_context.loader.read(QString::fromStdString(session.TempFileName()));
    progress.addString("Opened data file...");
    return outcome;
}

QString FrameSessions::title(const SessionSelection& selection) {
    return QString::fromStdString(toUtf8(selection.choice.session));
}

QString FrameSessions::exportPath(const SessionSelection& selection) const {
    const auto folder = m_context.app.GetProfileString(profile::kSection, profile::kSaveFolder);
    return folder + u'/' + fileName(selection) + QStringLiteral(".dlr");
}

} // namespace pellam
