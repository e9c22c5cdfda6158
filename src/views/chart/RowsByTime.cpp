#include "views/chart/RowsByTime.h"

#include <algorithm>

namespace pellam {

RowsByTime::RowsByTime(std::shared_ptr<const TrendTimes> times, std::vector<std::uint32_t> rows)
    : m_times(std::move(times)),
      m_rows(std::move(rows)) {}

std::optional<Row> RowsByTime::nearest(double time) const {
    if (m_times->empty()) return {};
    std::size_t index = std::min(m_times->lowerBound(time), m_times->size() - 1);
    if (index > 0 && time - (*m_times)[index - 1] <= (*m_times)[index] - time) --index;
    return m_rows.empty() ? static_cast<Row>(index) : static_cast<Row>(m_rows[index]);
}

std::optional<double> RowsByTime::timeOf(Row row) const {
    if (row < 0) return {};
    auto index = static_cast<std::size_t>(row);
    if (!m_rows.empty()) {
        const auto found = std::find(m_rows.begin(), m_rows.end(), static_cast<std::uint32_t>(row));
        index = static_cast<std::size_t>(found - m_rows.begin());
    }
    return index < m_times->size() ? std::optional((*m_times)[index]) : std::nullopt;
}

} // namespace pellam
