#include "views/series/TrendTableReader.h"

#include "base/InternationalSettings.h"
#include "base/LargePages.h"
#include "base/ProgressSink.h"
#include "grid/ChannelLabel.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace pellam {

namespace {

constexpr Row kBlock = Column::kChunkRows;
constexpr Row kReportRows = 50;

// Gaps side by side are one.
void keepFirstOfRuns(std::vector<std::uint32_t>& gaps) {
    if (!std::is_sorted(gaps.begin(), gaps.end())) std::sort(gaps.begin(), gaps.end());
    std::uint32_t next = 0;
    std::erase_if(gaps, [&next](std::uint32_t gap) {
        const bool goesOn = next > 0 && gap <= next;
        next = gap + 1;
        return goesOn;
    });
    gaps.shrink_to_fit();
}

double farthest(const std::vector<double>& times) {
    return times.empty() ? 0 : std::max(std::abs(times.front()), std::abs(times.back()));
}

} // namespace

TrendTableReader::TrendTableReader(const GridData& grid, const InternationalSettings& settings,
                                   ProgressSink& progress, std::optional<ClockChoice> clock)
    : m_grid(grid),
      m_settings(settings),
      m_progress(progress),
      m_clock(clock),
      m_rows(grid.rowCount()) {}

TrendTable TrendTableReader::read() {
    m_table.missing = m_grid.missing();
    m_table.missingAsNumbers = m_grid.missingAsNumbers();
    chooseCurves();
    if (m_table.curves.empty()) return std::move(m_table);
    readTimes();
    orderTimes();
    m_table.xAxis = m_rowTimes->axis(farthest(m_table.times));
    readValues();
    return std::move(m_table);
}

void TrendTableReader::chooseCurves() {
    for (int i = 1; i <= m_grid.channelCount() && i < m_grid.columnCount(); ++i) {
        const Column& column = m_grid.column(i);
        if (!column.charted()) continue;
        TrendTable::Curve& curve = m_table.curves.emplace_back();
        m_readers.emplace_back(column);
        curve.column = i;
        curve.axis = column.axis();
        const ChannelLabel label(column.label());
        curve.text = label.name;
        curve.units = label.units;
    }
}

void TrendTableReader::readTimes() {
    reserveLarge(m_table.times, static_cast<std::size_t>(m_rows));
    readTimesBy(m_clock.value_or(ClockChoice::Computer));
    if (m_clock || !m_table.skippedHour) return;
    readTimesBy(ClockChoice::NoDaylightSaving);
    m_table.skippedHour = true;
}

void TrendTableReader::readTimesBy(ClockChoice clock) {
    RowTimes& rowTimes = m_rowTimes.emplace(m_grid, m_settings, clock);
    m_table.times.resize(static_cast<std::size_t>(m_rows));
    const std::span<double> all(m_table.times);
    for (Row row = 0; row < m_rows; row += kBlock) {
        const Row count = std::min(kBlock, m_rows - row);
        rowTimes.read(row,
                      all.subspan(static_cast<std::size_t>(row), static_cast<std::size_t>(count)));
        m_progress.setPosition(0);
        if (!m_progress.aborted()) continue;
        m_rows = row + count;
        m_table.aborted = true;
    }
    m_table.times.resize(static_cast<std::size_t>(m_rows));
    m_table.emptyTimes = rowTimes.emptyCount();
    m_table.unreadableTimes = rowTimes.unreadableCount();
    m_table.outsideTimes = rowTimes.outsideCount();
    m_table.clock = clock;
    m_table.utcOffset = rowTimes.utcOffset();
    m_table.skippedHour = rowTimes.standInSkippedHour();
}

void TrendTableReader::orderTimes() {
    // A NaN is not earlier than anything, so a row without a time is found here too.
    const auto& times = m_table.times;
    double last = -std::numeric_limits<double>::infinity();
    const bool inOrder = std::all_of(times.begin(), times.end(), [&last](double time) {
        return time > last && (last = time, true);
    });
    if (!inOrder) giveSlots();
}

