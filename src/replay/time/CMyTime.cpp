#include "replay/time/CMyTime.h"

#include "base/LeadingNumber.h"
#include "replay/time/StandardMidnight.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <ctime>
#include <limits>

namespace pellam {

namespace {

constexpr std::int64_t kMicro = 1'000'000;
constexpr std::int64_t kSecondsPerHour = 3600;
constexpr std::int64_t kOleEpoch = -25'569; // 1899-12-30 in days from 1970-01-01

std::tm localFields(std::int64_t seconds) {
    const std::time_t moment = seconds;
    std::tm fields{};
    localtime_r(&moment, &fields);
    return fields;
}

std::string formatFields(const char* pattern, const std::tm& fields) {
    std::array<char, 128> text;
    return {text.data(), std::strftime(text.data(), text.size(), pattern, &fields)};
}

std::string sixDigits(std::uint32_t microseconds) {
    std::string digits = std::to_string(microseconds);
    return std::string(6 - std::min<std::size_t>(6, digits.size()), '0') + digits;
}

std::int64_t secondsOfDay(std::int64_t hour, std::int64_t minute, std::int64_t second) {
    return hour * kSecondsPerHour + minute * 60 + second;
}

double nowMilliseconds() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return static_cast<double>(std::chrono::duration_cast<std::chrono::milliseconds>(now).count() %
                               1000);
}

double nowSeconds() {
    return static_cast<double>(std::time(nullptr));
}

// Digits after a '.', padded to six; longer runs are taken as they stand.
std::uint32_t fractionOfTime(std::string_view text) {
    text = text.substr(0, 31);
    const std::size_t digits = std::min(text.find_first_not_of("0123456789"), text.size());
    auto value = static_cast<std::uint32_t>(leadingInteger(text.substr(0, digits)));
    for (std::size_t i = digits; i < 6; ++i)
        value *= 10;
    return value;
}

} // namespace

CMyTime::CMyTime(CalendarTime time)
    : m_seconds(static_cast<std::uint32_t>(time.time_since_epoch().count())) {}

CMyTime::CMyTime(OleDate date) {
    const double whole = std::trunc(date.days);
    if (!(std::abs(whole) < 1e6)) return;
    // A day's fraction holds its time of day only to about a microsecond.
    const auto milliseconds = std::llround(std::abs(date.days - whole) * kSecondsPerDay * 1000.0);
    const auto day =
        std::chrono::sys_days(std::chrono::days(static_cast<std::int64_t>(whole) + kOleEpoch));
    const std::chrono::year_month_day ymd(day);
    std::tm fields{};
    fields.tm_year = int{ymd.year()} - 1900;
    fields.tm_mon = static_cast<int>(unsigned{ymd.month()}) - 1;
    fields.tm_mday = static_cast<int>(unsigned{ymd.day()});
    fields.tm_sec = static_cast<int>(milliseconds / 1000);
    fields.tm_hour = fields.tm_sec / 3600;
    fields.tm_min = fields.tm_sec / 60 % 60;
    fields.tm_sec %= 60;
    fields.tm_isdst = -1;
    const std::time_t seconds = std::mktime(&fields);
    if (seconds < 0 || seconds > std::numeric_limits<std::uint32_t>::max()) return;
    m_seconds = static_cast<std::uint32_t>(seconds);
}

std::uint32_t CMyTime::wholeSeconds(double seconds) {
    constexpr double kLimit = 9.0e18;
    if (std::isnan(seconds)) return 0;
    return static_cast<std::uint32_t>(
        static_cast<std::int64_t>(std::clamp(seconds, -kLimit, kLimit)));
}

void CMyTime::setFloating(double seconds) {
    m_seconds = wholeSeconds(seconds);
    if (!std::isfinite(seconds)) return;
    const double fraction = seconds - std::trunc(seconds);
    m_microseconds =
        static_cast<std::uint32_t>(static_cast<std::int64_t>(std::trunc(fraction * kMicro + 0.5)));
}

double CMyTime::GetMyTime() const {
    return m_seconds + static_cast<double>(m_microseconds) / kMicro;
}

double CMyTime::GetTrendTime() const {
    return m_seconds + static_cast<double>(m_microseconds) / 1000.0;
}

int CMyTime::GetYear() const {
    return localFields(m_seconds).tm_year + 1900;
}

int CMyTime::GetHour() const {
    return localFields(m_seconds).tm_hour;
}

int CMyTime::GetMinute() const {
    return localFields(m_seconds).tm_min;
}

int CMyTime::GetSecond() const {
    return localFields(m_seconds).tm_sec;
}

bool CMyTime::IsDaylightTime() const {
    return localFields(m_seconds).tm_isdst > 0;
}

