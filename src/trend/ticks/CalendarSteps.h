#pragma once

#include "trend/ticks/ZoneOffsets.h"

#include <cstdint>
#include <vector>

namespace pellam {

enum class CalendarUnit { Microsecond, Second, Day, Month, Year };

/// Distance between the labelled marks of a time axis, and between the minor ones (0 = none).
struct CalendarStep {
    CalendarUnit unit = CalendarUnit::Second;
    std::int64_t count = 1;
    CalendarUnit minorUnit = CalendarUnit::Second;
    std::int64_t minorCount = 0;

    /// Usual length in seconds.
    double seconds() const;

    /// Below a day, so that the clock time is of interest.
    bool isClock() const { return unit <= CalendarUnit::Second; }
};

/// The finest step that has no more than `labels` marks in a span of seconds.
CalendarStep calendarStep(double span, int labels);

/// Every moment in from..to (both inclusive) whose local time is a multiple of `count` units,
/// ascending; stretches must cover the span. Multiples within a day count from midnight, 7 and 14
/// days from a Monday. None when there would be more than some thousands.
std::vector<double> calendarMarks(CalendarUnit unit, std::int64_t count, double from, double to,
                                  const std::vector<ZoneStretch>& stretches);

} // namespace pellam
