#pragma once

#include <cstdint>

namespace pellam {

/// What the X axis of a chart counts, and the words for it.
struct XAxis {
    enum class Kind : std::uint8_t {
        Calendar, ///< seconds since 1970 UTC, shown as local dates and times
        Elapsed,  ///< seconds since a start, also below 0
        Rows,     ///< numbers of rows, from 1: there is no time
    };

    Kind kind = Kind::Calendar;
    /// Of elapsed times, the unit of their words as a power of ten of a second: -3 for "250 ms",
    /// -6 and -9 alike, 0 for "0:00:10".
    int unit = 0;

    /// Fraction digits of a second that a reading may have.
    [[nodiscard]] constexpr int mostDigits() const {
        if (kind == Kind::Rows) return 0;
        return unit == 0 ? 6 : 9;
    }

    friend bool operator==(const XAxis&, const XAxis&) = default;
};

} // namespace pellam
