#include "delimited/time/TimeCandidates.h"
#include "delimited/time/TimeNames.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

namespace pellam {

namespace {

class PartSearch {
  public:
    PartSearch(TimeCandidates& candidates, const TimeTexts& texts)
        : m_candidates(candidates),
          m_rows(candidates.rows()),
          m_texts(texts) {}

    void run() {
        tryNamedParts();
        tryUnnamedParts();
    }

  private:
    static std::string_view patternOf(TimePart part) {
        switch (part) {
        case TimePart::Year:
            return "yyyy";
        case TimePart::Month:
            return "M";
        case TimePart::Day:
            return "d";
        case TimePart::DayOfYear:
            return "DDD";
        case TimePart::Hour:
            return "H";
        case TimePart::Minute:
            return "m";
        case TimePart::Second:
            return "s";
        case TimePart::HourMinute:
            return "HHmm";
        case TimePart::None:
            break;
        }
        return {};
    }

    static std::pair<int, int> limitsOf(TimePart part) {
        switch (part) {
        case TimePart::Month:
            return {1, 12};
        case TimePart::Day:
            return {1, 31};
        case TimePart::DayOfYear:
            return {1, 366};
        case TimePart::Hour:
            return {0, 24};
        case TimePart::HourMinute:
            return {0, 2400};
        default:
            return {0, 59};
        }
    }

    // Joins the parts in the order year, month, day, hour, minute, second.
    void tryParts(const std::vector<std::pair<TimePart, std::size_t>>& parts, double base) {
        TimeColumns time;
        time.parts = true;
        std::string pattern;
        for (const auto& [part, column] : parts) {
            if (!pattern.empty())
                pattern += part == TimePart::Minute || part == TimePart::Second ? ':' : ' ';
            pattern += patternOf(part);
            if (part == TimePart::HourMinute) time.padded = static_cast<int>(time.columns.size());
            time.columns.push_back(column);
        }
        std::replace(pattern.begin(), pattern.end(), ':', ' ');
        const auto form = TimeForm::parse(pattern);
        if (!form) return;
        time.form = *form;
        m_candidates.addRead(std::move(time), base);
    }

    void tryNamedParts() {
        std::array<std::size_t, 9> columns{};
        columns.fill(kNone);
        const std::size_t count =
            std::min<std::size_t>(m_rows.hasNames() ? m_rows.columns() : 0, 40);
        for (std::size_t column = 0; column < count; ++column) {
            auto part = timePartOf(m_rows.name(column));
            const bool word = part == TimePart::Month && m_rows.kind(column) == FieldKind::Text;
            if (!isNumber(m_rows.kind(column)) && !word) continue;
            // "MM" names months, and behind hours minutes.
            if (m_rows.name(column) == "MM" || m_rows.name(column) == "mm") {
                part = columns[index(TimePart::Hour)] != kNone ? TimePart::Minute : TimePart::Month;
            }
            if (part == TimePart::None) part = partOfLetter(column, columns);
            if (part != TimePart::None && columns[index(part)] == kNone)
                columns[index(part)] = column;
        }
        if (columns[index(TimePart::Year)] == kNone) return;
        std::vector<std::pair<TimePart, std::size_t>> parts;
        const auto take = [&](TimePart part) {
            if (columns[index(part)] != kNone) parts.emplace_back(part, columns[index(part)]);
        };
        take(TimePart::Year);
        const bool date =
            columns[index(TimePart::Month)] != kNone && columns[index(TimePart::Day)] != kNone;
        if (date) {
            take(TimePart::Month);
            take(TimePart::Day);
        } else if (columns[index(TimePart::DayOfYear)] != kNone) {
            take(TimePart::DayOfYear);
        } else {
            take(TimePart::Month);
            if (parts.size() == 2) tryParts(parts, 0.6);
            return;
        }
        if (columns[index(TimePart::Hour)] != kNone) {
            take(TimePart::Hour);
            take(TimePart::Minute);
            if (columns[index(TimePart::Minute)] != kNone) take(TimePart::Second);
        } else if (columns[index(TimePart::HourMinute)] != kNone) {
            take(TimePart::HourMinute);
        } else {
            tryClockBehind(parts);
        }
        tryParts(parts, 0.95);
    }

    // "m" and "d" directly behind the year.
    [[nodiscard]] TimePart partOfLetter(std::size_t column,
                                        const std::array<std::size_t, 9>& columns) const {
        const std::string_view name = m_rows.name(column);
        const auto follows = [&](TimePart part) {
            return column > 0 && columns[index(part)] == column - 1;
        };
        if ((name == "m" || name == "M") && follows(TimePart::Year)) return TimePart::Month;
        if ((name == "d" || name == "D") && follows(TimePart::Month)) return TimePart::Day;
        return TimePart::None;
    }

