#include "delimited/TimeColumns.h"

#include "base/InternationalSettings.h"
#include "delimited/SampleRecords.h"
#include "delimited/SampleTable.h"
#include "delimited/TimeNames.h"
#include "times/TimeFinder.h"
#include "times/TimeReader.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>
#include <span>

namespace pellam {

namespace {

constexpr std::size_t kRows = 120;        ///< consecutive rows looked at
constexpr std::size_t kTailRows = 60;     ///< and rows of the end
constexpr std::size_t kTimeColumns = 12;  ///< columns of dates and times that are tried
constexpr std::size_t kNumberColumns = 4; ///< columns of numbers that are tried without a name

/// Days of a year before each month.
constexpr std::array<int, 12> kBefore = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};

// One way to read the time of the rows.
struct Candidate {
    TimeColumns time;
    double score = 0;
};

bool hasClock(const TimeForm& form) {
    return form.name().find_first_of("Hh") != std::string::npos;
}

class TimeSearch {
  public:
    TimeSearch(const SampleRecords& head, const SampleRecords& tail, const SampleTable& table,
               const std::vector<std::string>& names, const InternationalSettings& settings)
        : m_head(head),
          m_tail(tail),
          m_table(table),
          m_names(names),
          m_settings(settings) {
        for (std::size_t i = table.first; i < table.end && m_rows.size() < kRows; ++i) {
            if (!head[i].blank) m_rows.push_back(head.fields(i));
        }
        m_consecutive = m_rows.size();
        const std::size_t from = tail.size() > kTailRows ? tail.size() - kTailRows : 0;
        for (std::size_t i = from; i < tail.size(); ++i) {
            if (tail[i].fields == table.columns && tail[i].readings > 0)
                m_rows.push_back(tail.fields(i));
        }
        if (tail.size() == 0 && table.end > kTailRows + table.first) {
            for (std::size_t i = std::max(table.first + m_consecutive, table.end - kTailRows);
                 i < table.end; ++i) {
                if (!head[i].blank) m_rows.push_back(head.fields(i));
            }
        }
    }

    TimeColumns run() {
        if (m_rows.empty()) return {};
        tryTexts();
        tryPairs();
        tryNamedParts();
        tryUnnamedParts();
        tryNumbers();
        tryElapsed();
        const auto best = std::max_element(
            m_candidates.begin(), m_candidates.end(),
            [](const Candidate& a, const Candidate& b) { return a.score < b.score; });
        return best == m_candidates.end() ? TimeColumns() : best->time;
    }

    [[nodiscard]] TimeColumns of(const std::vector<std::size_t>& columns,
                                 const std::string& formName) const {
        TimeColumns time;
        time.columns = columns;
        if (columns.empty()) return time;
        const std::vector<std::string> joined = texts(columns, -1);
        const TimeFinding finding = find(joined);
        time.form = TimeForm::parse(formName).value_or(finding.form);
        const bool calendar = time.form.kind() == TimeForm::Kind::Calendar;
        const bool numbers = std::all_of(columns.begin(), columns.end(), [&](std::size_t column) {
            return m_table.kind(column) == FieldKind::Number;
        });
        time.parts = time.form.kind() == TimeForm::Kind::Epoch || (calendar && numbers);
        if (formName.empty()) time.guessed = finding.ambiguous();
        time.other = finding.other;
        return time;
    }

  private:
    [[nodiscard]] std::string_view name(std::size_t column) const {
        return column < m_names.size() ? std::string_view(m_names[column]) : std::string_view();
    }

    [[nodiscard]] static std::string_view textAt(std::span<const SampleField> row,
                                                 std::size_t column) {
        return column < row.size() ? row[column].text : std::string_view();
    }

    // The joined texts of all rows looked at.
    [[nodiscard]] std::vector<std::string> texts(const std::vector<std::size_t>& columns,
                                                 int padded) const {
        std::vector<std::string> joined;
        joined.reserve(m_rows.size());
        std::vector<std::string_view> parts(columns.size());
        for (const auto& row : m_rows) {
            for (std::size_t i = 0; i < columns.size(); ++i)
                parts[i] = textAt(row, columns[i]);
            joined.push_back(joinedTime(parts, padded));
        }
        return joined;
    }

    TimeFinding find(const std::vector<std::string>& texts) const {
        const std::vector<std::string_view> views(texts.begin(), texts.end());
        return findTimeForm(views, m_settings);
    }

