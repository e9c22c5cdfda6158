#include "views/series/RowTimes.h"

#include "base/InternationalSettings.h"
#include "grid/TimeCell.h"

#include <algorithm>

namespace pellam {

namespace {

constexpr Row kSamples = 500;
constexpr double kEnd = 4294967296.0; // one past the last second that a time stamp holds

// Date fields of a packed time cell, above 24 bits of fraction and 17 of time of day.
std::uint64_t packedDay(Cell cell) {
    return cell.payload() >> 41;
}

} // namespace

RowTimes::RowTimes(const GridData& grid, const InternationalSettings& settings) : m_grid(grid) {
    learnPattern(settings);
}

void RowTimes::learnPattern(const InternationalSettings& settings) {
    const Row step = std::max<Row>(1, m_grid.rowCount() / kSamples);
    std::vector<std::string> samples;
    CellBuffer buffer;
    for (Row row = 0; row < m_grid.rowCount(); row += step) {
        const std::string_view text = m_grid.text(0, row, buffer);
        if (!text.empty() && !parseYearFirst(text, m_grid.fractionUnit()))
            samples.emplace_back(text);
    }
    std::ptrdiff_t best = 0;
    for (const char* const pattern :
         {settings.shortDatePattern.c_str(), "d/M/yyyy", "M/d/yyyy", "d MMM yyyy"}) {
        const TimePattern candidate(pattern, settings);
        const auto readable =
            std::count_if(samples.begin(), samples.end(), [&](const std::string& text) {
                return candidate.parse(text, m_grid.fractionUnit()).has_value();
            });
        if (readable <= best) continue;
        best = readable;
        m_patterns.assign(1, candidate);
    }
}

void RowTimes::read(Row first, std::span<double> out) {
    const Column& times = m_grid.column(0);
    for (std::size_t i = 0; i < out.size(); ++i)
        out[i] = moment(times.cell(first + static_cast<Row>(i)));
}

double RowTimes::moment(Cell cell) {
    if (cell.isTime()) return momentOfFields(cell);
    if (!cell.isEmpty()) return momentOfText(cell);
    ++m_empty;
    return kNone;
}

double RowTimes::momentOfFields(Cell cell) {
    const TimeCell::Fields fields = TimeCell::fields(cell);
    const bool sameDay = packedDay(cell) == m_packedDay;
    const std::uint32_t microseconds = m_grid.fractionUnit() == FractionUnit::Microseconds
                                           ? fields.fraction
                                           : fields.microseconds();
    if (!sameDay || fields.hour > 23 || fields.minute > 59 || fields.second > 59) {
        TimeFields plain{fields.year,   fields.month,  fields.day,   fields.hour,
                         fields.minute, fields.second, microseconds, {}};
        const auto stamp = plain.stamp();
        if (!stamp) return unreadable();
        m_packedDay = packedDay(cell);
        m_dayStart = stamp->seconds - fields.hour * 3600 - fields.minute * 60 - fields.second;
    }
    const std::int64_t seconds =
        m_dayStart + fields.hour * 3600 + fields.minute * 60 + fields.second;
    return place({seconds, microseconds, false});
}

double RowTimes::momentOfText(Cell cell) {
    CellBuffer buffer;
    const auto stamp = parse(m_grid.column(0).text(cell, buffer));
    return stamp ? place(*stamp) : unreadable();
}

std::optional<TimeStamp> RowTimes::parse(std::string_view text) const {
    if (auto stamp = parseYearFirst(text, m_grid.fractionUnit())) return stamp;
    return m_patterns.empty() ? std::nullopt
                              : m_patterns.front().parse(text, m_grid.fractionUnit());
}

double RowTimes::place(const TimeStamp& stamp) {
    const double fraction = static_cast<double>(stamp.microseconds) / 1e6;
    const ZoneClock::Moments moments = stamp.utc ? ZoneClock::Moments{stamp.seconds, stamp.seconds}
                                                 : m_clock.moments(stamp.seconds);
    double time = static_cast<double>(moments.earlier) + fraction;
    if (time <= m_previous) time = static_cast<double>(moments.later) + fraction;
    if (!(time >= 0 && time < kEnd)) {
        ++m_outside;
        return kNone;
    }
    m_previous = time;
    return time;
}

double RowTimes::unreadable() {
    ++m_unreadable;
    return kNone;
}

} // namespace pellam
