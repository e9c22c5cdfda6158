#include "logger/TimestampText.h"

#include "base/CalendarText.h"
#include "base/LoggerEpoch.h"

#include <algorithm>
#include <charconv>
#include <chrono>

namespace pellam {

namespace {

constexpr std::uint64_t kMillion = 1'000'000;
constexpr std::uint64_t kDaySeconds = 86400;

struct Date {
    std::uint64_t year;
    std::chrono::year_month_day monthAndDay; ///< of a year with the same calendar
};

// The calendar repeats every 400 years; the library's own years end far before a count does.
Date dateOf(std::uint64_t day) {
    constexpr std::uint64_t kPeriodDays = 146097;
    const std::chrono::days within(static_cast<int>(day % kPeriodDays));
    const std::chrono::year_month_day date{std::chrono::sys_days(within)};
    const auto year = static_cast<std::uint64_t>(static_cast<int>(date.year()));
    return {year + day / kPeriodDays * 400, date};
}

char* writeClock(std::uint64_t second, char* out) {
    out = writeTwo(out, second / 3600);
    *out++ = ':';
    return writeTwo(out, second / 60 % 60);
}

char* writeSix(std::uint64_t value, char* out) {
    return writeTwo(writeTwo(writeTwo(out, value / 10000), value / 100 % 100), value % 100);
}

} // namespace

void TimestampText::setDay(std::uint64_t day) {
    m_day = day;
    const Date date = dateOf(day);
    char* out = std::to_chars(m_date, m_date + 20, date.year).ptr;
    *out++ = '/';
    out = writeTwo(out, static_cast<unsigned>(date.monthAndDay.month()));
    *out++ = '/';
    out = writeTwo(out, static_cast<unsigned>(date.monthAndDay.day()));
    *out++ = ' ';
    m_dateSize = static_cast<std::size_t>(out - m_date);
}

char* TimestampText::write(std::uint64_t microseconds, char* out) {
    const std::uint64_t seconds = microseconds / kMillion + std::uint64_t{kLoggerEpoch};
    const std::uint64_t day = seconds / kDaySeconds;
    const std::uint64_t second = seconds % kDaySeconds;
    if (day != m_day) setDay(day);
    out = std::copy_n(m_date, m_dateSize, out);
    out = writeClock(second, out);
    *out++ = ':';
    out = writeTwo(out, second % 60);
    *out++ = m_decimal;
    return writeSix(microseconds % kMillion, out);
}

char* TimestampText::writeInterval(std::uint64_t microseconds, char* out) const {
    using std::chrono::January;
    const std::uint64_t seconds = microseconds / kMillion;
    const auto date = dateOf(seconds / kDaySeconds).monthAndDay;
    const auto dayOfYear =
        std::chrono::sys_days(date) - std::chrono::sys_days(date.year() / January / 1);
    out = std::to_chars(out, out + 20, dayOfYear.count()).ptr;
    *out++ = ' ';
    out = writeClock(seconds % kDaySeconds, out);
    if (seconds % 60 == 0) return out;
    *out++ = static_cast<char>(seconds % 60);
    return writeSix(static_cast<unsigned char>(m_decimal), out);
}

} // namespace pellam