OleDate CMyTime::GetOLEDateTime() const {
    const std::int64_t local = std::int64_t{m_seconds} + localFields(m_seconds).tm_gmtoff;
    double days = static_cast<double>(local) / kSecondsPerDay - static_cast<double>(kOleEpoch);
    if (m_microseconds > 0) days += static_cast<double>(m_microseconds) / kMicro / kSecondsPerDay;
    return {days};
}

FileTime CMyTime::GetFILETIME() const {
    constexpr std::uint64_t kTicksTo1970 = 116'444'736'000'000'000;
    const std::uint64_t ticks =
        std::uint64_t{m_seconds} * 10'000'000 + kTicksTo1970 + std::uint64_t{m_microseconds} * 10;
    return {static_cast<std::uint32_t>(ticks), static_cast<std::uint32_t>(ticks >> 32)};
}

double CMyTime::GetTickCount() {
    return nowSeconds() + nowMilliseconds() / 1'000'000.0;
}

double CMyTime::GetTrendCurrentTime() {
    return nowSeconds() + nowMilliseconds() / 1000.0;
}

CMyTime& CMyTime::operator+=(const CMyTime& other) {
    m_seconds += other.m_seconds;
    m_microseconds += other.m_microseconds;
    return *this;
}

CMyTime& CMyTime::operator-=(const CMyTime& other) {
    m_seconds -= other.m_seconds;
    m_microseconds -= other.m_microseconds;
    return *this;
}

int CMyTime::ParseDateTime(std::string_view text) {
    constexpr std::string_view kSeparators = "/,: ";
    std::array<std::int32_t, 6> pieces;
    for (std::int32_t& piece : pieces) {
        const std::size_t begin = text.find_first_not_of(kSeparators);
        if (begin == std::string_view::npos) return 0;
        const std::size_t end = std::min(text.find_first_of(kSeparators, begin), text.size());
        piece = leadingInteger(text.substr(begin, end - begin));
        text.remove_prefix(end);
    }
    const std::int64_t midnight = standardMidnight(pieces[0], pieces[1], pieces[2]);
    m_seconds =
        static_cast<std::uint32_t>(midnight + secondsOfDay(pieces[3], pieces[4], pieces[5]));
    m_microseconds = 0;
    return 1;
}

int CMyTime::ParseDate(std::string_view text) {
    if (text.size() < 10) return 0;
    const std::size_t first = text.find('/');
    if (first == std::string_view::npos) return 0;
    const std::size_t second = text.find('/', first + 1);
    if (second == std::string_view::npos) return 0;
    m_seconds = static_cast<std::uint32_t>(
        standardMidnight(leadingInteger(text), leadingInteger(text.substr(first + 1)),
                         leadingInteger(text.substr(second + 1))));
    m_microseconds = 0;
    return 1;
}

int CMyTime::ParseTime(std::string_view text) {
    if (text.size() < 8) return 0;
    const std::size_t first = text.find(':');
    if (first == std::string_view::npos) return 0;
    const std::size_t second = text.find(':', first + 1);
    if (second == std::string_view::npos) return 0;
    m_seconds += static_cast<std::uint32_t>(secondsOfDay(leadingInteger(text),
                                                         leadingInteger(text.substr(first + 1)),
                                                         leadingInteger(text.substr(second + 1))));
    const std::size_t point = second + 3;
    const bool fraction = point < text.size() && text[point] == '.';
    m_microseconds = fraction ? fractionOfTime(text.substr(point + 1)) : 0;
    return 1;
}

int CMyTime::SetDateTimeOffset(std::string_view text) {
    if (text.size() < 4) return 0;
    m_seconds += static_cast<std::uint32_t>(leadingInteger(text));
    const std::size_t point = text.find('.');
    if (point != std::string_view::npos)
        m_microseconds += static_cast<std::uint32_t>(leadingInteger(text.substr(point + 1)));
    return 1;
}

std::string CMyTime::Format(const char* pattern) const {
    std::string text = formatFields(pattern, localFields(m_seconds));
    if (m_microseconds != 0 && std::strstr(pattern, "%s")) {
        text += '.' + sixDigits(m_microseconds);
        text.resize(text.size() - 3);
    }
    return text;
}

std::string CMyTime::FormatLocalNoDST(const char* pattern) const {
    std::tm fields = localFields(m_seconds);
    if (fields.tm_isdst > 0) {
        // The clock is set back, not the moment: in the first hour of summer that would still be
        // winter time, another hour back.
        const std::time_t clock = std::int64_t{m_seconds} + fields.tm_gmtoff - kSecondsPerHour;
        gmtime_r(&clock, &fields);
    }
    std::string text = formatFields(pattern, fields);
    if (m_microseconds != 0 && std::strstr(pattern, "%X")) {
        text += '.' + sixDigits(m_microseconds);
        text.erase(text.find_last_not_of('0') + 1);
    }
    return text;
}

} // namespace pellam
