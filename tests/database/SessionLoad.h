#pragma once

#include "RecordingSinks.h"
#include "ScratchFolder.h"
#include "database/sessions/CSessionFromDatabase.h"

namespace pellam::test {

/// "yyyy/MM/dd HH:mm:ss".
inline std::string shown(const CTime& time) {
    char text[48];
    char* end = time.writeDate(text);
    *end++ = ' ';
    return {text, time.writeTime(end)};
}

/// Loads sessions from the data source "Site" and keeps what came of it.
class SessionLoad {
  public:
    explicit SessionLoad(LongCall& call) : m_call(call) {}

    /// The written text; "(false)" before it when the load said so.
    std::string run(SessionRequest request) {
        if (request.dataSource.empty()) request.dataSource = "Site";
        messages.texts.clear();
        CSessionFromDatabase session({messages, progress, m_call, login});
        const bool good = session.CreateFileFromDatabaseSession(request);
        error = session.LastError() ? session.LastError()->text : "";
        passedOver.clear();
        for (const std::string& cause : session.passedOver().texts())
            passedOver += cause + '\n';
        const std::string text =
            session.TempFileName().empty() ? "" : ScratchFolder::contents(session.TempFileName());
        return good ? text : "(false)" + text;
    }

    /// The data lines of the text alone.
    std::string lines(const SessionRequest& request) {
        const std::string text = run(request);
        const std::size_t data = text.find("<ALL_DATA>\n");
        return data == std::string::npos ? text : text.substr(data + 11);
    }

    /// The status line alone.
    std::string status(const SessionRequest& request) {
        const std::string text = run(request);
        const std::size_t begin = text.find("S,0,0,");
        return begin == std::string::npos ? text
                                          : text.substr(begin, text.find('\n', begin) - begin);
    }

    RecordedMessages messages;
    RecordedProgress progress;
    DataSourceLogin login;
    std::string error;      ///< the last failure's text
    std::string passedOver; ///< a cause a line

  protected:
    LongCall& m_call;
};

} // namespace pellam::test
