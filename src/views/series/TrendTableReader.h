#pragma once

#include "views/series/RowTimes.h"
#include "views/series/ValueReader.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace pellam {

class ProgressSink;

/// What the chart shows: the values of the selected channels over times that all of them share.
struct TrendTable {
    struct Curve {
        int column = 0; ///< of the grid
        int axis = 1;   ///< Y scale, 1 to 6
        std::string text;
        std::string units;          ///< empty when the label has none
        std::vector<double> values; ///< one a time; NaN where the channel has none
        /// Places in `times` where a value was left out as missing, ascending; of several without a
        /// value between them at least the first.
        std::vector<std::uint32_t> gaps;
        LeftOut leftOut;
    };

    XAxis xAxis;               ///< what the times count
    std::vector<double> times; ///< strictly increasing
    /// First row of each time; empty when time i stands in row i.
    std::vector<std::uint32_t> rows;
    std::vector<Curve> curves;
    std::vector<MissingText> missing; ///< of the grid; curves count them by their place here
    bool missingAsNumbers = false;    ///< the numbers among them are in the curves
    std::int64_t emptyTimes = 0;      ///< rows without a time
    std::int64_t unreadableTimes = 0; ///< rows whose time text can't be read
    std::int64_t outsideTimes = 0;    ///< rows whose time is not one from 1970 to 2106
    ClockChoice clock = ClockChoice::Computer; ///< by which the times were read
    /// Its offset from UTC in seconds, where it has one all the time.
    std::optional<std::int64_t> utcOffset;
    bool skippedHour = false; ///< rows stand in an hour that the computer's clock skips
    bool aborted = false;     ///< stopped by the person: later rows are missing
};

/// Reads the selected channels of the grid as curves. A value is left out when its text is empty,
/// stands for no value or is no number, or when its time is not later than that of the curve's
/// value before.
class TrendTableReader {
  public:
    /// All of them must outlive the reader. Without a clock it is this computer's, or, when rows
    /// prove that their logger's is never put forward, the one without daylight saving.
    TrendTableReader(const GridData& grid, const InternationalSettings& settings,
                     ProgressSink& progress, std::optional<ClockChoice> clock = {});

    /// The whole table, or what was read of it until the person stopped it.
    [[nodiscard]] TrendTable read();

  private:
    void chooseCurves();
    void readTimes();
    void readTimesBy(ClockChoice clock);
    void orderTimes();
    void giveSlots();
    void readValues();
    void readInOrder(std::size_t index, Row first, Row count);
    void readIntoSlots(std::size_t index, Row first, Row count);
    bool reportAndGoOn(Row row);

    static constexpr std::uint32_t kNoSlot = UINT32_MAX;

    const GridData& m_grid;
    const InternationalSettings& m_settings;
    ProgressSink& m_progress;
    std::optional<ClockChoice> m_clock;
    std::optional<RowTimes> m_rowTimes;
    std::vector<ValueReader> m_readers; ///< by curve
    TrendTable m_table;
    std::vector<std::uint32_t> m_slots;     ///< time index of each row; empty when it is the row
    std::vector<std::uint32_t> m_firstFree; ///< by curve: first time index later than its last
    Row m_rows = 0;
};

} // namespace pellam