void TrendTableReader::giveSlots() {
    const std::vector<double> rowTimes = std::move(m_table.times);
    std::vector<double>& times = m_table.times;
    times.clear();
    std::copy_if(rowTimes.begin(), rowTimes.end(), std::back_inserter(times),
                 [](double time) { return time == time; });
    if (!std::is_sorted(times.begin(), times.end())) std::sort(times.begin(), times.end());
    times.erase(std::unique(times.begin(), times.end()), times.end());

    m_table.rows.assign(times.size(), kNoSlot);
    m_slots.reserve(rowTimes.size());
    std::size_t slot = 0;
    for (std::size_t row = 0; row < rowTimes.size(); ++row) {
        const double time = rowTimes[row];
        if (time != time) {
            m_slots.push_back(kNoSlot);
            continue;
        }
        // Mostly it is this time again or the one after it.
        if (times[slot] != time && ++slot < times.size() && times[slot] != time)
            slot = times.size();
        if (slot == times.size()) {
            slot = static_cast<std::size_t>(std::lower_bound(times.begin(), times.end(), time) -
                                            times.begin());
        }
        m_slots.push_back(static_cast<std::uint32_t>(slot));
        if (m_table.rows[slot] == kNoSlot) m_table.rows[slot] = static_cast<std::uint32_t>(row);
    }
}

void TrendTableReader::readValues() {
    for (auto& curve : m_table.curves) {
        reserveLarge(curve.values, m_table.times.size());
        if (!m_slots.empty()) curve.values.assign(m_table.times.size(), RowTimes::kNone);
    }
    m_firstFree.assign(m_table.curves.size(), 0);
    for (Row row = 0; row < m_rows && reportAndGoOn(row); row += kBlock) {
        const Row count = std::min(kBlock, m_rows - row);
        for (std::size_t i = 0; i < m_table.curves.size(); ++i) {
            m_slots.empty() ? readInOrder(i, row, count) : readIntoSlots(i, row, count);
        }
    }
    if (m_slots.empty()) m_table.times.resize(m_table.curves.front().values.size());
    for (auto& curve : m_table.curves)
        keepFirstOfRuns(curve.gaps);
}

bool TrendTableReader::reportAndGoOn(Row row) {
    const Row reported = row - row % kReportRows;
    m_progress.addString("Loaded " + std::to_string(reported) + " Lines");
    m_progress.setPosition(reported);
    if (m_progress.aborted()) m_table.aborted = true;
    return !m_table.aborted;
}

void TrendTableReader::readInOrder(std::size_t index, Row first, Row count) {
    TrendTable::Curve& curve = m_table.curves[index];
    const std::size_t start = curve.values.size();
    curve.values.resize(start + static_cast<std::size_t>(count));
    const std::span<double> out(curve.values.data() + start, static_cast<std::size_t>(count));
    m_readers[index].read(first, out, curve.leftOut, &curve.gaps);
}

void TrendTableReader::readIntoSlots(std::size_t index, Row first, Row count) {
    TrendTable::Curve& curve = m_table.curves[index];
    const Column& column = m_grid.column(curve.column);
    const Cell* const cells = column.chunkAt(first);
    if (!cells) return;
    const std::uint32_t* const slots = m_slots.data() + first;
    std::uint32_t& firstFree = m_firstFree[index];
    for (Row i = 0; i < count; ++i) {
        if (slots[i] == kNoSlot) continue;
        bool gap = false;
        const double value = m_readers[index].value(cells[i], curve.leftOut, gap);
        if (gap) curve.gaps.push_back(slots[i]);
        if (value != value) continue;
        if (slots[i] < firstFree) {
            ++curve.leftOut.notLater;
            continue;
        }
        curve.values[slots[i]] = value;
        firstFree = slots[i] + 1;
    }
}

} // namespace pellam