    // A column behind the date that is named for a time and holds hours and minutes: "MST", 1530.
    void tryClockBehind(std::vector<std::pair<TimePart, std::size_t>> parts) {
        const std::size_t clock = parts.back().second + 1;
        if (m_rows.kind(clock) != FieldKind::Number || !namesTime(m_rows.name(clock))) {
            return tryTextClock(parts);
        }
        const auto [least, most] = m_rows.range(clock);
        if (!(least >= 0) || most > 2400 || !m_rows.minutesFit(clock)) return;
        parts.emplace_back(most > 24 ? TimePart::HourMinute : TimePart::Hour, clock);
        tryParts(parts, 0.97);
    }

    // A time of day as a text behind the parts of a date.
    void tryTextClock(const std::vector<std::pair<TimePart, std::size_t>>& parts) {
        std::string pattern;
        TimeColumns time;
        time.parts = true;
        for (const auto& [part, column] : parts) {
            pattern += std::string(patternOf(part)) + ' ';
            time.columns.push_back(column);
        }
        for (const auto& [clock, form] : m_texts) {
            if (form.kind() != TimeForm::Kind::TimeOfDay) continue;
            const auto joined = TimeForm::parse(pattern + form.name());
            if (!joined) continue;
            time.columns.push_back(clock);
            time.form = *joined;
            m_candidates.addRead(time, 0.97);
            return;
        }
    }

    // Without headings the values must tell: a year in front, and an order that makes them rise.
    void tryUnnamedParts() {
        using enum TimePart;
        if (namesAnyTime()) return;
        std::size_t year = kNone;
        for (std::size_t column = 0; column < 3 && year == kNone; ++column) {
            if (m_rows.kind(column) != FieldKind::Number) continue;
            const auto [least, most] = m_rows.range(column);
            if (least >= 1750 && most <= 2100) year = column;
        }
        if (year == kNone) return;
        static const std::vector<std::vector<TimePart>> kOrders = {
            {Month, Day, Hour, Minute, Second},
            {Month, Day, Hour, Minute},
            {DayOfYear, Month, Day, Hour, Minute},
            {Month, Day, HourMinute},
            {Month, Day, Hour},
            {DayOfYear, Hour, Minute},
            {DayOfYear, HourMinute},
            {DayOfYear, Hour},
            {Month, Day}};
        double base = 0.95;
        for (const auto& order : kOrders) {
            tryOrder({{Year, year}}, order, year + 1, base);
            base -= 0.01;
        }
        if (year != 2) return;
        for (const auto& order :
             {std::vector{Hour, Minute, Second}, {Hour, Minute}, {HourMinute}, {Hour}, {}}) {
            for (const std::size_t month : {0U, 1U}) {
                if (fits(Month, month) && fits(Day, 1 - month))
                    tryOrder({{Year, 2}, {Month, month}, {Day, 1 - month}}, order, 3, base);
            }
            base -= 0.01;
        }
    }

    [[nodiscard]] bool fits(TimePart part, std::size_t column) const {
        const auto [least, most] = m_rows.range(column);
        const auto [low, high] = limitsOf(part);
        return least >= low && most <= high &&
               (part != TimePart::HourMinute || (most > 60 && m_rows.minutesFit(column)));
    }

    // The parts that are known, and more of them in the columns from a given one on.
    void tryOrder(std::vector<std::pair<TimePart, std::size_t>> parts,
                  const std::vector<TimePart>& order, std::size_t column, double base) {
        using enum TimePart;
        const bool dayTwice = order.size() > 1 && order[0] == DayOfYear && order[1] == Month;
        if (dayTwice && !m_rows.daysAgree(column - 1)) return;
        for (std::size_t i = 0; i < order.size(); ++i) {
            if (!fits(order[i], column + i)) return;
            if (!dayTwice || i > 0) parts.emplace_back(order[i], column + i);
        }
        tryParts(parts, dayTwice ? base + 0.1 : base);
    }

    [[nodiscard]] bool namesAnyTime() const {
        for (std::size_t column = 0; column < m_rows.columns(); ++column) {
            const std::string_view name = m_rows.name(column);
            if (namesTime(name) || timePartOf(name) != TimePart::None) return true;
        }
        return false;
    }

    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    static std::size_t index(TimePart part) { return static_cast<std::size_t>(part); }

    TimeCandidates& m_candidates;
    const TimeRows& m_rows;
    const TimeTexts& m_texts;
};

} // namespace

void addParts(TimeCandidates& candidates, const TimeTexts& texts) {
    PartSearch(candidates, texts).run();
}

} // namespace pellam
