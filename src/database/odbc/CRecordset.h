#pragma once

#include "database/odbc/CDatabase.h"
#include "database/odbc/CFieldExchange.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace pellam {

class OdbcStatement;

/// Rows of a query, read one after the other into the members of a derived class. Read-only. The
/// waiting calls go through the database's LongCall.
class CRecordset {
  public:
    enum OpenType {
        forwardOnly,
        snapshot, ///< the rows as they were when it was opened
    };

    /// Rows that one call of the driver fetches.
    static constexpr std::size_t kBlockRows = 1000;

    /// `database` is open and outlives the record set.
    explicit CRecordset(CDatabase& database);
    virtual ~CRecordset();
    CRecordset(const CRecordset&) = delete;
    CRecordset& operator=(const CRecordset&) = delete;

    std::string m_strFilter; ///< text of the WHERE clause; empty for all rows
    std::string m_strSort;   ///< text of the ORDER BY clause; empty for the database's order

    /// Runs the query and reads the first row. Nothing on success, rows or none.
    SqlFailure Open(OpenType type);
    /// Runs the query again, with the filter and sort as they are now, and reads the first row.
    SqlFailure Requery();
    /// Reads the next row. Past the last one IsEOF() holds and the members keep the last row.
    SqlFailure MoveNext();

    /// No rows at all, together with IsEOF().
    [[nodiscard]] bool IsBOF() const { return m_empty; }

    [[nodiscard]] bool IsEOF() const { return m_atEnd; }

    [[nodiscard]] bool IsOpen() const { return m_statement != nullptr; }

    /// Rows so far that were passed over because a value does not fit its member: no number, or
    /// one too large. Stays when it is closed.
    [[nodiscard]] const UnreadRows& unread() const { return m_unread; }

    /// Harmless when not open.
    void Close();

    /// Rows a fetch asks for, from the next Open() on; 1 to fetch one by one.
    void setBlockRows(std::size_t rows) { m_blockRows = rows; }

    [[nodiscard]] virtual std::string_view GetDefaultConnect() const { return "ODBC;DSN=Site7d1"; }

    /// The table, in brackets.
    [[nodiscard]] virtual std::string_view GetDefaultSQL() const = 0;

  protected:
    /// Binds the columns in their order.
    virtual void DoFieldExchange(CFieldExchange& exchange) = 0;

  private:
    const std::vector<BoundField>& fields();
    [[nodiscard]] std::string statementText(bool doubleQuotedTexts);
    SqlFailure runQuery();
    SqlFailure fetchBlock();
    template <class Work>
    SqlFailure wait(Work work);
    void abandon();

    CDatabase& m_database;
    CFieldExchange m_exchange;
    std::shared_ptr<OdbcStatement> m_statement;
    std::size_t m_blockRows = kBlockRows;
    UnreadRows m_unread;
    std::size_t m_row = 0;  ///< the current row in the block
    std::size_t m_rows = 0; ///< rows in the block
    bool m_empty = true;
    bool m_atEnd = true;
};

} // namespace pellam
