#pragma once

#include <compare>
#include <cstdint>
#include <string>

namespace pellam {

/// A moment as a text names it.
struct TimeMoment {
    /// Calendar times and epochs: since 1970-01-01 00:00:00, on the wall clock unless `utc`. Times
    /// of day: since midnight. Elapsed times: since the start. Rounded down, also below 0.
    std::int64_t seconds = 0;
    std::uint32_t nanoseconds = 0; ///< 0 to 999999999, always forward from `seconds`
    std::int32_t offset =
        0;            ///< seconds that the text's own clock is ahead of UTC, where it says so
    bool utc = false; ///< the text named its offset from UTC, or is an epoch

    /// Seconds since 1970-01-01 00:00:00 as the text's own clock shows them.
    [[nodiscard]] std::int64_t wall() const { return seconds + offset; }

    friend auto operator<=>(const TimeMoment&, const TimeMoment&) = default;
};

/// Seconds with their fraction; exact to the microsecond within the years 1900 to 2100.
[[nodiscard]] inline double secondsOf(const TimeMoment& moment) {
    return static_cast<double>(moment.seconds) + static_cast<double>(moment.nanoseconds) / 1e9;
}

/// A moment as far before zero as this one is after it.
[[nodiscard]] TimeMoment negative(TimeMoment moment);

/// "yyyy/MM/dd HH:mm:ss" of a calendar time or an epoch, as the text's own clock shows it, and
/// behind '.' its fraction in three, six or nine digits, if any.
[[nodiscard]] std::string calendarText(const TimeMoment& moment);

/// An elapsed time in seconds: "90", "-0.25", "0.000001".
[[nodiscard]] std::string elapsedText(const TimeMoment& moment);

} // namespace pellam
