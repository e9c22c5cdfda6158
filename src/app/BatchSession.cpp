#include "app/BatchSession.h"

#include "base/AtomicFile.h"
#include "database/SessionLists.h"
#include "database/SessionTime.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace pellam {

namespace {

/// A file open for reading.
class Source {
  public:
    explicit Source(const std::string& path) : m_file(::open(path.c_str(), O_RDONLY | O_CLOEXEC)) {}

    ~Source() {
        if (m_file >= 0) ::close(m_file);
    }

    Source(const Source&) = delete;
    Source& operator=(const Source&) = delete;

    /// Bytes read; 0 at the end, -1 with errno after an error.
    template <std::size_t size>
    ssize_t read(std::array<char, size>& block) const {
        ssize_t count = 0;
        do {
            count = ::read(m_file, block.data(), size);
        } while (count < 0 && errno == EINTR);
        return count;
    }

  private:
    int m_file;
};

} // namespace

BatchSession::BatchSession(const SessionOptions& options, const TimeCorrections& corrections,
                           TerminalMessages& messages, TerminalProgress& progress)
    : m_options(options),
      m_messages(messages),
      m_progress(progress),
      m_call(progress),
      m_loader({messages, progress, m_call, corrections}) {}

std::string BatchSession::list() {
    const auto sessions = SessionLists(m_options.dsn, m_call).sessions();
    std::string text;
    for (std::size_t i = 0; i < sessions.texts.size(); ++i)
        text.append(sessions.texts[i]).append("\n");
    if (sessions.failure) m_messages.show(sessions.failure->text);
    return text;
}

bool BatchSession::fetch() {
    const bool written = m_loader.CreateFileFromDatabaseSession(
        {.dataSource = m_options.dsn,
         .session = m_options.session,
         .site = m_options.site,
         .job = m_options.job,
         .schedule = m_options.schedule,
         .label = m_options.label,
         .start = sessionTime(m_options.from).value_or(CMyTime()),
         .end = sessionTime(m_options.to).value_or(CMyTime())});
    if (m_progress.aborted())
        m_messages.show(Failure{Failure::Kind::Aborted, m_options.session, -1, {}}.text());
    else if (m_loader.LastError() && !m_loader.IsErrorShown())
        m_messages.show(m_loader.LastError()->text);
    return written;
}

Failure BatchSession::keep(const std::string& target) const {
    AtomicFile file;
    Failure failure = file.create(target);
    const Source source(path());
    std::array<char, 65536> block;
    while (!failure) {
        const ssize_t count = source.read(block);
        if (count < 0) return Failure::fromErrno(Failure::Kind::Read, path(), errno);
        if (count == 0) return file.commit();
        failure = file.write({block.data(), static_cast<std::size_t>(count)});
    }
    return failure;
}

} // namespace pellam
