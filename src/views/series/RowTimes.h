#pragma once

#include "grid/GridData.h"
#include "views/series/TimePattern.h"
#include "views/series/ZoneClock.h"

#include <cstdint>
#include <limits>
#include <span>

namespace pellam {

/// Reads the time column as moments, in seconds since 1970 UTC with their fraction. Time texts are
/// local time; where the clock repeats an hour, the moment is taken that is later than the row
/// before, so that times stay increasing where the file allows it.
class RowTimes {
  public:
    static constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

    /// `grid` must outlive the reader. Looks at some of its rows to tell the order of day and month
    /// where that is not given.
    RowTimes(const GridData& grid, const InternationalSettings& settings);

    /// Writes the moments of rows `first` to `first + out.size() - 1`, kNone where there is none.
    /// Rows are read in order.
    void read(Row first, std::span<double> out);

    /// Rows read so far whose time is empty, those whose time text can't be read, and those whose
    /// time lies outside 1970 to 2106, which is what CMyTime holds.
    [[nodiscard]] std::int64_t emptyCount() const { return m_empty; }

    [[nodiscard]] std::int64_t unreadableCount() const { return m_unreadable; }

    [[nodiscard]] std::int64_t outsideCount() const { return m_outside; }

  private:
    double moment(Cell cell);
    double momentOfFields(Cell cell);
    double momentOfText(Cell cell);
    double place(const TimeStamp& stamp);
    double unreadable();
    void learnPattern(const InternationalSettings& settings);
    [[nodiscard]] std::optional<TimeStamp> parse(std::string_view text) const;

    const GridData& m_grid;
    std::vector<TimePattern> m_patterns; ///< one at most
    ZoneClock m_clock;
    std::uint64_t m_packedDay = 0; ///< date fields of the packed cell before
    std::int64_t m_dayStart = 0;   ///< and its local midnight
    double m_previous = -1;
    std::int64_t m_empty = 0;
    std::int64_t m_unreadable = 0;
    std::int64_t m_outside = 0;
};

} // namespace pellam
