#pragma once

#include "grid/GridData.h"
#include "trend/curves/TrendTimes.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace pellam {

/// Which row of the grid each time of the chart came from.
class RowsByTime {
  public:
    RowsByTime() = default;
    /// `rows` has the first row of each time, or is empty when time i stands in row i.
    RowsByTime(std::shared_ptr<const TrendTimes> times, std::vector<std::uint32_t> rows);

    /// The row whose time is nearest; nothing without times.
    [[nodiscard]] std::optional<Row> nearest(double time) const;
    /// The time of a row; nothing for a row without a time, and for one that repeats the time of a
    /// row before it.
    [[nodiscard]] std::optional<double> timeOf(Row row) const;

  private:
    std::shared_ptr<const TrendTimes> m_times = std::make_shared<const TrendTimes>();
    std::vector<std::uint32_t> m_rows;
};

} // namespace pellam
