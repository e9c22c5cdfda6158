#include "trend/ticks/CalendarSteps.h"

#include <algorithm>
#include <chrono>
#include <cmath>

namespace pellam {
namespace {

using Unit = CalendarUnit;
constexpr std::int64_t daySeconds = 86400;
constexpr double mostMarks = 4000;

constexpr CalendarStep steps[] = {
    {Unit::Microsecond, 1, Unit::Microsecond, 0},
    {Unit::Microsecond, 2, Unit::Microsecond, 1},
    {Unit::Microsecond, 5, Unit::Microsecond, 1},
    {Unit::Microsecond, 10, Unit::Microsecond, 2},
    {Unit::Microsecond, 20, Unit::Microsecond, 5},
    {Unit::Microsecond, 50, Unit::Microsecond, 10},
    {Unit::Microsecond, 100, Unit::Microsecond, 20},
    {Unit::Microsecond, 200, Unit::Microsecond, 50},
    {Unit::Microsecond, 500, Unit::Microsecond, 100},
    {Unit::Microsecond, 1000, Unit::Microsecond, 200},
    {Unit::Microsecond, 2000, Unit::Microsecond, 500},
    {Unit::Microsecond, 5000, Unit::Microsecond, 1000},
    {Unit::Microsecond, 10000, Unit::Microsecond, 2000},
    {Unit::Microsecond, 20000, Unit::Microsecond, 5000},
    {Unit::Microsecond, 50000, Unit::Microsecond, 10000},
    {Unit::Microsecond, 100000, Unit::Microsecond, 20000},
    {Unit::Microsecond, 200000, Unit::Microsecond, 50000},
    {Unit::Microsecond, 500000, Unit::Microsecond, 100000},
    {Unit::Second, 1, Unit::Microsecond, 200000},
    {Unit::Second, 2, Unit::Microsecond, 500000},
    {Unit::Second, 5, Unit::Second, 1},
    {Unit::Second, 10, Unit::Second, 2},
    {Unit::Second, 15, Unit::Second, 5},
    {Unit::Second, 30, Unit::Second, 10},
    {Unit::Second, 60, Unit::Second, 15},
    {Unit::Second, 120, Unit::Second, 30},
    {Unit::Second, 300, Unit::Second, 60},
    {Unit::Second, 600, Unit::Second, 120},
    {Unit::Second, 900, Unit::Second, 300},
    {Unit::Second, 1800, Unit::Second, 600},
    {Unit::Second, 3600, Unit::Second, 900},
    {Unit::Second, 7200, Unit::Second, 1800},
    {Unit::Second, 10800, Unit::Second, 3600},
    {Unit::Second, 21600, Unit::Second, 3600},
    {Unit::Second, 43200, Unit::Second, 10800},
    {Unit::Day, 1, Unit::Second, 21600},
    {Unit::Day, 2, Unit::Second, 43200},
    {Unit::Day, 3, Unit::Day, 1},
    {Unit::Day, 4, Unit::Day, 1},
    {Unit::Day, 5, Unit::Day, 1},
    {Unit::Day, 7, Unit::Day, 1},
    {Unit::Day, 14, Unit::Day, 7},
    {Unit::Month, 1, Unit::Month, 0},
    {Unit::Month, 2, Unit::Month, 1},
    {Unit::Month, 3, Unit::Month, 1},
    {Unit::Month, 6, Unit::Month, 1},
    {Unit::Year, 1, Unit::Month, 3},
    {Unit::Year, 2, Unit::Month, 6},
    {Unit::Year, 5, Unit::Year, 1},
    {Unit::Year, 10, Unit::Year, 2},
    {Unit::Year, 20, Unit::Year, 5},
    {Unit::Year, 50, Unit::Year, 10},
    {Unit::Year, 100, Unit::Year, 20},
    {Unit::Year, 200, Unit::Year, 50},
    {Unit::Year, 500, Unit::Year, 100},
    {Unit::Year, 1000, Unit::Year, 200},
};

double unitSeconds(Unit unit) {
    switch (unit) {
    case Unit::Microsecond:
        return 1e-6;
    case Unit::Second:
        return 1;
    case Unit::Day:
        return daySeconds;
    case Unit::Month:
        return 30.436875 * daySeconds;
    case Unit::Year:
        return 365.2425 * daySeconds;
    }
    return 1;
}

// The moment of a local time; where the clock jumps over it, the jump.
double moment(double local, const std::vector<ZoneStretch>& stretches) {
    for (const ZoneStretch& stretch : stretches) {
        const double utc = local - static_cast<double>(stretch.offset);
        if (utc < stretch.from && &stretch != &stretches.front()) return stretch.from;
        if (utc < stretch.to) return utc;
    }
    return local - static_cast<double>(stretches.back().offset);
}

// Whole seconds are taken off first: a double near today's has too few digits to count
// microseconds.
void addFractions(std::vector<double>& marks, std::int64_t count, double from, double to) {
    const double base = std::floor(from);
    const double step = static_cast<double>(count);
    for (double k = std::ceil((from - base) * 1e6 / step - 1e-3);; ++k) {
        const double mark = base + k * step * 1e-6;
        if (mark > to) break;
        if (mark >= from) marks.push_back(mark);
    }
}

void addSeconds(std::vector<double>& marks, std::int64_t count, double from, double to,
                const std::vector<ZoneStretch>& stretches) {
    const double step = static_cast<double>(count);
    for (const ZoneStretch& stretch : stretches) {
        const double offset = static_cast<double>(stretch.offset);
        const double end = std::min(to, stretch.to);
        double local = std::ceil((std::max(from, stretch.from) + offset) / step) * step;
        for (; local - offset <= end; local += step)
            if (local - offset < stretch.to) marks.push_back(local - offset);
    }
}

void addDays(std::vector<double>& marks, std::int64_t count, double from, double to,
             const std::vector<ZoneStretch>& stretches) {
    constexpr double day = daySeconds;
    const std::int64_t monday = count % 7 == 0 ? 4 : 0; // 1970-01-01 was a Thursday
    const double step = static_cast<double>(count);
    const double first = std::floor((from / day - 2 - static_cast<double>(monday)) / step);
    for (double k = first;; ++k) {
        const double mark = moment((k * step + static_cast<double>(monday)) * day, stretches);
        if (mark > to) break;
        if (mark >= from) marks.push_back(mark);
    }
}

void addMonths(std::vector<double>& marks, std::int64_t count, double from, double to,
               const std::vector<ZoneStretch>& stretches) {
    using namespace std::chrono;
    const auto month =
        static_cast<std::int64_t>(std::floor(from / unitSeconds(Unit::Month))) + 1970 * 12;
    for (std::int64_t k = (month - 2) / count;; ++k) {
        const std::int64_t index = k * count;
        const sys_days start = year_month_day(year(static_cast<int>(index / 12)),
                                              std::chrono::month(unsigned(index % 12) + 1), day(1));
        const double local = static_cast<double>(start.time_since_epoch().count() * daySeconds);
        const double mark = moment(local, stretches);
        if (mark > to) break;
        if (mark >= from) marks.push_back(mark);
    }
}

} // namespace

double CalendarStep::seconds() const {
    return static_cast<double>(count) * unitSeconds(unit);
}

CalendarStep calendarStep(double span, int labels) {
    const double wanted = span / std::max(1, labels);
    for (const CalendarStep& step : steps)
        if (step.seconds() >= wanted * (1 - 1e-9)) return step;
    return steps[std::size(steps) - 1];
}

std::vector<double> calendarMarks(CalendarUnit unit, std::int64_t count, double from, double to,
                                  const std::vector<ZoneStretch>& stretches) {
    std::vector<double> marks;
    const double expected = (to - from) / (static_cast<double>(count) * unitSeconds(unit));
    if (count <= 0 || stretches.empty() || !(expected < mostMarks)) return marks;
    switch (unit) {
    case Unit::Microsecond:
        addFractions(marks, count, from, to);
        break;
    case Unit::Second:
        addSeconds(marks, count, from, to, stretches);
        break;
    case Unit::Day:
        addDays(marks, count, from, to, stretches);
        break;
    case Unit::Month:
        addMonths(marks, count, from, to, stretches);
        break;
    case Unit::Year:
        addMonths(marks, count * 12, from, to, stretches);
        break;
    }
    return marks;
}

} // namespace pellam
