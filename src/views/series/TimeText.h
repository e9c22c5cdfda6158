#pragma once

#include "grid/FractionUnit.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace pellam {

/// A moment as a text names it.
struct TimeStamp {
    std::int64_t seconds = 0;       ///< since 1970-01-01 00:00:00, local unless `utc`
    std::uint32_t microseconds = 0; ///< 0 to 999999
    bool utc = false;               ///< the text named its offset from UTC
};

/// Date and time of day, field by field, on its way from a text to a TimeStamp.
struct TimeFields {
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0; ///< 24 only as 24:00:00, the end of the day
    int minute = 0;
    int second = 0;
    std::uint32_t microseconds = 0;
    std::optional<int> utcOffset; ///< seconds

    /// The moment; nothing when the calendar has no such date or the day no such time.
    [[nodiscard]] std::optional<TimeStamp> stamp() const;
};

/// Walks through a text that holds a time.
class TimeScanner {
  public:
    TimeScanner(std::string_view text, FractionUnit unit);

    [[nodiscard]] bool atEnd() const { return m_rest.empty(); }

    /// Takes between `least` and `most` digits; nothing (and takes nothing) otherwise.
    std::optional<int> number(std::size_t least, std::size_t most);
    /// Takes one of the characters; '\0' when the next one is none of them.
    char oneOf(std::string_view characters);
    /// Takes a text, capitals or not.
    bool word(std::string_view text);
    /// Takes blanks; true when there was one.
    bool blanks();
    /// Takes "H:mm", "H:mm:ss" and a fraction behind '.' or ','.
    bool timeOfDay(TimeFields& fields);
    /// Takes the digits of a fraction; its microseconds. More than six digits can't be a count
    /// within a second: they are decimal places in either unit, and six of them are used.
    std::uint32_t fraction();

    [[nodiscard]] std::size_t digitsAhead() const;

  private:
    std::string_view m_rest;
    FractionUnit m_unit;
};

/// A time in a form that puts the year first: "2008/02/25 12:00:00.000488", "2008-2-5T12:30",
/// ISO 8601 with its offset ("2008-02-25T12:00:00+01:00", "20080225T120000Z"), or a date alone.
std::optional<TimeStamp> parseYearFirst(std::string_view text, FractionUnit unit);

} // namespace pellam