    // How well the moments of consecutive rows follow each other, 0 to 1: they rise, most of them
    // by the same step.
    [[nodiscard]] double order(const std::vector<std::string>& texts, const TimeForm& form) const {
        const TimeReader reader(form, m_settings);
        std::optional<double> before;
        std::vector<double> steps;
        for (std::size_t i = 0; i < m_consecutive; ++i) {
            const auto moment = reader.read(texts[i]);
            if (!moment) continue;
            if (before) steps.push_back(secondsOf(*moment) - *before);
            before = secondsOf(*moment);
        }
        if (steps.empty()) return 1;
        std::vector<double> sorted = steps;
        const auto middle = sorted.begin() + static_cast<std::ptrdiff_t>(sorted.size() / 2);
        std::nth_element(sorted.begin(), middle, sorted.end());
        const auto rising = std::count_if(steps.begin(), steps.end(), [](double s) { return s > 0; });
        const auto even = std::count_if(steps.begin(), steps.end(), [&](double s) {
            return std::abs(s - *middle) <= 0.01 * std::abs(*middle);
        });
        return (0.8 * static_cast<double>(rising) + 0.2 * static_cast<double>(even)) /
               static_cast<double>(steps.size());
    }

    void add(TimeColumns time, const std::vector<std::string>& texts, double base) {
        double score = base + 0.3 * order(texts, time.form);
        const bool named = std::any_of(time.columns.begin(), time.columns.end(),
                                       [&](std::size_t c) { return namesTime(name(c)); });
        if (named) score += 0.1;
        // The first of several times is the row's.
        score -= 0.002 * static_cast<double>(std::min<std::size_t>(time.columns.front(), 20));
        m_candidates.push_back({std::move(time), score});
    }

