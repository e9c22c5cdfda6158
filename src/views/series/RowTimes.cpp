#include "views/series/RowTimes.h"

#include "times/TimeUnit.h"

#include <cmath>
#include <numeric>

namespace pellam {

namespace {

constexpr double kEnd = 4294967296.0; // one past the last second that a time stamp holds
constexpr double kDay = 86400;

XAxis::Kind kindOf(const GridData& grid, const TimeForm& form) {
    if (!grid.hasTimes()) return XAxis::Kind::Rows;
    const bool elapsed =
        form.kind() == TimeForm::Kind::TimeOfDay || form.kind() == TimeForm::Kind::Elapsed;
    return elapsed ? XAxis::Kind::Elapsed : XAxis::Kind::Calendar;
}

} // namespace

RowTimes::RowTimes(const GridData& grid, const InternationalSettings& settings, ClockChoice clock)
    : m_grid(grid),
      m_column(grid, settings),
      m_kind(kindOf(grid, m_column.form())),
      m_timesOfDay(m_column.form().kind() != TimeForm::Kind::Calendar ||
                   m_column.form().name().find('H') != std::string::npos),
      m_clock(clock) {}

void RowTimes::read(Row first, std::span<double> out) {
    if (m_kind == XAxis::Kind::Rows) {
        std::iota(out.begin(), out.end(), static_cast<double>(first + 1));
        return;
    }
    const Column& times = m_grid.column(0);
    for (std::size_t i = 0; i < out.size(); ++i)
        out[i] = moment(times.cell(first + static_cast<Row>(i)));
}

double RowTimes::moment(Cell cell) {
    if (cell.isEmpty()) {
        ++m_empty;
        return kNone;
    }
    const auto moment = m_column.moment(cell);
    if (moment) return m_kind == XAxis::Kind::Calendar ? place(*moment) : placeElapsed(*moment);
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

double RowTimes::placeElapsed(const TimeMoment& moment) {
    double time = secondsOf(moment) + m_midnight;
    const bool nextDay =
        m_column.form().kind() == TimeForm::Kind::TimeOfDay && time < m_previous - kDay / 2;
    if (nextDay) {
        m_midnight += kDay;
        time += kDay;
    }
    m_previous = time;
    return time;
}

XAxis RowTimes::axis(double longest) const {
    XAxis axis{m_kind, 0};
    const auto counted = timeUnit(m_column.form().name());
    if (m_kind != XAxis::Kind::Elapsed || !counted) return axis;
    // In small units as long as the numbers stay short, longer where the file counts in them.
    for (const int unit : {-9, -6, -3}) {
        const double most = counted->exponent <= unit ? 1e5 : 2000;
        if (longest >= most * std::pow(10.0, unit)) continue;
        axis.unit = unit;
        break;
    }
    return axis;
}

} // namespace pellam
