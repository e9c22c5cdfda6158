#include "app/batch/BatchSession.h"

#include "base/AtomicFile.h"
#include "base/RegularFile.h"
#include "database/sessions/SessionLists.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace pellam {

namespace {

constexpr const char* kUser = "PELLAM_DB_USER";
constexpr const char* kPassword = "PELLAM_DB_PASSWORD";

std::string fromEnvironment(const char* name) {
    const char* const value = std::getenv(name);
    return value ? value : "";
}

} // namespace

BatchSession::BatchSession(const SessionRequest& request, TerminalMessages& messages,
                           TerminalProgress& progress)
    : m_request(request),
      m_messages(messages),
      m_progress(progress),
      m_call(progress),
      m_login([this](const DataSourceLogin::Question& question) { return login(question); }),
      m_loader({messages, progress, m_call, m_login}) {}

std::optional<Login> BatchSession::login(const DataSourceLogin::Question& question) const {
    Login known{fromEnvironment(kUser), fromEnvironment(kPassword)};
    if (!question.again && !(known.user.empty() && known.password.empty())) return known;
    m_messages.show("Warning: " + question.source +
                    " asks for user and password. Set them in the " +
                    "data source's own settings, or in " + kUser + " and " + kPassword +
                    " of the environment.");
    return std::nullopt;
}

std::string BatchSession::list() {
    const auto sessions = SessionLists(m_request.dataSource, m_call, m_login).sessions();
    std::string text;
    for (std::size_t i = 0; i < sessions.texts.size(); ++i)
        text.append(sessions.texts[i]).append("\n");
    if (sessions.failure) m_messages.show(sessions.failure->text);
    return text;
}

bool BatchSession::fetch() {
    const bool written = m_loader.CreateFileFromDatabaseSession(m_request);
    if (m_progress.aborted())
        m_messages.show(Failure{Failure::Kind::Aborted, m_request.session, -1, {}}.text());
    else if (m_loader.LastError() && !m_loader.IsErrorShown())
        m_messages.show(m_loader.LastError()->text);
    return written;
}

void BatchSession::complete(LoadOutcome& outcome) const {
    outcome.incomplete = m_loader.LastError().has_value();
    outcome.passedOver.add(m_loader.passedOver());
}

Failure BatchSession::keep(const std::string& target) const {
    AtomicFile file;
    if (Failure failure = file.create(target, &m_progress)) return failure;
    RegularFile source;
    if (Failure failure = source.open(path())) return failure;
    std::int64_t offset = 0;
    while (const std::size_t got = source.read(file.room(), AtomicFile::kRoom, offset)) {
        file.advance(file.room() + got);
        offset += static_cast<std::int64_t>(got);
    }
    return source.error() ? source.error() : file.commit();
}

} // namespace pellam
