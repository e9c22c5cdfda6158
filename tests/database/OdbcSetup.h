#pragma once

#include "ScratchFolder.h"

#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>

namespace pellam::test {

/// A folder with ODBC settings of its own, in force for this process from now on; the machine's
/// own data sources are out of sight. The driver manager remembers where it found its settings, so
/// the folder stays for the life of the process.
class OdbcSetup {
  public:
    OdbcSetup() {
        m_folder.write("odbcinst.ini", "[SQLite3]\nDriver=libsqlite3odbc.so\n"
                                       "[PostgreSQL]\nDriver=psqlodbca.so\n"
                                       "[MariaDB]\nDriver=libmaodbc.so\n"
                                       "[Missing]\nDriver=/nowhere/libmissing.so\n");
        m_folder.write("odbc.ini", "");
        ::setenv("ODBCSYSINI", m_folder.path().c_str(), 1);
        ::setenv("ODBCINI", m_folder.path("odbc.ini").c_str(), 1);
        ::unsetenv("ODBCINSTINI");
    }

    /// Adds a data source; `settings` are lines of its section beside the driver.
    void addSource(const std::string& name, const std::string& driver,
                   const std::string& settings) {
        m_sources += "[" + name + "]\nDriver=" + driver + "\n" + settings + "\n";
        m_folder.write("odbc.ini", m_sources);
    }

    /// Adds a data source on a new SQLite file that the SQL text fills.
    void addSqlite(const std::string& name, const std::string& sql) {
        const std::string file = m_folder.path(name + ".db");
        std::filesystem::remove(file);
        const std::string script = m_folder.write(name + ".sql", "BEGIN;\n" + sql + "COMMIT;\n");
        const std::string command = "sqlite3 -bail '" + file + "' < '" + script + "'";
        if (std::system(command.c_str()) != 0) std::abort();
        addSource(name, "SQLite3", "Database=" + file + "\nStepAPI=1\nDescription=SQLite file");
    }

    /// The three tables, in SQL that every engine takes.
    static std::string tables() {
        return R"(
CREATE TABLE data_header(channel_count INTEGER, session_date TIMESTAMP NULL,
  session_id VARCHAR(400), session_info VARCHAR(255), session_notes VARCHAR(255));
CREATE TABLE data_details(address VARCHAR(255), data_alarm_max DOUBLE PRECISION,
  data_alarm_min DOUBLE PRECISION, label VARCHAR(255), logged_index INTEGER, port_id VARCHAR(255),
  return_index INTEGER, schedule VARCHAR(255), schedule_index INTEGER,
  schedule_rate_in_seconds INTEGER, session_id VARCHAR(255), session_index INTEGER,
  site_id VARCHAR(255), units VARCHAR(255), value_type INTEGER, job VARCHAR(255));
CREATE TABLE data_data(address VARCHAR(255), data_status INTEGER, data_time TIMESTAMP NULL,
  data_value DOUBLE PRECISION, schedule VARCHAR(255), schedule_index INTEGER, sub_time INTEGER,
  label VARCHAR(255), job VARCHAR(255), session_id VARCHAR(255), site_id VARCHAR(255));
)";
    }

    [[nodiscard]] const ScratchFolder& folder() const { return m_folder; }

  private:
    static const ScratchFolder& sharedFolder() {
        static const ScratchFolder folder;
        return folder;
    }

    const ScratchFolder& m_folder = sharedFolder();
    std::string m_sources;
};

} // namespace pellam::test
