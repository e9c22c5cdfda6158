#pragma once

#include <cstdint>
#include <string_view>

namespace pellam {

/// What a heading says of a column's part in the time.
enum class TimePart : std::uint8_t {
    None,
    Year,
    Month,
    Day,
    DayOfYear,
    Hour,
    Minute,
    Second,
    HourMinute, ///< 1530 for 15:30
};

/// The part of a date or time of day that a heading names: "Year", "mo", "DOY", "hh".
[[nodiscard]] TimePart timePartOf(std::string_view heading);

/// Whether a heading names a time: "Timestamp", "Date Time, GMT-04:00", "Datum", "time (s)".
[[nodiscard]] bool namesTime(std::string_view heading);

/// Whether a heading names a count of records: "Record", "#", "Scan No", "index".
[[nodiscard]] bool namesCount(std::string_view heading);

/// The unit in which a heading has elapsed time, as a time form has it: "s", "ms", "us", "ns",
/// "min", "h", "d"; empty where it names none.
[[nodiscard]] std::string_view elapsedUnitOf(std::string_view heading);

} // namespace pellam
