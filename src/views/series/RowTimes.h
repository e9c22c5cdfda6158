#pragma once

#include "base/XAxis.h"
#include "grid/TimeColumn.h"
#include "views/series/ZoneClock.h"

#include <cstdint>
#include <limits>
#include <optional>
#include <span>

namespace pellam {

/// Reads the time column as what the X axis counts. Dates: in seconds since 1970 UTC with their
/// fraction to the microsecond. Time texts are those of a clock; where it repeats an hour, the
/// moment is taken that is later than the row before, so that times stay increasing where the file
/// allows it. Elapsed times: in seconds; times of day alone are those since the first midnight.
/// Without times: the numbers of the rows.
class RowTimes {
  public:
    static constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

    /// `grid` must outlive the reader.
    RowTimes(const GridData& grid, const InternationalSettings& settings,
             ClockChoice clock = ClockChoice::Computer);

    /// Writes the moments of rows `first` to `first + out.size() - 1`, kNone where there is none.
    /// Rows are read in order.
    void read(Row first, std::span<double> out);

    [[nodiscard]] XAxis::Kind kind() const { return m_kind; }

    /// What the axis counts when `longest` is the time farthest from zero.
    [[nodiscard]] XAxis axis(double longest) const;

    /// Rows read so far whose time is empty, those whose time text can't be read, and those
    /// whose date lies outside 1970 to 2106, which is what CMyTime holds.
    [[nodiscard]] std::int64_t emptyCount() const { return m_empty; }

    [[nodiscard]] std::int64_t unreadableCount() const { return m_unreadable; }

    [[nodiscard]] std::int64_t outsideCount() const { return m_outside; }

    /// Whether rows stand in an hour that this computer's clock leaves out when it is put forward:
    /// their logger's clock is not put forward. Known after reading, by the computer's clock. Dates
    /// without a time of day tell nothing.
    [[nodiscard]] bool standInSkippedHour() const { return m_timesOfDay && m_clock.sawSkipped(); }

    /// The one offset from UTC by which times were read, in seconds; nothing when it changes.
    [[nodiscard]] std::optional<std::int64_t> utcOffset() {
        return m_clock.offset(static_cast<std::int64_t>(m_previous));
    }

  private:
    double moment(Cell cell);
    double place(const TimeMoment& moment);
    double placeElapsed(const TimeMoment& moment);

    const GridData& m_grid;
    TimeColumn m_column;
    XAxis::Kind m_kind;
    bool m_timesOfDay;     ///< dates have times of day
    double m_midnight = 0; ///< of the day that a time of day belongs to
    ZoneClock m_clock;
    double m_previous = -1;
    std::int64_t m_empty = 0;
    std::int64_t m_unreadable = 0;
    std::int64_t m_outside = 0;
};

} // namespace pellam
