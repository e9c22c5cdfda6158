#pragma once

#include "trend/ticks/AxisTick.h"

#include <vector>

namespace pellam {

/// Marks of a logarithmic axis: labelled at decades, with minor marks at 2 to 9 times a decade;
/// over many decades at every so many of them; over less than a decade also at 2 and 5 times, or
/// like decimal ones.
class LogTicks {
  public:
    /// Marks of min..max (0 < min < max) with at most `labels` labelled ones, ascending.
    static std::vector<AxisTick> find(double min, double max, int labels);
    /// "0.02" or "20000"; with `powers` "2·10⁻²", "2·10⁴", and "2" all the same.
    static QString text(int mantissa, int exponent, bool powers);
};

} // namespace pellam
