#pragma once

#include "grid/GridData.h"
#include "views/scan/CellArea.h"
#include "views/series/ValueReader.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace pellam {

/// Count, minimum, maximum, mean and sum of the numbers in some areas of the grid, in steps of
/// bounded work. Axis numbers are no data and are passed over, as are texts and empty cells,
/// and what the chart leaves out as missing (see ValueReader).
class StatisticsScan {
  public:
    struct Result {
        std::int64_t count = 0;
        std::int64_t leftOut = 0; ///< cells whose text stands for no value
        double minimum = 0;       ///< meaningful only when count is above 0, like all below
        double maximum = 0;
        double sum = 0; ///< with Neumaier's compensation of rounding errors

        [[nodiscard]] double mean() const { return sum / static_cast<double>(count); }
    };

    /// Reads `grid`, which must outlive the scan; the areas must not overlap.
    StatisticsScan(const GridData& grid, std::vector<CellArea> areas);

    /// Reads up to 4096 cells more; blocks of rows that no cell was written to cost nothing.
    /// False when there are no more.
    bool step();

    [[nodiscard]] Result result() const;

    /// One line for a status bar, numbers with the given decimal separator; `count` and
    /// `leftOut` are those of the result as people read them.
    [[nodiscard]] static std::string text(const Result& result, std::string_view count,
                                          std::string_view leftOut, char decimalSeparator);

  private:
    void add(double value);
    bool nextColumn();
    void readValues(std::span<double> values);

    const GridData& m_grid;
    std::vector<CellArea> m_areas;
    std::vector<double> m_values;
    std::optional<ValueReader> m_reader; ///< of the column at hand, unless it is that of the times
    LeftOut m_leftOut;
    std::size_t m_area = 0;
    int m_column = 0;
    Row m_row = 0; ///< data row
    Result m_result;
    double m_compensation = 0;
};

} // namespace pellam
