#pragma once

#include "trend/curves/TrendChart.h"

#include <cstddef>

namespace pellam::bench {

/// A chart of `curves` curves over six scales, with `points` samples in all, that share their
/// times: slow waves with noise, ten samples a second.
TrendChart waveChart(std::size_t curves, std::size_t points);

/// Shows the middle part of the data only: 1 = everything.
void zoomTo(TrendChart& chart, double part);

} // namespace pellam::bench
