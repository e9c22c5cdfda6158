#pragma once

#include "database/odbc/Login.h"
#include "database/odbc/OdbcHandle.h"

#include <string>

namespace pellam {

/// A connection's handles and what its driver says of itself. For this folder's sources only.
class OdbcConnection {
  public:
    OdbcConnection() = default;
    ~OdbcConnection();
    OdbcConnection(const OdbcConnection&) = delete;
    OdbcConnection& operator=(const OdbcConnection&) = delete;

    /// Connects for reading only. May wait.
    SqlFailure open(const std::string& connect, int loginTimeout);
    /// The same by a data source's name, with a user and a password.
    SqlFailure open(const std::string& source, const Login& login, int loginTimeout);

    [[nodiscard]] const OdbcHandle& handle() const { return m_connection; }

    /// How the driver quotes identifiers; empty when it cannot.
    [[nodiscard]] const std::string& identifierQuote() const { return m_identifierQuote; }

    /// In a quoted text a backslash changes the character behind it.
    [[nodiscard]] bool hasBackslashEscapes() const { return m_backslashEscapes; }

    /// Times are texts in this database, whatever type the column has.
    [[nodiscard]] bool hasTextTimes() const { return m_textTimes; }

  private:
    template <class Connect>
    SqlFailure connect(int loginTimeout, Connect how);
    [[nodiscard]] std::string info(SQLUSMALLINT item) const;
    void readFacts();
    /// What the server answers to a question for one text; empty when it does not.
    [[nodiscard]] std::string answer(const std::string& question) const;
    /// Keeps the session from writing even where the driver ignores the access mode.
    void forbidWriting(const std::string& product) const;

    OdbcHandle m_environment;
    OdbcHandle m_connection;
    bool m_connected = false;
    bool m_textTimes = false;
    bool m_backslashEscapes = false;
    std::string m_identifierQuote;
};

} // namespace pellam
