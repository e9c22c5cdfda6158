#pragma once

#include <optional>
#include <string>

namespace pellam {

/// What an ODBC call reported.
struct SqlError {
    std::string state; ///< SQLSTATE, five characters
    long native = 0;   ///< the driver's own code
    std::string text;  ///< for a person, as the driver wrote it
};

/// The result of a call that can fail: nothing when it did not.
using SqlFailure = std::optional<SqlError>;

} // namespace pellam
