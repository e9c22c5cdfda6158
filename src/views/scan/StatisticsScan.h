#pragma once

#include "grid/GridData.h"
#include "views/scan/CellArea.h"
#include "views/series/ValueReader.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace pellam {

/// Count, minimum, maximum, mean, standard deviation and sum of the numbers in some areas of the
/// grid, in steps of bounded work. Axis numbers are no data and are passed over, as are texts and
/// empty cells; what stands for no value (see ValueReader) is left out and counted.
class StatisticsScan {
  public:
    struct Result {
        std::int64_t count = 0;
        double minimum = 0; ///< meaningful only when count is above 0, like all below
        double maximum = 0;
        double sum = 0; ///< with Neumaier's compensation of rounding errors
        /// Of the sample, with count - 1; meaningful only when count is above 1.
        double standardDeviation = 0;
        std::int64_t sentinels = 0; ///< left out of all above, as are those that are missing
        std::int64_t missing = 0;   ///< by the texts that stand for no value in this file

        [[nodiscard]] double mean() const { return sum / static_cast<double>(count); }
    };

    /// Reads `grid`, which must outlive the scan; the areas must not overlap.
    StatisticsScan(const GridData& grid, std::vector<CellArea> areas);

    /// Reads up to 4096 cells more; blocks of rows that no cell was written to cost nothing.
    /// False when there are no more.
    bool step();

    [[nodiscard]] Result result() const;

    /// The figures for a status bar, the most wanted first, each with its name; numbers with the
    /// given decimal separator, counts as `count` writes them.
    [[nodiscard]] static std::vector<std::string>
    texts(const Result& result, const std::function<std::string(std::int64_t)>& count,
          char decimalSeparator);

  private:
    void add(double value);
    void addDeviations();
    bool nextColumn();
    void readValues(std::span<double> block);

    const GridData& m_grid;
    std::vector<CellArea> m_areas;
    std::vector<double> m_block;         ///< of the cells at hand, NaN where there is none
    std::vector<double> m_values;        ///< those of them that are numbers
    std::optional<ValueReader> m_reader; ///< of the column at hand, unless it is that of the times
    LeftOut m_leftOut;
    std::size_t m_area = 0;
    int m_column = 0;
    Row m_row = 0; ///< data row
    Result m_result;
    double m_compensation = 0;
    // Of the values so far, joined block by block (T. F. Chan, G. H. Golub, R. J. LeVeque,
    // "Updating formulae and a pairwise algorithm for computing sample variances", 1979).
    double m_mean = 0;
    double m_squares = 0; ///< sum of the squared distances from the mean
    std::int64_t m_joined = 0;
};

} // namespace pellam
