#pragma once

#include "base/MessageSink.h"
#include "base/ProgressSink.h"
#include "database/odbc/CTime.h"
#include "database/odbc/DataSourceLogin.h"
#include "database/sessions/SessionRequest.h"
#include "database/sessions/SessionTempFile.h"
#include "database/sessions/Session_Schedule_Info.h"
#include "database/sessions/SqlTerm.h"
#include "replay/outcome/PassedOver.h"

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace pellam {

class CDBDataData3;
class CDBDataDetails;

/// What a load from a database needs beside the request.
struct SessionContext {
    MessageSink& messages;
    ProgressSink& progress;
    LongCall& call;
    DataSourceLogin& login;
    /// Told true when the work starts and false when it ends; absent where nobody listens.
    std::function<void(bool)> tellMainWindow = {};
};

/// Writes one stored session as replay text to a temporary file, which is gone with this object.
/// One object serves one load; it holds the progress display open as long as it lives, for the load
/// of the text too. It shows no message once the person has stopped it.
class CSessionFromDatabase {
  public:
    static constexpr int kSlots = 17;
    static constexpr int kQueryTimeout = 300; ///< seconds

    /// What `context` refers to outlives this object.
    explicit CSessionFromDatabase(const SessionContext& context);
    ~CSessionFromDatabase();
    CSessionFromDatabase(const CSessionFromDatabase&) = delete;
    CSessionFromDatabase& operator=(const CSessionFromDatabase&) = delete;

    /// Writes the session. True when the file is complete, or as far as the database went before
    /// it failed among the readings, which LastError() tells; false when it failed before the first
    /// line of them, when nothing fits or the file could not be written, or the person stopped it.
    /// The request has the person's wildcards, '*' and
    /// '?'.
    bool CreateFileFromDatabaseSession(const SessionRequest& request);

    /// The written file, for opening while this object lives; empty when there is none.
    [[nodiscard]] const std::string& TempFileName() const { return m_file.path(); }

    /// Removes the written file; harmless when there is none.
    void RemoveTempFile() { m_file.remove(); }

    [[nodiscard]] const std::string& DatabaseName() const { return m_request.dataSource; }

    /// The session as asked for, with SQL's wildcards.
    [[nodiscard]] const std::string& SessionName() const { return m_request.session; }

    [[nodiscard]] const CTime& SessionStart() const { return m_request.start; }

    [[nodiscard]] const CTime& SessionEnd() const { return m_request.end; }

    /// What of the session stands nowhere in the file.
    [[nodiscard]] const PassedOver& passedOver() const { return m_passedOver; }

    /// The last failure, of the database or of the temporary file (its state empty), whether or
    /// not a message told of it.
    [[nodiscard]] const SqlFailure& LastError() const { return m_error; }

    /// Whether the text of LastError() itself was shown.
    [[nodiscard]] bool IsErrorShown() const { return m_errorShown; }

    /// The slot of a schedule by one character of its name: 'B' to 'K' 1 to 10, 'X' 11, 'V' 15,
    /// '*' 16, any other 0.
    [[nodiscard]] static int GetScheduleID(char character);

  private:
    bool openDatabase();
    bool openFile();
    bool writeSession();
    bool writeHeader();
    SqlFailure listChannels();
    void addChannel(const CDBDataDetails& row);
    SqlFailure ConstructStatus10(std::string& status);
    SqlFailure addSchedule(CDBDataDetails& details, char letter, std::string& status);
    SqlFailure AddChannelDetails(CDBDataDetails& details, char letter,
                                 Session_Schedule_Info& schedule, std::size_t channel,
                                 std::string& text);
    void ConstructData();
    SqlFailure writeReadings(CDBDataData3& row);
    void takeReading(const CDBDataData3& row, std::int64_t number);
    void startLine(const CDBDataData3& row);
    void BuildActiveLine(const std::string& schedule, std::string& line);
    bool WriteToFile(std::string_view text);

    [[nodiscard]] bool UserAborted() const { return m_context.progress.aborted(); }

    void tell(bool working) const;
    void show(std::string_view text) const;
    void showError();
    Session_Schedule_Info& slotOf(char character);

    SessionContext m_context;
    SessionRequest m_request;
    SqlRules m_rules;
    CDatabase m_database;
    SessionTempFile m_file;
    std::array<Session_Schedule_Info, kSlots> m_schedules;
    std::set<std::string> m_longSchedules; ///< names of listed channels that are no letter
    std::optional<ProgressScope> m_progress;
    PassedOver m_passedOver;
    SqlFailure m_error;
    bool m_errorShown = false;

    // The line that is being made, and the reading that it began with.
    std::string m_line;
    std::int64_t m_lineNumber = 0; ///< lines begun
    std::int64_t m_lineRow = 0;    ///< of the query
    bool m_linePending = false;
    bool m_hasLines = false; ///< one was written
    CTime m_lineTime;
    std::int32_t m_lineSubTime = 0;
    std::string m_lineSchedule;
};

} // namespace pellam
