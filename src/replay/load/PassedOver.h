#pragma once

#include <cstdint>

namespace pellam {

/// Lines of a file that gave no row, by cause.
struct PassedOver {
    std::int64_t blank = 0;         ///< nothing in them but blanks and separators
    std::int64_t repeated = 0;      ///< equal to the line before
    std::int64_t headings = 0;      ///< the headings once more
    std::int64_t comments = 0;      ///< begin with the mark of comments
    std::int64_t discontinuity = 0; ///< tell of a gap in the data
    std::int64_t footer = 0;        ///< behind the data
};

} // namespace pellam
