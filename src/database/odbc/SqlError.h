#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace pellam {

/// What an ODBC call reported.
struct SqlError {
    std::string state; ///< SQLSTATE, five characters
    long native = 0;   ///< the driver's own code
    std::string text;  ///< for a person, as the driver wrote it
    /// A person stopped the call or did not log in; he needs no message.
    bool stopped = false;
};

/// Rows of a query that were passed over because their values do not fit.
struct UnreadRows {
    std::int64_t count = 0;
    std::int64_t first = 0; ///< which row of the query it was, counted from 1
    SqlError why = {};      ///< of that one
};

/// The result of a call that can fail: nothing when it did not.
using SqlFailure = std::optional<SqlError>;

} // namespace pellam
