#include "views/series/RowTimes.h"

namespace pellam {

namespace {

constexpr double kEnd = 4294967296.0; // one past the last second that a time stamp holds

} // namespace

RowTimes::RowTimes(const GridData& grid, const InternationalSettings& settings, ClockChoice clock)
    : m_grid(grid),
      m_column(grid, settings),
      m_dates(m_column.form().kind() != TimeForm::Kind::TimeOfDay &&
              m_column.form().kind() != TimeForm::Kind::Elapsed),
      m_timesOfDay(m_column.form().kind() != TimeForm::Kind::Calendar ||
                   m_column.form().name().find('H') != std::string::npos),
      m_clock(clock) {}

void RowTimes::read(Row first, std::span<double> out) {
    const Column& times = m_grid.column(0);
    for (std::size_t i = 0; i < out.size(); ++i)
        out[i] = moment(times.cell(first + static_cast<Row>(i)));
}

double RowTimes::moment(Cell cell) {
    if (cell.isEmpty()) {
        ++m_empty;
        return kNone;
    }
    const auto moment = m_dates ? m_column.moment(cell) : std::nullopt;
    if (moment) return place(*moment);
    ++m_unreadable;
    return kNone;
}

double RowTimes::place(const TimeMoment& moment) {
    const double fraction = static_cast<double>(moment.nanoseconds / 1000) / 1e6;
    const ZoneClock::Moments moments = moment.utc
                                           ? ZoneClock::Moments{moment.seconds, moment.seconds}
                                           : m_clock.moments(moment.seconds);
    double time = static_cast<double>(moments.earlier) + fraction;
    if (time <= m_previous) time = static_cast<double>(moments.later) + fraction;
    if (!(time >= 0 && time < kEnd)) {
        ++m_outside;
        return kNone;
    }
    m_previous = time;
    return time;
}

} // namespace pellam
