#include "views/series/TimeText.h"

#include <algorithm>
#include <cctype>
#include <chrono>

namespace pellam {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// "Z", "+01", "+01:00" or "-0330"; false when something else follows.
bool takeOffset(TimeScanner& scanner, TimeFields& fields) {
    scanner.blanks();
    if (scanner.oneOf("Zz")) {
        fields.utcOffset = 0;
        return true;
    }
    const char sign = scanner.oneOf("+-");
    if (!sign) return true;
    const auto hours = scanner.number(2, 2);
    if (!hours) return false;
    const bool colon = scanner.oneOf(":") != '\0';
    const auto minutes = scanner.number(2, 2);
    if (!minutes && colon) return false;
    const int seconds = *hours * 3600 + minutes.value_or(0) * 60;
    fields.utcOffset = sign == '-' ? -seconds : seconds;
    return true;
}

bool takeDate(TimeScanner& scanner, TimeFields& fields) {
    const bool compact = scanner.digitsAhead() >= 8;
    const auto year = scanner.number(4, 4);
    const char separator = compact ? '-' : scanner.oneOf("/-.");
    const auto month = scanner.number(compact ? 2 : 1, 2);
    if (!year || !separator || !month) return false;
    if (!compact && scanner.oneOf("/-.") != separator) return false;
    const auto day = scanner.number(compact ? 2 : 1, 2);
    if (!day) return false;
    fields.year = *year;
    fields.month = *month;
    fields.day = *day;
    return true;
}

bool takeCompactTime(TimeScanner& scanner, TimeFields& fields) {
    const auto hour = scanner.number(2, 2);
    const auto minute = scanner.number(2, 2);
    if (!hour || !minute) return false;
    fields.hour = *hour;
    fields.minute = *minute;
    fields.second = scanner.number(2, 2).value_or(0);
    if (scanner.oneOf(".,")) fields.microseconds = scanner.fraction();
    return true;
}

} // namespace

std::optional<TimeStamp> TimeFields::stamp() const {
    using namespace std::chrono;
    const year_month_day date{std::chrono::year(year), std::chrono::month(unsigned(month)),
                              std::chrono::day(unsigned(day))};
    const bool endOfDay = hour == 24 && minute == 0 && second == 0 && microseconds == 0;
    if (!date.ok() || (hour > 23 && !endOfDay) || minute > 59 || second > 59) return {};
    TimeStamp stamp;
    stamp.seconds = sys_days(date).time_since_epoch().count() * std::int64_t{86'400};
    stamp.seconds += hour * 3600 + minute * 60 + second - utcOffset.value_or(0);
    stamp.microseconds = microseconds;
    stamp.utc = utcOffset.has_value();
    return stamp;
}

TimeScanner::TimeScanner(std::string_view text, FractionUnit unit) : m_rest(text), m_unit(unit) {
    while (!m_rest.empty() && (m_rest.back() == ' ' || m_rest.back() == '\t'))
        m_rest.remove_suffix(1);
    blanks();
}

std::size_t TimeScanner::digitsAhead() const {
    const auto end = std::find_if_not(m_rest.begin(), m_rest.end(), isDigit);
    return static_cast<std::size_t>(end - m_rest.begin());
}

std::optional<int> TimeScanner::number(std::size_t least, std::size_t most) {
    const std::size_t length = std::min(digitsAhead(), most);
    if (length < least) return {};
    int value = 0;
    for (const char c : m_rest.substr(0, length))
        value = value * 10 + (c - '0');
    m_rest.remove_prefix(length);
    return value;
}

char TimeScanner::oneOf(std::string_view characters) {
    if (m_rest.empty() || characters.find(m_rest.front()) == std::string_view::npos) return '\0';
    const char taken = m_rest.front();
    m_rest.remove_prefix(1);
    return taken;
}

bool TimeScanner::word(std::string_view text) {
    if (text.empty() || m_rest.size() < text.size()) return false;
    const auto lower = [](char c) { return std::tolower(static_cast<unsigned char>(c)); };
    if (!std::equal(text.begin(), text.end(), m_rest.begin(),
                    [lower](char a, char b) { return lower(a) == lower(b); })) {
        return false;
    }
    m_rest.remove_prefix(text.size());
    return true;
}

bool TimeScanner::blanks() {
    const std::size_t before = m_rest.size();
    while (oneOf(" \t")) {
    }
    return m_rest.size() != before;
}

std::uint32_t TimeScanner::fraction() {
    const std::size_t digits = digitsAhead();
    const bool padded = m_unit == FractionUnit::DecimalPlaces || digits > 6;
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < (padded ? 6 : digits); ++i)
        value = value * 10 + (i < digits ? static_cast<std::uint32_t>(m_rest[i] - '0') : 0);
    m_rest.remove_prefix(digits);
    return value;
}

bool TimeScanner::timeOfDay(TimeFields& fields) {
    const auto hour = number(1, 2);
    if (!hour || !oneOf(":")) return false;
    const auto minute = number(1, 2);
    if (!minute) return false;
    fields.hour = *hour;
    fields.minute = *minute;
    if (!oneOf(":")) return true;
    const auto second = number(1, 2);
    if (!second) return false;
    fields.second = *second;
    if (oneOf(".,")) fields.microseconds = fraction();
    return true;
}

std::optional<TimeStamp> parseYearFirst(std::string_view text, FractionUnit unit) {
    TimeScanner scanner(text, unit);
    TimeFields fields;
    if (!takeDate(scanner, fields)) return {};
    if (scanner.blanks() || scanner.oneOf("Tt")) {
        const bool compact = scanner.digitsAhead() >= 4;
        const bool taken = compact ? takeCompactTime(scanner, fields) : scanner.timeOfDay(fields);
        if (!taken || !takeOffset(scanner, fields)) return {};
    }
    return scanner.atEnd() ? fields.stamp() : std::nullopt;
}

} // namespace pellam