    // Where the values leave the order of day and month open, the heading, points ("3.9.2021") or
    // AM and PM tell what people there write.
    void settle(TimeFinding& finding, std::size_t column, const std::string& sample) const {
        if (!finding.ambiguous() || !finding.other) return;
        std::string heading(name(column));
        std::transform(heading.begin(), heading.end(), heading.begin(),
                       [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
        const bool byLocale = finding.order == TimeFinding::Order::Locale;
        const bool points = sample.find('.') < sample.find(' ');
        bool monthFirst = byLocale && (sample.ends_with('M') || sample.ends_with('m')) && !points;
        bool dayFirst = byLocale && points;
        for (const char mark : {'/', '-', '.'}) {
            if (heading.find(std::string("mm") + mark + "dd") != std::string::npos)
                monthFirst = true;
            if (heading.find(std::string("dd") + mark + "mm") != std::string::npos) dayFirst = true;
        }
        const bool isMonthFirst = finding.form.name().starts_with('M');
        const bool isDayFirst = finding.form.name().starts_with('d');
        const bool swap = (monthFirst && isDayFirst && finding.other.name().starts_with('M')) ||
                          (dayFirst && isMonthFirst && finding.other.name().starts_with('d'));
        if (swap) std::swap(finding.form, finding.other);
    }

    void addFound(std::vector<std::size_t> columns, double base) {
        const std::vector<std::string> joined = texts(columns, -1);
        TimeFinding finding = find(joined);
        settle(finding, columns.front(), joined.front());
        if (!finding.form || finding.read * 10 < finding.samples * 8) return;
        const bool interval = isInterval(columns.front());
        TimeColumns time{std::move(columns),  finding.form, interval, -1,
                         finding.ambiguous(), finding.other};
        add(std::move(time), joined, base);
    }

    [[nodiscard]] bool isInterval(std::size_t column) const {
        const std::string_view text = textAt(m_rows.front(), column);
        return intervalStart(text).size() < text.size();
    }

    void tryTexts() {
        for (std::size_t column = 0; column < m_table.kinds.size() && m_texts.size() < kTimeColumns;
             ++column) {
            if (m_table.kind(column) != FieldKind::Time) continue;
            const std::vector<std::string> joined = texts({column}, -1);
            TimeFinding finding = find(joined);
            settle(finding, column, joined.front());
            if (!finding.form || finding.read * 10 < finding.samples * 8) continue;
            m_texts.push_back({column, finding.form});
            double base = 0.4;
            if (finding.form.kind() == TimeForm::Kind::Calendar)
                base = hasClock(finding.form) ? 1.0 : 0.6;
            add({{column},
                 finding.form,
                 isInterval(column),
                 -1,
                 finding.ambiguous(),
                 finding.other},
                joined, base);
        }
    }

    // Date and time of day in two columns, wherever they stand.
    void tryPairs() {
        for (const auto& [date, dateForm] : m_texts) {
            if (dateForm.kind() != TimeForm::Kind::Calendar || hasClock(dateForm)) continue;
            for (const auto& [clock, clockForm] : m_texts) {
                const bool ofDay = clockForm.kind() == TimeForm::Kind::TimeOfDay ||
                                   clockForm.name() == "elapsed-clock";
                if (ofDay) addFound({date, clock}, clock > date ? 0.98 : 0.96);
            }
            tryClockNumber(date, dateForm);
            tryPointClock(date, dateForm);
        }
        // Dates in digits alone: 20170408 and a column of hours and minutes.
        for (std::size_t column = 0; column < std::min<std::size_t>(4, m_table.kinds.size());
             ++column) {
            if (m_table.kind(column) != FieldKind::Number) continue;
            const auto joined = texts({column}, -1);
            if (joined.empty() || joined.front().size() != 8) continue;
            const TimeFinding finding = find(joined);
            if (!finding.convincing() || finding.form.kind() != TimeForm::Kind::Calendar) continue;
            tryClockNumber(column, finding.form);
            for (const auto& [clock, clockForm] : m_texts) {
                if (clockForm.kind() == TimeForm::Kind::TimeOfDay) addFound({column, clock}, 1.0);
            }
        }
    }

    // "18.00.00" behind a date.
    void tryPointClock(std::size_t date, const TimeForm& dateForm) {
        const std::size_t clock = date + 1;
        const auto isClock = [&](const auto& row) {
            const std::string_view text = textAt(row, clock);
            return text.empty() || (text.size() == 8 && text[2] == '.' && text[5] == '.' &&
                                    text[0] < '3' && text[3] < '6' && text[6] < '6');
        };
        if (!std::all_of(m_rows.begin(), m_rows.end(), isClock)) return;
        const auto form = TimeForm::parse(dateForm.name() + " HH.mm.ss");
        if (form) addParts({{date, clock}, *form, false, -1, false, {}}, 1.0);
    }

    // Hours, or hours and minutes as one number, in the column behind a date.
    void tryClockNumber(std::size_t date, const TimeForm& dateForm) {
        const std::size_t clock = date + 1;
        if (m_table.kind(clock) != FieldKind::Number) return;
        const auto [least, most] = range(clock);
        if (!(least >= 0) || most > 2400) return;
        const TimePart part = timePartOf(name(clock));
        const bool hours = most <= 24 && part == TimePart::Hour;
        const bool minutes =
            most > 60 && minutesFit(clock) &&
            (part == TimePart::HourMinute || namesTime(name(clock)) || m_names.empty());
        if (!hours && !minutes) return;
        const auto form = TimeForm::parse(dateForm.name() + (hours ? " H" : " HHmm"));
        if (form) addParts({{date, clock}, *form, true, minutes ? 1 : -1, false, {}}, 1.0);
    }

    [[nodiscard]] std::pair<double, double> range(std::size_t column) const {
        double least = NAN;
        double most = NAN;
        for (const auto& row : m_rows) {
            const std::string_view text = textAt(row, column);
            double value = 0;
            const auto [end, error] =
                std::from_chars(text.data(), text.data() + text.size(), value);
            if (error != std::errc() || end != text.data() + text.size() ||
                value != std::floor(value))
                return {NAN, NAN};
            if (!(least <= value)) least = value;
            if (!(most >= value)) most = value;
        }
        return {least, most};
    }

    [[nodiscard]] bool minutesFit(std::size_t column) const {
        return std::all_of(m_rows.begin(), m_rows.end(), [&](const auto& row) {
            int value = 0;
            const std::string_view text = textAt(row, column);
            std::from_chars(text.data(), text.data() + text.size(), value);
            return value % 100 < 60;
        });
    }

    bool addParts(TimeColumns time, double base) {
        const std::vector<std::string> joined = texts(time.columns, time.padded);
        const TimeReader reader(time.form, m_settings);
        const auto read = static_cast<std::size_t>(
            std::count_if(joined.begin(), joined.end(),
                          [&](const std::string& text) { return reader.read(text).has_value(); }));
        if (read * 10 < joined.size() * 9) return false;
        add(std::move(time), joined, base);
        return true;
    }

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
        addParts(std::move(time), base);
    }

    void tryNamedParts() {
        std::array<std::size_t, 9> columns{};
        columns.fill(kNone);
        const std::size_t count = std::min<std::size_t>(m_names.size(), 40);
        for (std::size_t column = 0; column < count; ++column) {
            if (!isNumber(m_table.kind(column))) continue;
            auto part = timePartOf(name(column));
            // "MM" names months, and behind hours minutes.
            if (name(column) == "MM" || name(column) == "mm") {
                part = columns[index(TimePart::Hour)] != kNone ? TimePart::Minute : TimePart::Month;
            }
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

    // A column behind the date that is named for a time and holds hours and minutes: "MST", 1530.
    void tryClockBehind(std::vector<std::pair<TimePart, std::size_t>> parts) {
        const std::size_t clock = parts.back().second + 1;
        if (m_table.kind(clock) != FieldKind::Number || !namesTime(name(clock))) {
            return tryTextClock(parts);
        }
        const auto [least, most] = range(clock);
        if (!(least >= 0) || most > 2400 || !minutesFit(clock)) return;
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
            addParts(time, 0.97);
            return;
        }
    }

    // Without headings the values must tell: a year in front, and an order that makes them rise.
    void tryUnnamedParts() {
        using enum TimePart;
        if (!m_names.empty() && namesAnyTime()) return;
        std::size_t year = kNone;
        for (std::size_t column = 0; column < 3 && year == kNone; ++column) {
            if (m_table.kind(column) != FieldKind::Number) continue;
            const auto [least, most] = range(column);
            if (least >= 1900 && most <= 2100) year = column;
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
            std::vector<std::pair<TimePart, std::size_t>> parts = {{Year, year}};
            bool fits = true;
            for (std::size_t i = 0; i < order.size() && fits; ++i) {
                const std::size_t column = year + 1 + i;
                const auto [least, most] = range(column);
                const auto [low, high] = limitsOf(order[i]);
                fits = least >= low && most <= high;
                if (order[i] == HourMinute) fits = fits && most > 60 && minutesFit(column);
                const bool passed =
                    order[i] == DayOfYear && i + 1 < order.size() && order[i + 1] == Month;
                if (!passed) parts.emplace_back(order[i], column);
            }
            const bool dayTwice = order[0] == DayOfYear && order.size() > 1 && order[1] == Month;
            if (dayTwice) fits = fits && daysAgree(year);
            if (fits) tryParts(parts, dayTwice ? base + 0.1 : base);
            base -= 0.01;
        }
    }

    // Whether year, day of the year, month and day stand side by side and name one day.
    [[nodiscard]] bool daysAgree(std::size_t year) const {
        return std::all_of(m_rows.begin(), m_rows.end(), [&](const auto& row) {
            std::array<int, 4> part{};
            for (std::size_t i = 0; i < part.size(); ++i) {
                const std::string_view text = textAt(row, year + i);
                std::from_chars(text.data(), text.data() + text.size(), part[i]);
            }
            const auto [y, dayOfYear, month, day] = part;
            if (month < 1 || month > 12) return false;
            const bool leap = (y % 4 == 0 && y % 100 != 0) || y % 400 == 0;
            return dayOfYear ==
                   kBefore[static_cast<std::size_t>(month - 1)] + day + (leap && month > 2 ? 1 : 0);
        });
    }

    [[nodiscard]] bool namesAnyTime() const {
        return std::any_of(m_names.begin(), m_names.end(), [](const std::string& n) {
            return namesTime(n) || timePartOf(n) != TimePart::None;
        });
    }

    // Dates and epochs written as one number, and years with decimals.
    void tryNumbers() {
        std::size_t unnamed = 0;
        for (std::size_t column = 0; column < m_table.kinds.size(); ++column) {
            if (!isNumber(m_table.kind(column))) continue;
            const bool named = namesTime(name(column));
            const bool year = timePartOf(name(column)) == TimePart::Year;
            if (!named && !year && ++unnamed > kNumberColumns) continue;
            if (namesCount(name(column)) && !named) continue;
            const auto joined = texts({column}, -1);
            const TimeFinding finding = find(joined);
            if (!finding.convincing()) continue;
            double base = named ? 0.75 : 0.55;
            if (finding.form.kind() == TimeForm::Kind::DecimalYear) {
                if (!named && !year && !m_names.empty()) continue;
                base = 0.2;
            }
            const bool epoch = finding.form.kind() == TimeForm::Kind::Epoch;
            const bool date = finding.form.kind() == TimeForm::Kind::Calendar;
            if (!epoch && !date && finding.form.kind() != TimeForm::Kind::DecimalYear) continue;
            add({{column}, finding.form, epoch || date, -1, false, {}}, joined, base);
        }
    }

    // Time since the start: a heading says so, or numbers that rise by small even steps.
    void tryElapsed() {
        for (std::size_t column = 0; column < std::min<std::size_t>(m_table.kinds.size(), 60);
             ++column) {
            if (!isNumber(m_table.kind(column)) || namesCount(name(column))) continue;
            const std::string_view unit = elapsedUnitOf(name(column));
            const bool named = namesTime(name(column));
            const bool counted = column == 0 ? rises(column) : risesEvenly(column);
            const bool even = !named && ((unnamed(column) && risesEvenly(column)) ||
                                         (isShortUnit(unit) && counted));
            if (!(named && rises(column)) && !even) continue;
            const auto form = TimeForm::parse("elapsed-" + std::string(unit.empty() ? "s" : unit));
            if (form) add({{column}, *form, false, -1, false, {}}, texts({column}, -1), 0.1);
            return;
        }
    }

    static bool isShortUnit(std::string_view unit) {
        return unit == "s" || unit == "ms" || unit == "us" || unit == "ns";
    }

    [[nodiscard]] bool unnamed(std::size_t column) const {
        return m_names.empty() || name(column).empty();
    }

    [[nodiscard]] std::vector<double> values(std::size_t column) const {
        std::vector<double> numbers;
        for (std::size_t i = 0; i < m_consecutive; ++i) {
            std::string text(textAt(m_rows[i], column));
            std::replace(text.begin(), text.end(), ',', '.');
            const char* begin = text.data() + (text.starts_with('+') ? 1 : 0);
            double value = 0;
            const auto [end, error] = std::from_chars(begin, text.data() + text.size(), value);
            if (error == std::errc() && end != begin) numbers.push_back(value);
        }
        return numbers;
    }

    [[nodiscard]] bool rises(std::size_t column) const {
        const std::vector<double> numbers = values(column);
        std::size_t up = 0;
        for (std::size_t i = 1; i < numbers.size(); ++i)
            up += numbers[i] >= numbers[i - 1];
        return numbers.size() < 2 || (up + 1) * 10 >= numbers.size() * 8;
    }

    // A count of rows rises evenly, too, but by whole steps.
    [[nodiscard]] bool risesEvenly(std::size_t column) const {
        const std::vector<double> numbers = values(column);
        if (numbers.size() < 4) return false;
        const double step =
            (numbers.back() - numbers.front()) / static_cast<double>(numbers.size() - 1);
        if (!(step > 0) || step == std::floor(step)) return false;
        for (std::size_t i = 1; i < numbers.size(); ++i) {
            const double here = numbers[i] - numbers[i - 1];
            if (here < 0.5 * step || here > 1.5 * step) return false;
        }
        return true;
    }

    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    static std::size_t index(TimePart part) { return static_cast<std::size_t>(part); }

    const SampleRecords& m_head;
    const SampleRecords& m_tail;
    const SampleTable& m_table;
    const std::vector<std::string>& m_names;
    const InternationalSettings& m_settings;
    std::vector<std::span<const SampleField>> m_rows;
    std::size_t m_consecutive = 0;                         ///< of them, from the first
    std::vector<std::pair<std::size_t, TimeForm>> m_texts; ///< columns of dates and times
    std::vector<Candidate> m_candidates;
};

} // namespace

TimeColumns findTimeColumns(const SampleRecords& head, const SampleRecords& tail,
                            const SampleTable& table, const std::vector<std::string>& names,
                            const InternationalSettings& settings) {
    return TimeSearch(head, tail, table, names, settings).run();
}

TimeColumns timeOfColumns(const SampleRecords& head, const SampleRecords& tail,
                          const SampleTable& table, const std::vector<std::string>& names,
                          const InternationalSettings& settings,
                          const std::vector<std::size_t>& columns, const std::string& form) {
    return TimeSearch(head, tail, table, names, settings).of(columns, form);
}

std::string joinedTime(const std::vector<std::string_view>& texts, int padded) {
    std::string joined;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (i > 0) joined += ' ';
        if (static_cast<int>(i) == padded && texts[i].size() < 4)
            joined.append(4 - texts[i].size(), '0');
        joined += intervalStart(texts[i]);
    }
    return joined;
}

std::string_view intervalStart(std::string_view text) {
    constexpr std::size_t kShortest = 10; // of a date
    for (const std::string_view mark : {" - ", "--", "/"}) {
        const std::size_t at = text.find(mark, kShortest);
        if (at != std::string_view::npos && text.size() > at + kShortest) return text.substr(0, at);
    }
    return text;
}

} // namespace pellam
