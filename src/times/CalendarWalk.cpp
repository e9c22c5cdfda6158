#include "times/CalendarWalk.h"

#include <algorithm>
#include <array>

namespace pellam {

namespace {

using Kind = TimeItem::Kind;

constexpr std::array<std::string_view, 12> kMonths = {
    "January", "February", "March",     "April",   "May",      "June",
    "July",    "August",   "September", "October", "November", "December"};
constexpr std::array<std::string_view, 7> kWeekdays = {
    "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday", "Sunday"};

// 1 for the first of the names, or its first three letters, that stands here; 0 for none.
template <std::size_t Count>
int takeName(TimeCursor& cursor, const std::array<std::string_view, Count>& names) {
    const std::size_t letters = cursor.lettersAhead();
    for (std::size_t i = 0; i < names.size(); ++i) {
        const bool whole = letters == names[i].size() && cursor.word(names[i]);
        // "Sept" is usual, too.
        const bool part = letters == 3 || (letters == 4 && names[i][0] == 'S');
        if (whole || (part && cursor.word(names[i].substr(0, letters))))
            return static_cast<int>(i) + 1;
    }
    return 0;
}

} // namespace

std::optional<TimeMoment> CalendarWalk::read(const TimeItems& pattern) {
    const auto& items = pattern.items;
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (m_cursor.atEnd()) {
            // A time of day may be missing, but not behind the 'T' that announces it.
            const bool whole = i > 0 && i >= pattern.dateEnd && items[i - 1].kind != Kind::Gap;
            return whole ? m_fields.moment() : std::nullopt;
        }
        if (!take(items[i], i == 0, i + 1 == items.size())) return {};
    }
    if (!pattern.clock && !m_cursor.atEnd()) {
        constexpr TimeItem kClock{Kind::Clock, 2, false, ':'};
        if (!takeGap(",Tt", ',') || !takeClock(kClock, true)) return {};
    }
    return m_cursor.atEnd() || takeEnd(pattern) ? m_fields.moment() : std::nullopt;
}

// An interval as ISO 8601 writes it, "start/end": the start counts.
bool CalendarWalk::takeEnd(const TimeItems& pattern) {
    if (!pattern.clock || !m_cursor.take('/')) return false;
    const std::string_view end = m_cursor.rest();
    return end.find('/') == std::string_view::npos &&
           CalendarWalk(end, m_words).read(pattern).has_value();
}

bool CalendarWalk::take(const TimeItem& item, bool first, bool last) {
    switch (item.kind) {
    case Kind::Year:
        return takeYear(item, first);
    case Kind::Month:
        return takeMonth(item);
    case Kind::Day:
        return takeNumber(item, 2, m_fields.day);
    case Kind::DayOfYear:
        return takeNumber(item, 3, m_fields.dayOfYear) && m_fields.dayOfYear > 0;
    case Kind::Weekday:
        return takeName(m_cursor, kWeekdays) > 0;
    case Kind::Clock:
        return takeClock(item, last);
    case Kind::DateGap:
        return takeGap("/.-,", item.mark);
    case Kind::Gap:
        return takeGap(",;Tt_:", item.mark);
    case Kind::Exact:
        return m_cursor.take(item.mark);
    }
    return false;
}

bool CalendarWalk::takeYear(const TimeItem& item, bool first) {
    const int ahead = m_cursor.digitsAhead();
    const int digits = item.joined ? item.length : ahead;
    if (ahead < digits || (digits != 4 && digits != 2)) return false;
    // A year in front makes its text certain, but only a whole one.
    if (digits == 2 && first && item.length == 4) return false;
    m_fields.year = m_cursor.digits(digits);
    if (digits == 2) m_fields.year += m_fields.year < 70 ? 2000 : 1900; // as POSIX reads them
    return true;
}

bool CalendarWalk::takeNumber(const TimeItem& item, int most, int& value) {
    const int ahead = m_cursor.digitsAhead();
    const int digits = item.joined ? item.length : ahead;
    if (ahead < digits || digits < 1 || digits > most) return false;
    value = m_cursor.digits(digits);
    return true;
}

bool CalendarWalk::takeMonth(const TimeItem& item) {
    if (TimeCursor::isDigit(m_cursor.peek())) return takeNumber(item, 2, m_fields.month);
    m_fields.month = takeName(m_cursor, kMonths);
    return m_fields.month > 0;
}

bool CalendarWalk::takeGap(std::string_view marks, char mark) {
    const bool before = m_cursor.blanks();
    const bool marked = m_cursor.oneOf(marks) != '\0' || (mark != ' ' && m_cursor.take(mark));
    m_cursor.blanks();
    return before || marked;
}

