#pragma once

#include "replay/time/TimeCorrections.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace pellam {

/// Turns a logger's numeric times, seconds since 1989-01-01 00:00:00, into displayed dates and
/// times. The C library's zone rules are asked once a quarter of an hour of data, not once a row.
class LoggerClock {
  public:
    /// Room for "yyyy/MM/dd HH:mm:ss", a separator and 31 fraction digits.
    using Buffer = std::array<char, 64>;

    explicit LoggerClock(const TimeCorrections& corrections) : m_corrections(corrections) {}

    /// "yyyy/MM/dd HH:mm:ss" of a field of seconds since the logger's epoch; a fraction of the
    /// field follows behind `separator`, in six digits or more. A field that is no number counts as
    /// 0.
    std::string_view dateTime(std::string_view seconds, char separator, Buffer& buffer);

    /// "yyyy/MM/dd" of a number of days since the logger's epoch; empty when out of range.
    std::string_view date(double days, Buffer& buffer);

    /// "HH:mm:ss" of a number of seconds since midnight; empty when out of range.
    std::string_view timeOfDay(double seconds, Buffer& buffer);

  private:
    struct Offset {
        std::int64_t seconds; ///< local time minus UTC
        bool daylight;
    };

    /// Local calendar seconds of corrected time: both biases applied, then the zone's offset.
    std::int64_t displayed(std::int64_t time);
    Offset offsetAt(std::int64_t time);

    TimeCorrections m_corrections;
    std::int64_t m_windowStart = INT64_MIN; ///< start of the quarter of an hour that m_offset is of
    Offset m_offset{};
};

} // namespace pellam
