#include "database/sessions/SessionValueText.h"

#include "database/odbc/CTime.h"

#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <optional>

namespace pellam {

namespace {

constexpr double kExactWhole = 9007199254740992.0; // 2^53: from there on every double is whole
constexpr double kFirstDay = -657434;              // 0100-01-01
constexpr double kLastDay = 2958465;               // 9999-12-31
constexpr int kEpoch = -25'569;                    // 1899-12-30 in days from 1970-01-01
constexpr std::int64_t kDayMilliseconds = 86'400'000;

std::optional<CTime> timeOf(double days) {
    if (!(days >= kFirstDay && days < kLastDay + 1)) return {};
    const double whole = std::trunc(days);
    // A day's fraction holds its time of day only to about a microsecond.
    const auto exact = std::llround(std::abs(days - whole) * double{kDayMilliseconds});
    const auto seconds = static_cast<std::int32_t>(exact % kDayMilliseconds / 1000);
    const auto carry = static_cast<int>(exact / kDayMilliseconds);
    const auto day = std::chrono::days(static_cast<int>(whole) + kEpoch + carry);
    const std::chrono::year_month_day date{std::chrono::sys_days(day)};
    return CTime{int{date.year()},
                 static_cast<std::uint8_t>(unsigned{date.month()}),
                 static_cast<std::uint8_t>(unsigned{date.day()}),
                 static_cast<std::uint8_t>(seconds / 3600),
                 static_cast<std::uint8_t>(seconds / 60 % 60),
                 static_cast<std::uint8_t>(seconds % 60)};
}

} // namespace

char* SessionValueText::writeWhole(double value, char* out) {
    const double size = std::abs(value);
    char* const limit = out + kRoom - 1;
    if (size < kExactWhole) {
        if (std::signbit(value)) *out++ = '-';
        out = std::to_chars(out, limit, static_cast<std::uint64_t>(std::nearbyint(size))).ptr;
    } else {
        out = std::to_chars(out, limit, value, std::chars_format::fixed, 0).ptr;
        if (!std::isfinite(value)) return out;
    }
    *out++ = '.';
    return out;
}

char* SessionValueText::writeDate(double days, char* out) {
    const std::optional<CTime> time = timeOf(days);
    return time ? time->writeDate(out) : writeWhole(days, out);
}

char* SessionValueText::writeTime(double days, char* out) {
    const std::optional<CTime> time = timeOf(days);
    return time ? time->writeTime(out) : writeWhole(days, out);
}

} // namespace pellam
