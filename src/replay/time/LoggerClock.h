#pragma once

#include <array>
#include <string_view>

namespace pellam {

/// Texts of a logger's numeric times. They count from 1989-01-01 00:00:00 by the logger's own
/// clock, which knows no zone and no daylight saving. Each text is valid as long as the buffer, and
/// empty where there is none: the field is no number, or its year is not among 0 to 9999.
namespace LoggerClock {

/// Room for "yyyy/MM/dd HH:mm:ss", a separator and 31 fraction digits.
using Buffer = std::array<char, 64>;

/// "yyyy/MM/dd HH:mm:ss" of a field of seconds, a floating-point number; its fraction follows
/// behind `separator`, in six digits or more.
std::string_view dateTime(std::string_view field, char separator, Buffer& buffer);

/// "yyyy/MM/dd" of a number of days.
std::string_view date(double days, Buffer& buffer);

/// "HH:mm:ss" of a number of seconds; whole days among them count for nothing.
std::string_view timeOfDay(double seconds, Buffer& buffer);

} // namespace LoggerClock
} // namespace pellam