bool CalendarWalk::takeClock(const TimeItem& clock, bool last) {
    const int digits = m_cursor.digitsAhead();
    if (digits == 0) return false;
    const bool unmarked = clock.mark == '\0' && m_cursor.peek(digits) != ':';
    const bool compact = clock.length > 1 && (digits > 2 || unmarked);
    const bool taken = compact ? takeCompact(clock, digits) : takeParted(clock);
    return taken && takeHalf() && takeOffset(last);
}

bool CalendarWalk::takeParted(const TimeItem& clock) {
    m_fields.hour = m_cursor.twoDigits();
    if (!takeClockMark(clock.mark)) return clock.length == 1;
    m_fields.minute = m_cursor.twoDigits();
    if (m_fields.minute < 0) return false;
    if (!takeClockMark(clock.mark)) return true;
    m_fields.second = m_cursor.twoDigits();
    if (m_fields.second < 0) return false;
    takeFraction();
    return true;
}

// Four digits are hours and minutes, six have seconds, too; fewer lack zeros in front.
bool CalendarWalk::takeCompact(const TimeItem& clock, int digits) {
    const bool whole = digits == 4 || digits == 6;
    if (digits > 6 || (!whole && !clock.joined)) return false;
    const bool seconds = digits > 4 || (digits < 4 && clock.length == 3);
    int number = m_cursor.digits(digits);
    if (seconds) {
        m_fields.second = number % 100;
        number /= 100;
    }
    m_fields.minute = number % 100;
    m_fields.hour = number / 100;
    if (seconds) takeFraction();
    return true;
}

bool CalendarWalk::takeClockMark(char mark) {
    if (mark != ' ') return m_cursor.take(':') || (mark != '\0' && m_cursor.take(mark));
    const TimeCursor before = m_cursor;
    m_cursor.blanks();
    m_cursor.take(':');
    if (TimeCursor::isDigit(m_cursor.peek())) return true;
    m_cursor = before;
    return false;
}

// "15:39:47:260": three digits behind a third colon are milliseconds.
bool CalendarWalk::takeColonBeforeFraction() {
    const TimeCursor before = m_cursor;
    if (m_cursor.take(':') && m_cursor.digitsAhead() == 3) return true;
    m_cursor = before;
    return false;
}

void CalendarWalk::takeFraction() {
    if (!m_cursor.oneOf(".,") && !takeColonBeforeFraction()) return;
    const int digits = m_cursor.digitsAhead();
    const int taken = std::min(digits, 9);
    auto value = static_cast<std::uint32_t>(m_cursor.digits(taken));
    m_cursor.skip(static_cast<std::size_t>(digits - taken));
    // More than six digits can't be a count within a second: they are decimal places.
    const bool count = m_words.fraction == FractionUnit::Microseconds && digits <= 6;
    for (int i = count ? 6 : taken; i < 9; ++i)
        value *= 10;
    m_fields.nanoseconds = value;
}

bool CalendarWalk::takeHalf() {
    const TimeCursor before = m_cursor;
    m_cursor.blanks();
    const bool afternoon = takeHalfWord(m_words.pm, "PM", "p.m.");
    if (!afternoon && !takeHalfWord(m_words.am, "AM", "a.m.")) {
        m_cursor = before;
        return true;
    }
    if (m_fields.hour > 12) return false;
    m_fields.hour = m_fields.hour % 12 + (afternoon ? 12 : 0);
    return true;
}

bool CalendarWalk::takeHalfWord(std::string_view own, std::string_view plain,
                                std::string_view dotted) {
    if (m_cursor.word(own) || m_cursor.word(plain) || m_cursor.word(dotted)) return true;
    // "12:30 a", which some stations write.
    const TimeCursor before = m_cursor;
    if (m_cursor.word(dotted.substr(0, 1)) && !TimeCursor::isLetter(m_cursor.peek())) return true;
    m_cursor = before;
    return false;
}

// Before a date, a hyphen is no sign.
bool CalendarWalk::takeOffset(bool signs) {
    const TimeCursor before = m_cursor;
    m_cursor.blanks();
    const bool named = m_cursor.word("UTC") || m_cursor.word("GMT") || m_cursor.word("Z");
    if (named) m_fields.utcOffset = 0;
    const char sign = signs ? m_cursor.oneOf("+-") : '\0';
    if (!sign) {
        if (!named) m_cursor = before;
        return true;
    }
    const bool compact = m_cursor.digitsAhead() == 4;
    const int hours = m_cursor.twoDigits();
    const bool minutes = compact || m_cursor.take(':');
    const int rest = minutes ? m_cursor.twoDigits() : 0;
    if (hours < 0 || hours > 23 || rest < 0 || rest > 59) return false;
    const int seconds = hours * 3600 + rest * 60;
    m_fields.utcOffset = sign == '-' ? -seconds : seconds;
    // "+0000 UTC" says it twice.
    const TimeCursor behind = m_cursor;
    m_cursor.blanks();
    if (!m_cursor.word("UTC")) m_cursor = behind;
    return true;
}

} // namespace pellam
