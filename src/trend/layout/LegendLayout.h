#pragma once

namespace pellam {

struct TrendChart;
class TrendLayout;

/// Places the entries of a chart's legend, row by row from the top left.
class LegendLayout {
  public:
    /// Fills layout.legend and its items, from `top` down and no wider than layout.size;
    /// layout.font must be set. At most a quarter of the height is used.
    static void place(const TrendChart& chart, double top, TrendLayout& layout);
};

} // namespace pellam
