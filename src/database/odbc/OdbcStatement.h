#pragma once

#include "database/odbc/CFieldExchange.h"
#include "database/odbc/OdbcConnection.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace pellam {

/// One query with its bound columns and a block of fetched rows. Owns all that the driver writes
/// to, so a call that never returns harms nobody. For this folder's sources only.
class OdbcStatement {
  public:
    struct Settings {
        int queryTimeout = 0; ///< seconds; 0: no limit
        bool snapshot = false;
        std::size_t blockRows = 1;
    };

    OdbcStatement(std::shared_ptr<OdbcConnection> connection,
                  const std::vector<BoundField>& fields);

    SqlFailure prepare(const Settings& settings);
    /// Runs a query; may wait. The block is empty afterwards.
    SqlFailure execute(const std::string& sql);
    /// Fetches the next block; may wait. No rows: the end. A row whose values do not fit their
    /// members is left out and counted.
    SqlFailure fetch();
    /// Asks the server to end a call that another thread waits in; may wait itself.
    void cancel();
    /// Ends the query; execute() may follow.
    void closeCursor();

    [[nodiscard]] std::size_t rows() const { return m_good.size(); }

    [[nodiscard]] const UnreadRows& unread() const { return m_unread; }

    /// Copies a row of the block into the members that were bound.
    void read(std::size_t row, const std::vector<BoundField>& fields) const;

  private:
    enum class Kind { Long, Double, Text, Time, TimeText };

    struct Slot {
        Kind kind;
        std::size_t value = 0;     ///< offset in a row of the value
        std::size_t indicator = 0; ///< and of its length or null mark
    };

    static Kind kindOf(const BoundField& field);
    void chooseTimeKinds();
    void layOut();
    SqlFailure bind();
    SqlFailure fetchBlock();
    SqlFailure fetchOneByOne();
    void takeRow(std::size_t place, bool good);
    [[nodiscard]] bool numbersFit(std::size_t place) const;
    void leaveOut(const SqlError& why);
    [[nodiscard]] const std::byte* rowAt(std::size_t place) const;

    std::shared_ptr<OdbcConnection> m_connection; // before the handle: it goes after it
    OdbcHandle m_handle;
    std::vector<Slot> m_slots;
    std::size_t m_rowSize = 0;
    std::vector<SQLLEN> m_block; ///< rows one behind the other, in units that keep them aligned
    std::vector<SQLUSMALLINT> m_rowStatus;
    std::size_t m_blockRows = 1;
    std::size_t m_driverRows = 1; ///< rows a call; 1 where the driver refuses more
    SQLULEN m_fetched = 0;
    std::vector<std::size_t> m_good; ///< places in the block of the rows to read
    UnreadRows m_unread;
    SqlFailure m_failure;    ///< that came behind the rows of the block
    std::int64_t m_seen = 0; ///< rows of the query so far
    bool m_bound = false;
    bool m_atEnd = false;
};

} // namespace pellam
