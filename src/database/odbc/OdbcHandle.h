#pragma once

#include "database/odbc/SqlError.h"

#include <sql.h>
#include <sqlext.h>

#include <utility>

namespace pellam {

/// Owns one ODBC handle. For this folder's sources only: it brings the ODBC names along.
class OdbcHandle {
  public:
    OdbcHandle() = default;
    /// A handle of a kind under its parent; null when it cannot be made.
    OdbcHandle(SQLSMALLINT kind, SQLHANDLE parent);

    ~OdbcHandle() { reset(); }

    OdbcHandle(OdbcHandle&& other) noexcept
        : m_handle(std::exchange(other.m_handle, nullptr)),
          m_kind(other.m_kind) {}

    OdbcHandle& operator=(OdbcHandle&& other) noexcept {
        std::swap(m_handle, other.m_handle);
        std::swap(m_kind, other.m_kind);
        return *this;
    }

    /// An environment of ODBC version 3.
    static OdbcHandle environment();

    explicit operator bool() const { return m_handle != nullptr; }

    [[nodiscard]] SQLHANDLE get() const { return m_handle; }

    void reset();

    /// What the last call on this handle reported; `state` when it reported nothing.
    [[nodiscard]] SqlError error(const char* state = "HY000") const;

  private:
    SQLHANDLE m_handle = nullptr;
    SQLSMALLINT m_kind = 0;
};

/// An attribute's number as ODBC passes it.
inline SQLPOINTER attributeValue(SQLULEN value) {
    return reinterpret_cast<SQLPOINTER>(value); // NOLINT: ODBC's way
}

} // namespace pellam
