#pragma once

#include "ScratchFolder.h"

#include <cstdlib>
#include <string>
#include <string_view>

namespace pellam::test {

/// A folder with ODBC settings of its own, in force for this process from now on; the machine's
/// own data sources are out of sight.
class OdbcSetup {
  public:
    OdbcSetup() {
        m_folder.write("odbcinst.ini", "[SQLite3]\nDriver=libsqlite3odbc.so\n"
                                       "[PostgreSQL]\nDriver=psqlodbca.so\n"
                                       "[MariaDB]\nDriver=libmaodbc.so\n"
                                       "[Missing]\nDriver=/nowhere/libmissing.so\n");
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
        const std::string script = m_folder.write(name + ".sql", sql);
        const std::string command = "sqlite3 -bail '" + file + "' < '" + script + "'";
        if (std::system(command.c_str()) != 0) std::abort();
        addSource(name, "SQLite3", "Database=" + file + "\nStepAPI=1\nDescription=SQLite file");
    }

    [[nodiscard]] const ScratchFolder& folder() const { return m_folder; }

  private:
    ScratchFolder m_folder;
    std::string m_sources;
};

} // namespace pellam::test
