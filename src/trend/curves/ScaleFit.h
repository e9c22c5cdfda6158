#pragma once

#include "trend/curves/Extremes.h"
#include "trend/curves/TrendRanges.h"

#include <optional>

namespace pellam {

struct TrendChart;

/// What a scale shows of values from min to max: a tenth of each bound's own magnitude beyond it.
TrendRanges::Range shownRange(const ValueRange& values);

/// Extremes of the visible curves on an axis (1 to 6); on a logarithmic one of the values above
/// zero, as long as there are any. Empty without values.
ValueRange valuesOnAxis(const TrendChart& chart, int axis);

/// First and last time at which a visible curve has a value, a little around a lone one. Nothing
/// without values.
std::optional<TrendRanges::Range> timesOfAll(const TrendChart& chart);

/// The state's properties with ranges that show all visible curves, whatever was edited; where
/// there is nothing to show, they stay.
TrendRanges everything(const TrendChart& chart);

/// The range in which the visible curves of an axis stand between the shown times, with a little
/// room; nothing when they have no values.
std::optional<TrendRanges::Range> fittedToShownTimes(const TrendChart& chart, int axis);

} // namespace pellam
