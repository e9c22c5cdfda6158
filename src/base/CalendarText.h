#pragma once

#include <charconv>
#include <chrono>
#include <concepts>
#include <cstddef>
#include <cstdint>

namespace pellam {

/// Writes a number from 0 to 99 as two digits; gives the place after them.
template <std::integral Number>
constexpr char* writeTwo(char* out, Number value) {
    out[0] = static_cast<char>('0' + value / 10);
    out[1] = static_cast<char>('0' + value % 10);
    return out + 2;
}

/// Room that writeDateTime() needs.
inline constexpr std::size_t kCalendarTextRoom = 24;

/// Writes "yyyy/MM/dd"; a year takes four digits, or as many as it needs where four are not enough
/// (at most eight characters). Gives the place after it.
inline char* writeDate(char* out, int year, unsigned month, unsigned day, char separator = '/') {
    if (year >= 0 && year <= 9999) {
        out = writeTwo(writeTwo(out, year / 100), year % 100);
    } else {
        out = std::to_chars(out, out + 8, year).ptr;
    }
    *out++ = separator;
    out = writeTwo(out, month);
    *out++ = separator;
    return writeTwo(out, day);
}

/// Writes "HH:mm:ss" and gives the place after it.
inline char* writeTime(char* out, unsigned hour, unsigned minute, unsigned second) {
    out = writeTwo(out, hour);
    *out++ = ':';
    out = writeTwo(out, minute);
    *out++ = ':';
    return writeTwo(out, second);
}

/// Writes the date of a moment in seconds since 1970-01-01 00:00:00, within some 30,000 years of
/// it, and gives the place after it.
inline char* writeDateOf(char* out, std::int64_t seconds) {
    using namespace std::chrono;
    const year_month_day date(floor<days>(sys_seconds(std::chrono::seconds(seconds))));
    return writeDate(out, int{date.year()}, unsigned{date.month()}, unsigned{date.day()});
}

/// Writes the time of day of such a moment and gives the place after it.
inline char* writeTimeOf(char* out, std::int64_t seconds) {
    constexpr std::int64_t kDay = 86'400;
    const auto second = static_cast<unsigned>((seconds % kDay + kDay) % kDay);
    return writeTime(out, second / 3600, second / 60 % 60, second % 60);
}

/// Writes "yyyy/MM/dd HH:mm:ss" of such a moment and gives the place after it.
inline char* writeDateTime(char* out, std::int64_t seconds) {
    out = writeDateOf(out, seconds);
    *out++ = ' ';
    return writeTimeOf(out, seconds);
}

} // namespace pellam
