#include "database/odbc/OdbcHandle.h"

#include <array>

namespace pellam {

OdbcHandle::OdbcHandle(SQLSMALLINT kind, SQLHANDLE parent) : m_kind(kind) {
    if (!SQL_SUCCEEDED(SQLAllocHandle(kind, parent, &m_handle))) m_handle = nullptr;
}

OdbcHandle OdbcHandle::environment() {
    OdbcHandle handle(SQL_HANDLE_ENV, SQL_NULL_HANDLE);
    if (handle) SQLSetEnvAttr(handle.get(), SQL_ATTR_ODBC_VERSION, attributeValue(SQL_OV_ODBC3), 0);
    return handle;
}

void OdbcHandle::reset() {
    if (m_handle) SQLFreeHandle(m_kind, std::exchange(m_handle, nullptr));
}

SqlError OdbcHandle::error(const char* state) const {
    std::array<SQLCHAR, 6> sqlState{};
    std::array<SQLCHAR, 1024> text{};
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    const SQLRETURN result = SQLGetDiagRec(m_kind, m_handle, 1, sqlState.data(), &native,
                                           text.data(), text.size(), &length);
    if (!SQL_SUCCEEDED(result)) return {state, 0, "The ODBC driver gave no reason."};
    std::string message = reinterpret_cast<const char*>(text.data());
    // Some drivers end it with an empty line.
    message.erase(message.find_last_not_of(" \t\r\n") + 1);
    return {reinterpret_cast<const char*>(sqlState.data()), native, std::move(message)};
}

} // namespace pellam
