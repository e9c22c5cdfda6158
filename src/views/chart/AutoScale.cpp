#include "views/chart/AutoScale.h"

#include "trend/control/TrendOperations.h"
#include "trend/curves/ScaleFit.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace pellam {

namespace {

struct Extent {
    double min = 999999.9;
    double max = -999999.9;
};

struct DataExtent {
    std::array<Extent, trendScaleCount> axes;
    double from = 0;
    double to = 0;
};

DataExtent visibleExtent(const TrendOperations& trend, double now) {
    DataExtent extent{{}, now, 0};
    if (trend.chart().state.xAxis.kind != XAxis::Kind::Calendar) {
        extent.from = std::numeric_limits<double>::infinity();
        extent.to = -extent.from;
    }
    for (int curve = 0; curve < trend.GetUsedCurveCount(); ++curve) {
        const int axis = trend.GetCurveRelatedScale(curve);
        const auto range = trend.GetDataRange(curve);
        if (!trend.GetCurveVisible(curve) || !range || axis < 1 || axis > trendScaleCount) continue;
        extent.from = std::min(extent.from, range->xFrom);
        extent.to = std::max(extent.to, range->xTo);
    }
    for (int axis = 1; axis <= trendScaleCount; ++axis) {
        Extent& values = extent.axes[static_cast<std::size_t>(axis - 1)];
        const ValueRange all = valuesOnAxis(trend.chart(), axis);
        values.min = std::min(values.min, all.min);
        values.max = std::max(values.max, all.max);
    }
    return extent;
}

void applyRanges(TrendOperations& trend, int axis, const Extent& extent) {
    const AxisRanges ranges = scaledToData(extent.min, extent.max);
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
    const TrendRanges::Range shown = shownRange({min, max});
    return {min - beyond, max + beyond, shown.min, shown.max};
}

void autoScale(TrendOperations& trend, double now) {
    trend.SetLockUpdate(1);
    const DataExtent extent = visibleExtent(trend, now);
    for (int axis = 1; axis <= trendScaleCount; ++axis)
        applyRanges(trend, axis, extent.axes[static_cast<std::size_t>(axis - 1)]);
    if (extent.to > extent.from) {
        trend.SetXScActualRangeMin(extent.from);
        trend.SetXScActualRangeMax(extent.to);
    }
    trend.SetLockUpdate(0);
}

void scaleLateAxis(TrendOperations& trend, int axis) {
    if (axis < 1 || axis > trendScaleCount) return;
    if (trend.GetYScActualRangeMin(axis) <= trend.GetYScActualRangeMax(axis)) return;
    trend.SetLockUpdate(1);
    applyRanges(trend, axis, visibleExtent(trend, 0).axes[static_cast<std::size_t>(axis - 1)]);
    trend.SetLockUpdate(0);
}

} // namespace pellam
