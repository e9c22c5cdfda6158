#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace pellam {

/// What someone says of a text file's layout; what is left open is found. Lines count from 1,
/// columns from 0.
struct LayoutWishes {
    std::optional<char> separator; ///< Dialect::kBlankRuns for runs of blanks
    std::optional<char> decimal;
    std::optional<std::int64_t> headingsLine; ///< 0: there are none
    std::optional<std::int64_t> unitsLine;    ///< 0: there is none
    std::optional<std::int64_t> dataLine;
    std::optional<std::vector<std::size_t>> timeColumns; ///< none in it: rows have no time
    std::string timeFormat;                              ///< name of a TimeForm; empty: found
    std::optional<std::vector<std::string>> missing;     ///< texts that stand for no value

    [[nodiscard]] bool any() const {
        return separator || decimal || headingsLine || unitsLine || dataLine || timeColumns ||
               !timeFormat.empty() || missing;
    }
};

} // namespace pellam
