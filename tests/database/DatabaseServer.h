#pragma once

#include "ScratchFolder.h"

#include <memory>
#include <string>
#include <vector>

#include <sys/types.h>

namespace pellam::test {

class OdbcSetup;

/// A real server on a free port of the loopback interface, with its data in a folder of its own,
/// run as an ordinary user. It ends with this object, and with the program if that is killed.
/// User "pellam", password "open sesame", database "sessions".
class DatabaseServer {
  public:
    enum class Engine { PostgreSql, MariaDb };

    /// Starts the server; throws std::runtime_error with its log when it does not come up.
    explicit DatabaseServer(Engine engine);
    ~DatabaseServer();
    DatabaseServer(const DatabaseServer&) = delete;
    DatabaseServer& operator=(const DatabaseServer&) = delete;

    /// Runs SQL text in the database; throws as above.
    void run(const std::string& sql) const;

    /// Adds a data source for the server; `fetching` is a line of its section.
    void addSource(OdbcSetup& odbc, const std::string& name,
                   const std::string& password = "open sesame",
                   const std::string& fetching = "UseDeclareFetch=1") const;

    /// Ends it at once, as a power cut does.
    void kill();
    /// Stops it from answering, with its connections open, until resume().
    void pause() const;
    void resume() const;

  private:
    [[nodiscard]] std::string asUser(const std::string& command) const;
    void shell(const std::string& command) const;
    [[nodiscard]] bool tryShell(const std::string& command) const;
    void makeData() const;
    void makeUser() const;
    [[nodiscard]] std::string serverCommand() const;
    void launch();
    [[nodiscard]] bool comesUp();
    [[nodiscard]] std::string client(bool administrator) const;
    [[nodiscard]] std::vector<pid_t> processes() const;
    void signal(int number) const;

    Engine m_engine;
    ScratchFolder m_folder;
    std::string m_user; ///< empty: whoever runs the test
    int m_port = 0;
    pid_t m_pid = -1;
};

} // namespace pellam::test
