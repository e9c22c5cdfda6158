#pragma once

#include "trend/curves/ScaleMap.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace pellam {

class TrendCurve;

/// What a curve's line covers of one column of pixels: y from top to bottom, in pixels downwards.
struct ColumnSpan {
    float top = 0;
    float bottom = 0;
    float enter = 0;           ///< y at the left border, with entersLeft
    float exit = 0;            ///< y at the right border, with leavesRight
    std::uint32_t samples = 0; ///< points in the column, those without a value included
    bool entersLeft = false;
    bool leavesRight = false;
    bool empty = true;
};

/// The columns of pixels that a time span is drawn over.
struct ColumnGrid {
    double from = 0; ///< time at the left border of the first column
    double to = 1;   ///< and at the right border of the last
    int columns = 0;
};

/// Finds the exact vertical extent of a curve in each column: of all its samples there and of the
/// straight lines that join the first and last of them to those of the neighbours.
class CurveColumns {
  public:
    /// starts: columnStarts() of the curve's times over the grid. With breakGaps no line crosses
    /// more than three times the curve's usual step, or a missing value that makes it longer than
    /// usual. Samples that a logarithmic
    /// map can't show are passed over.
    static std::vector<ColumnSpan> find(const TrendCurve& curve,
                                        const std::vector<std::size_t>& starts,
                                        const ColumnGrid& grid, const ScaleMap& map,
                                        bool breakGaps);
};

} // namespace pellam
