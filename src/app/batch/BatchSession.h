#pragma once

#include "app/batch/TerminalMessages.h"
#include "app/batch/TerminalProgress.h"
#include "base/Failure.h"
#include "database/odbc/BackgroundCall.h"
#include "database/sessions/CSessionFromDatabase.h"
#include "replay/outcome/LoadOutcome.h"

#include <string>

namespace pellam {

/// A session of a database as the source of a batch run. What fails is told with the driver's own
/// text. Where a data source asks for user and password, they come from the environment.
class BatchSession {
  public:
    /// What is handed in outlives this object.
    BatchSession(const SessionRequest& request, TerminalMessages& messages,
                 TerminalProgress& progress);

    /// The names of all sessions, one a line, as far as they could be read.
    [[nodiscard]] std::string list();

    /// Reads the session; false when there is nothing to load. After a failure among the readings
    /// there is what came before it, and messages have failed().
    bool fetch();

    /// The replay text that was read, for opening while this object lives.
    [[nodiscard]] const std::string& path() const { return m_loader.TempFileName(); }

    /// Adds to a load's outcome what was lost on the way from the database.
    void complete(LoadOutcome& outcome) const;

    /// Keeps the replay text as a file, which is replaced as a whole.
    [[nodiscard]] Failure keep(const std::string& target) const;

  private:
    /// Lets an interrupt stop the waiting for a server.
    class Call : public BackgroundCall {
      public:
        explicit Call(TerminalProgress& progress) : m_progress(progress) {}

      protected:
        bool whileWaiting() override {
            m_progress.refresh();
            return !m_progress.aborted();
        }

      private:
        TerminalProgress& m_progress;
    };

    [[nodiscard]] std::optional<Login> login(const DataSourceLogin::Question& question) const;

    const SessionRequest& m_request;
    TerminalMessages& m_messages;
    TerminalProgress& m_progress;
    Call m_call;
    DataSourceLogin m_login;
    CSessionFromDatabase m_loader;
};

} // namespace pellam
