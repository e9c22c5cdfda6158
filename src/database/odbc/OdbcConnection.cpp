#include "database/odbc/OdbcConnection.h"

#include <array>

namespace pellam {

namespace {

SQLCHAR* sqlText(const std::string& text) {
    // ODBC declares its input texts without const.
    return reinterpret_cast<SQLCHAR*>(const_cast<char*>(text.c_str()));
}

} // namespace

OdbcConnection::~OdbcConnection() {
    if (m_connected) SQLDisconnect(m_connection.get());
}

template <class Connect>
SqlFailure OdbcConnection::connect(int loginTimeout, Connect how) {
    m_environment = OdbcHandle::environment();
    if (!m_environment) return SqlError{"HY001", 0, "The ODBC driver manager did not start."};
    m_connection = OdbcHandle(SQL_HANDLE_DBC, m_environment.get());
    if (!m_connection) return m_environment.error("HY001");
    SQLHDBC const dbc = m_connection.get();
    SQLSetConnectAttr(dbc, SQL_ATTR_ACCESS_MODE, attributeValue(SQL_MODE_READ_ONLY), 0);
    SQLSetConnectAttr(dbc, SQL_ATTR_LOGIN_TIMEOUT,
                      attributeValue(static_cast<SQLULEN>(loginTimeout)), 0);
    if (!SQL_SUCCEEDED(how(dbc))) return m_connection.error("08001");
    m_connected = true;
    readFacts();
    return {};
}

SqlFailure OdbcConnection::open(const std::string& connectText, int loginTimeout) {
    return connect(loginTimeout, [&](SQLHDBC dbc) {
        return SQLDriverConnect(dbc, nullptr, sqlText(connectText), SQL_NTS, nullptr, 0, nullptr,
                                SQL_DRIVER_NOPROMPT);
    });
}

// Not in a connection string: drivers differ in what they take for the end of a value there.
SqlFailure OdbcConnection::open(const std::string& source, const Login& login, int loginTimeout) {
    return connect(loginTimeout, [&](SQLHDBC dbc) {
        return SQLConnect(dbc, sqlText(source), SQL_NTS, sqlText(login.user), SQL_NTS,
                          sqlText(login.password), SQL_NTS);
    });
}

std::string OdbcConnection::info(SQLUSMALLINT item) const {
    std::array<char, 128> text{};
    SQLSMALLINT length = 0;
    const SQLRETURN result =
        SQLGetInfo(m_connection.get(), item, text.data(), text.size(), &length);
    return SQL_SUCCEEDED(result) ? std::string(text.data()) : std::string();
}

void OdbcConnection::readFacts() {
    m_identifierQuote = info(SQL_IDENTIFIER_QUOTE_CHAR);
    // A blank says that there is no quoting.
    if (m_identifierQuote == " ") m_identifierQuote.clear();
    const std::string product = info(SQL_DBMS_NAME);
    m_textTimes = product.starts_with("SQLite");
    forbidWriting(product);
    // Settings of the server decide, whatever its name. Both readings of the two are one text.
    m_backslashEscapes = answer("SELECT '\\\\'") == "\\";
}

std::string OdbcConnection::answer(const std::string& question) const {
    std::array<char, 16> text{};
    SQLLEN length = 0;
    const OdbcHandle handle(SQL_HANDLE_STMT, m_connection.get());
    const bool answered =
        handle && SQL_SUCCEEDED(SQLExecDirect(handle.get(), sqlText(question), SQL_NTS)) &&
        SQL_SUCCEEDED(SQLFetch(handle.get())) &&
        SQL_SUCCEEDED(SQLGetData(handle.get(), 1, SQL_C_CHAR, text.data(), text.size(), &length));
    return answered && length != SQL_NULL_DATA ? std::string(text.data()) : std::string();
}

void OdbcConnection::forbidWriting(const std::string& product) const {
    const char* statement = nullptr;
    if (product.starts_with("SQLite")) {
        statement = "PRAGMA query_only = 1";
    } else if (product.starts_with("PostgreSQL")) {
        statement = "SET SESSION CHARACTERISTICS AS TRANSACTION READ ONLY";
    } else if (product.starts_with("MariaDB") || product.starts_with("MySQL")) {
        statement = "SET SESSION TRANSACTION READ ONLY";
    }
    if (!statement) return;
    const OdbcHandle handle(SQL_HANDLE_STMT, m_connection.get());
    if (handle) SQLExecDirect(handle.get(), sqlText(statement), SQL_NTS);
}

} // namespace pellam
