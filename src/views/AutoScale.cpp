#include "views/AutoScale.h"

#include "trend/TrendOperations.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace pellam {

namespace {

struct Extent {
    double min = 999999.9;
    double max = -999999.9;
};

void applyRanges(TrendOperations& trend, int axis, const AxisRanges& ranges) {
    trend.SetYScRangeMin(axis, ranges.rangeMin);
    trend.SetYScRangeMax(axis, ranges.rangeMax);
    trend.SetYScActualRangeMin(axis, ranges.shownMin);
    trend.SetYScActualRangeMax(axis, ranges.shownMax);
    trend.SetYScRangeRes(axis, 0.00001);
}

} // namespace

AxisRanges scaledToData(double min, double max) {
    const double span = std::abs(max - min);
    const double beyond = span < 1.0 ? span : 10 * span;
    return {min - beyond, max + beyond, min - 0.1 * std::abs(min), max + 0.1 * std::abs(max)};
}

void autoScale(TrendOperations& trend, double now) {
    double from = now;
    double to = 0;
    trend.SetLockUpdate(1);
    std::array<Extent, trendScaleCount> extents;
    for (int curve = 0; curve < trend.GetUsedCurveCount(); ++curve) {
        const int axis = trend.GetCurveRelatedScale(curve);
        const auto range = trend.GetDataRange(curve);
        if (!trend.GetCurveVisible(curve) || !range || axis < 1 || axis > trendScaleCount) continue;
        Extent& extent = extents[static_cast<std::size_t>(axis - 1)];
        extent.min = std::min(extent.min, range->yFrom);
        extent.max = std::max(extent.max, range->yTo);
        from = std::min(from, range->xFrom);
        to = std::max(to, range->xTo);
    }
    for (int axis = 1; axis <= trendScaleCount; ++axis) {
        const Extent& extent = extents[static_cast<std::size_t>(axis - 1)];
        applyRanges(trend, axis, scaledToData(extent.min, extent.max));
    }
    if (to > from) {
        trend.SetXScActualRangeMin(from);
        trend.SetXScActualRangeMax(to);
    }
    trend.SetLockUpdate(0);
}

} // namespace pellam
