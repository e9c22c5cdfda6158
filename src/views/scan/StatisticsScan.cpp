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
      m_areas(std::move(areas)) {
    m_block.resize(kStepRows);
    m_values.reserve(kStepRows);
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

void StatisticsScan::readValues(std::span<double> block) {
    if (m_column == 0) {
        m_grid.column(0).numbers(m_row, block);
    } else {
        if (!m_reader) m_reader.emplace(m_grid.column(m_column));
        m_reader->read(m_row, block, m_leftOut, nullptr);
    }
    m_values.clear();
    std::copy_if(block.begin(), block.end(), std::back_inserter(m_values),
                 [](double value) { return !std::isnan(value); });
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
        readValues({m_block.data(), static_cast<std::size_t>(end - m_row)});
        for (const double value : m_values)
            add(value);
        addDeviations();
        m_row = end;
    }
    return m_row <= last || nextColumn();
}

void StatisticsScan::addDeviations() {
    if (m_values.empty()) return;
    const auto count = static_cast<double>(m_values.size());
    double mean = 0;
    for (const double value : m_values)
        mean += value;
    mean /= count;
    double squares = 0;
    for (const double value : m_values)
        squares += (value - mean) * (value - mean);
    const auto before = static_cast<double>(m_joined);
    const double apart = mean - m_mean;
    m_joined += static_cast<std::int64_t>(m_values.size());
    const double share = count / static_cast<double>(m_joined);
    m_mean += apart * share;
    m_squares += squares + apart * apart * before * share;
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
    result.missing = m_leftOut.gaps() - m_leftOut.sentinels;
    // Once the sum has overflowed the compensation is infinity minus infinity.
    if (std::isfinite(m_compensation)) result.sum += m_compensation;
    result.sentinels = m_leftOut.sentinels;
    if (m_joined > 1) {
        result.standardDeviation = std::sqrt(m_squares / static_cast<double>(m_joined - 1));
    }
    return result;
}

std::vector<std::string>
StatisticsScan::texts(const Result& result, const std::function<std::string(std::int64_t)>& count,
                      char decimalSeparator) {
    std::vector<std::string> texts{"Count: " + count(result.count)};
    const auto leftOut = [&](std::int64_t number, const std::string& what) {
        if (number == 0) return;
        texts.push_back(count(number) + ' ' + what + (number == 1 ? "" : "s") + " left out");
    };
    leftOut(result.sentinels, "sentinel");
    leftOut(result.missing, "missing value");
    if (result.count == 0) return texts;
    texts.push_back("Mean: " + numberText(result.mean(), 10, decimalSeparator));
    texts.push_back("Min: " + exactNumberText(result.minimum, decimalSeparator));
    texts.push_back("Max: " + exactNumberText(result.maximum, decimalSeparator));
    if (result.count > 1) {
        // Millions are written in full, as the mean beside them.
        const int digits = result.standardDeviation < 1e6 ? 6 : 10;
        texts.push_back("Std dev: " +
                        numberText(result.standardDeviation, digits, decimalSeparator));
    }
    texts.push_back("Sum: " + numberText(result.sum, 15, decimalSeparator));
    return texts;
}

} // namespace pellam
