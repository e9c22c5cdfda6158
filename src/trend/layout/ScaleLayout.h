#pragma once

namespace pellam {

struct TrendChart;
class TrendLayout;

/// Places the Y scales: their bands, marks and labels, and the columns that they stand in.
class ScaleLayout {
  public:
    /// Fills layout.scales and takes their columns off layout.plot's width on either side;
    /// layout.plot's height and layout.font must be set. Bands of a strip chart that fit the height
    /// together lie below one another, whatever column their scale stands in; otherwise each column
    /// starts at the top.
    static void place(const TrendChart& chart, TrendLayout& layout);
};

} // namespace pellam
