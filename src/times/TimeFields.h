#pragma once

#include "times/TimeMoment.h"

#include <optional>

namespace pellam {

/// Date and time of day, field by field, on their way from a text or a packed cell to a moment.
struct TimeFields {
    int year = 1970;
    int month = 1;
    int day = 1;
    int dayOfYear = 0; ///< in place of month and day when not 0
    int hour = 0;      ///< 24 only as 24:00:00, the end of the day
    int minute = 0;
    int second = 0;
    std::uint32_t nanoseconds = 0;
    std::optional<int> utcOffset; ///< seconds

    /// The moment; nothing when the calendar has no such date or the day no such time.
    [[nodiscard]] std::optional<TimeMoment> moment() const;
};

} // namespace pellam
