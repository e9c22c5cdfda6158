#include "views/scan/StatisticsScan.h"

#include "views/scan/NumberText.h"

#include <algorithm>
#include <cmath>

namespace pellam {

namespace {
constexpr Row kStepRows = 4096;
static_assert(Column::kChunkRows % kStepRows == 0);
} // namespace

StatisticsScan::StatisticsScan(const GridData& grid, std::vector<CellArea> areas)
    : m_grid(grid),
      m_areas(std::move(areas)),
      m_values(kStepRows) {
    for (CellArea& area : m_areas) {
        area.firstRow = std::max<GridRow>(area.firstRow, 1);
        area.lastRow = std::min<GridRow>(area.lastRow, grid.rowCount());
        area.lastColumn = std::min(area.lastColumn, grid.columnCount() - 1);
    }
    std::erase_if(m_areas, [](const CellArea& area) { return area.isEmpty(); });
    if (m_areas.empty()) return;
    m_column = m_areas.front().firstColumn;
    m_row = m_areas.front().firstRow - 1;
}

void StatisticsScan::readValues(std::span<double> values) {
    if (m_column == 0) return m_grid.column(0).numbers(m_row, values);
    if (!m_reader) m_reader.emplace(m_grid.column(m_column));
    m_reader->read(m_row, values, m_leftOut, nullptr);
}

bool StatisticsScan::nextColumn() {
    m_reader.reset();
    const CellArea& area = m_areas[m_area];
    if (m_column < area.lastColumn) {
        ++m_column;
    } else {
        if (++m_area == m_areas.size()) return false;
        m_column = m_areas[m_area].firstColumn;
    }
    m_row = m_areas[m_area].firstRow - 1;
    return true;
}

bool StatisticsScan::step() {
    if (m_area >= m_areas.size()) return false;
    const Column& column = m_grid.column(m_column);
    const Row last = m_areas[m_area].lastRow - 1;
    if (column.chunkAt(m_row) == nullptr) {
        m_row = (m_row / Column::kChunkRows + 1) * Column::kChunkRows;
    } else {
        const Row end = std::min(last, (m_row / kStepRows + 1) * kStepRows - 1) + 1;
        const std::span<double> values(m_values.data(), static_cast<std::size_t>(end - m_row));
        readValues(values);
        for (const double value : values) {
            if (!std::isnan(value)) add(value);
        }
        m_row = end;
    }
    return m_row <= last || nextColumn();
}

void StatisticsScan::add(double value) {
    Result& r = m_result;
    r.minimum = r.count == 0 ? value : std::min(r.minimum, value);
    r.maximum = r.count == 0 ? value : std::max(r.maximum, value);
    ++r.count;
    const double sum = r.sum + value;
    m_compensation +=
        std::abs(r.sum) >= std::abs(value) ? (r.sum - sum) + value : (value - sum) + r.sum;
    r.sum = sum;
}

StatisticsScan::Result StatisticsScan::result() const {
    Result result = m_result;
    result.leftOut = m_leftOut.gaps();
    // Once the sum has overflowed the compensation is infinity minus infinity.
    if (std::isfinite(m_compensation)) result.sum += m_compensation;
    return result;
}

std::string StatisticsScan::text(const Result& result, std::string_view count,
                                 std::string_view leftOut, char decimalSeparator) {
    std::string text = "Count: ";
    text += count;
    if (result.leftOut > 0) text.append("   Left out: ").append(leftOut);
    if (result.count == 0) return text;
    text += "   Min: " + exactNumberText(result.minimum, decimalSeparator);
    text += "   Max: " + exactNumberText(result.maximum, decimalSeparator);
    text += "   Mean: " + numberText(result.mean(), 10, decimalSeparator);
    text += "   Sum: " + numberText(result.sum, 15, decimalSeparator);
    return text;
}

} // namespace pellam
