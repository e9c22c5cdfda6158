#pragma once

#include "database/odbc/Login.h"
#include "database/odbc/LongCall.h"
#include "database/odbc/SqlError.h"

#include <memory>
#include <string>

namespace pellam {

class OdbcConnection;

/// One connection to an ODBC data source, for reading only. All its calls wait through the
/// LongCall that it was made with; use it from one thread.
class CDatabase {
  public:
    enum Options {
        defaultOptions = 0,
        noOdbcDialog = 1, ///< no driver here has a dialog, so it never shows one either way
    };

    /// Seconds within which a connection must stand.
    static constexpr int kLoginTimeout = 20;

    /// `call` outlives the database.
    explicit CDatabase(LongCall& call);
    /// Closes.
    ~CDatabase();
    CDatabase(const CDatabase&) = delete;
    CDatabase& operator=(const CDatabase&) = delete;

    /// Connects with an ODBC connection string, e.g. "DSN=Site". Nothing on success.
    SqlFailure OpenEx(const std::string& connect, Options options = defaultOptions);

    /// Connects with a data source by its name, with a user and a password.
    SqlFailure Open(const std::string& source, const Login& login);

    /// Seconds that a query may take, for record sets opened from now on; 0: no limit. A server
    /// that has stopped answering is left to itself then.
    void SetQueryTimeout(int seconds) { m_queryTimeout = seconds; }

    [[nodiscard]] bool IsOpen() const { return m_connection != nullptr; }

    /// Whether in a quoted text a backslash changes the character behind it; while open.
    [[nodiscard]] bool hasBackslashEscapes() const;

    /// Disconnects; record sets on it that are still open keep the connection until they close.
    void Close();

  private:
    template <class Connect>
    SqlFailure connect(Connect how);

    friend class CRecordset;

    LongCall& m_call;
    std::shared_ptr<OdbcConnection> m_connection; ///< none while closed
    int m_queryTimeout = 0;
};

} // namespace pellam
