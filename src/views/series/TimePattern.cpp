#include "views/series/TimePattern.h"

#include "base/InternationalSettings.h"

#include <algorithm>
#include <array>

namespace pellam {

namespace {

constexpr std::array<std::string_view, 12> kMonths = {
    "January", "February", "March",     "April",   "May",      "June",
    "July",    "August",   "September", "October", "November", "December"};

bool takeMonthName(TimeScanner& scanner, int& month) {
    for (std::size_t i = 0; i < kMonths.size(); ++i) {
        if (!scanner.word(kMonths[i]) && !scanner.word(kMonths[i].substr(0, 3))) continue;
        month = static_cast<int>(i) + 1;
        return true;
    }
    return false;
}

// Two digits: 1970 to 2069, as POSIX reads them.
int fullYear(int year, bool twoDigits) {
    if (!twoDigits) return year;
    return year < 70 ? 2000 + year : 1900 + year;
}

} // namespace

TimePattern::TimePattern(std::string_view datePattern, const InternationalSettings& settings)
    : m_am(settings.amText),
      m_pm(settings.pmText) {
    add(datePattern);
}

void TimePattern::add(std::string_view pattern) {
    constexpr std::string_view kFields = "dMy";
    for (std::size_t i = 0; i < pattern.size();) {
        const std::size_t end = std::min(pattern.find_first_not_of(pattern[i], i), pattern.size());
        const bool field = kFields.find(pattern[i]) != std::string_view::npos;
        // ddd is the name of a weekday: it tells nothing that the date does not.
        if (!(pattern[i] == 'd' && end - i > 2))
            m_date.push_back({pattern[i], field ? static_cast<int>(end - i) : 0});
        i = end;
    }
}

std::optional<TimeStamp> TimePattern::parse(std::string_view text, FractionUnit unit) const {
    TimeScanner scanner(text, unit);
    TimeFields fields;
    for (const Token& token : m_date) {
        const bool taken =
            token.length > 0 ? takeField(token, scanner, fields) : takeLiteral(token.kind, scanner);
        if (!taken) return {};
    }
    if (!scanner.atEnd()) {
        scanner.oneOf(",");
        if (!scanner.blanks() && !scanner.oneOf("T")) return {};
        if (!scanner.timeOfDay(fields) || !takeHalf(scanner, fields)) return {};
    }
    return scanner.atEnd() ? fields.stamp() : std::nullopt;
}

bool TimePattern::takeField(const Token& token, TimeScanner& scanner, TimeFields& fields) const {
    if (token.kind == 'M' && token.length > 2) return takeMonthName(scanner, fields.month);
    const bool year = token.kind == 'y';
    const bool twoDigits = year && scanner.digitsAhead() == 2;
    const auto number = scanner.number(year ? 2 : 1, year ? 4 : 2);
    if (!number) return false;
    if (year) {
        fields.year = fullYear(*number, twoDigits);
    } else {
        (token.kind == 'M' ? fields.month : fields.day) = *number;
    }
    return true;
}

bool TimePattern::takeLiteral(char literal, TimeScanner& scanner) const {
    constexpr std::string_view kSeparators = "/.-";
    if (literal == ' ') return scanner.blanks() || scanner.oneOf(kSeparators) != '\0';
    if (kSeparators.find(literal) != std::string_view::npos)
        return scanner.oneOf(kSeparators) != '\0';
    return scanner.word({&literal, 1});
}

bool TimePattern::takeHalf(TimeScanner& scanner, TimeFields& fields) const {
    scanner.blanks();
    if (scanner.atEnd()) return true;
    const bool afternoon = scanner.word(m_pm) || scanner.word("PM");
    if (!afternoon && !scanner.word(m_am) && !scanner.word("AM")) return false;
    if (fields.hour < 1 || fields.hour > 12) return false;
    fields.hour = fields.hour % 12 + (afternoon ? 12 : 0);
    return true;
}

} // namespace pellam
