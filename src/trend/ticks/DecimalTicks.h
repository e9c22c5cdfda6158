#pragma once

#include "trend/ticks/AxisTick.h"

#include <vector>

namespace pellam {

/// Marks at round decimal values: steps of 1, 2 or 5 times a power of ten.
class DecimalTicks {
  public:
    /// Marks of min..max (min below max, both finite) with at most `labels` labelled ones (at least
    /// two are tried for), ascending.
    static std::vector<AxisTick> find(double min, double max, int labels);
    /// The step between labelled marks.
    static double step(double min, double max, int labels);
    /// A mark's text with as many digits as a step needs.
    static QString text(double value, double step);
};

} // namespace pellam
