#pragma once

#include "times/TimeMoment.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace pellam {

/// How the texts of a time column are written. A plain value that is its name: "yyyy-MM-dd
/// HH:mm:ss", "dd/MM/yyyy HH:mm", "yyyyMMdd_HHmmss", "HH:mm:ss", "epoch-ms", "elapsed-s".
///
/// Names of calendar forms and times of day are patterns of these letters, in any order, each field
/// once:
///     yyyy, yy   year; where digits stand in it that are two, 1970 to 2069
///     MM, M      month; MMM an English month name, "Apr" or "April"
///     dd, d      day of the month
///     DDD        day of the year, 1 to 366, in place of month and day
///     E          name of a weekday, passed over
///     HH, H      hour; mm, m  minute; ss, s  second
///     a          AM or PM; may be left off
/// All other characters but letters stand for themselves, and so do 'T' and '_'. What tells the
/// meaning of a text is the order of the fields; the rest is read generously: '/', '.', '-' and
/// blanks stand for each other, numbers may lack leading zeros (unless two fields stand together),
/// a month may be a number or a name, and seconds, their fraction behind '.' or ',', AM or PM, an
/// offset from UTC ("Z", "UTC", "GMT", "+01:00", "-0330") and the whole time of day may be there or
/// not. Of an interval with a hyphen in its dates, "start/end", the start counts.
///
/// The others are "epoch-s", "epoch-ms", "epoch-us", "epoch-ns" (counts since 1970-01-01 00:00:00
/// UTC), "elapsed-d", "elapsed-h", "elapsed-min", "elapsed-s", "elapsed-ms", "elapsed-us",
/// "elapsed-ns" (counts since the start), all with or without decimals and exponent,
/// "elapsed-clock" (h:mm:ss, also past 24 h, with fraction), "elapsed-m:s" (m:ss, also past 60 min)
/// and "decimal-year" (2008.5).
class TimeForm {
  public:
    enum class Kind : std::uint8_t {
        None,        ///< no times
        Calendar,    ///< a date, mostly with a time of day
        TimeOfDay,   ///< a time of day alone
        Epoch,       ///< a count since 1970
        Elapsed,     ///< time since the start
        DecimalYear, ///< a year with its fraction
    };

    /// Of no times; its name is empty.
    TimeForm() = default;

    /// The form of a name as above; nothing for any other text.
    [[nodiscard]] static std::optional<TimeForm> parse(std::string_view name);

    [[nodiscard]] const std::string& name() const { return m_name; }

    [[nodiscard]] Kind kind() const { return m_kind; }

    /// Whether there is a form.
    explicit operator bool() const { return m_kind != Kind::None; }

    friend bool operator==(const TimeForm&, const TimeForm&) = default;

  private:
    std::string m_name;
    Kind m_kind = Kind::None;
};

/// What a moment of a column of this form shows: a date and time, a time of day, or the seconds
/// since the start; see TimeMoment.h.
[[nodiscard]] std::string momentText(const TimeMoment& moment, const TimeForm& form);

} // namespace pellam
