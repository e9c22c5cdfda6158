#pragma once

#include "grid/Column.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <string_view>

namespace pellam {

/// How many values of a channel were left out of the chart, by reason.
struct LeftOut {
    std::int64_t sentinels = 0;  ///< one of the texts by which loggers mark a missing value
    std::int64_t notNumbers = 0; ///< texts that are no decimal number
    std::int64_t notLater = 0;   ///< time not later than that of the channel's value before
};

/// Whether a value text contains "99999.9", "-99999.9" or "-9.00000E9" anywhere; `separator` may
/// stand for the point.
[[nodiscard]] bool containsSentinel(std::string_view text, char separator);

/// The same for the text of a packed decimal cell, decided on its digits.
[[nodiscard]] inline bool isSentinel(Cell decimal) {
    constexpr std::uint64_t kDigits = 999'999; // five nines and the one behind the point
    if (decimal.mantissa() < kDigits || decimal.scale() == 0) return false;
    std::uint64_t digits = decimal.mantissa();
    for (unsigned i = decimal.scale(); i > 1; --i)
        digits /= 10;
    return digits % (kDigits + 1) == kDigits;
}

/// The value that a cell puts on the chart; NaN when there is none. Values that are left out are
/// counted, empty cells are not.
[[nodiscard]] double chartValue(const Column& column, Cell cell, LeftOut& leftOut);

} // namespace pellam
