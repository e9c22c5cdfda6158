#include "app/batch/BatchSession.h"

#include "base/AtomicFile.h"
#include "database/sessions/SessionLists.h"
#include "logger/BinaryInput.h"

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
    constexpr std::uint64_t kBlock = 65536;
    AtomicFile file;
    Failure failure = file.create(target);
    BinaryInput source;
    if (!failure) failure = source.open(path());
    while (!failure) {
        const std::string_view block = source.take(kBlock);
        if (source.error()) return source.error();
        if (block.empty()) return file.commit();
        failure = file.write(block);
    }
    return failure;
}

} // namespace pellam
