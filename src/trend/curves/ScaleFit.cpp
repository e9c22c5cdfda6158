#include "trend/curves/ScaleFit.h"

#include "trend/curves/CurveReader.h"
#include "trend/curves/TrendChart.h"

#include <algorithm>
#include <cmath>

namespace pellam {

namespace {

constexpr double kRoom = 0.05; // part of the span that stays free at each end

/// What is shown on either side of a single moment, which spans no time axis.
double aroundLoneMoment(const XAxis& axis) {
    return axis.kind == XAxis::Kind::Rows ? 1 : 30 * std::pow(10.0, axis.unit);
}

void join(ValueRange& all, const ValueRange& more) {
    all.min = std::min(all.min, more.min);
    all.max = std::max(all.max, more.max);
}

/// Joins what `range` tells of each visible curve on an axis (0 = any).
template <typename Range>
ValueRange overCurves(const TrendChart& chart, int axis, Range range) {
    ValueRange all;
    for (const TrendCurve& curve : chart.curves) {
        const CurveStyle& style = curve.style();
        const bool chosen =
            axis == 0 ? chart.scale(style.relatedScale) != nullptr : style.relatedScale == axis;
        if (style.visible && chosen && !curve.empty()) join(all, range(curve));
    }
    return all;
}

/// The samples within a span; where it holds none, those at both sides of it.
ValueRange valuesWithin(const TrendCurve& curve, double from, double to, bool logarithmic) {
    const MinMaxPyramid& pyramid = curve.pyramid(logarithmic);
    const TrendTimes& times = *curve.times();
    const std::size_t first = times.lowerBound(from);
    const std::size_t end = times.upperBound(to);
    const ValueRange inside = pyramid.range(curve.values(), first, end);
    if (!inside.empty()) return inside;
    ValueRange beside;
    const std::size_t before = pyramid.previousSample(curve.values(), first);
    const std::size_t after = pyramid.nextSample(curve.values(), end);
    for (const std::size_t index : {before, after})
        if (index < curve.size()) join(beside, {curve.values()[index], curve.values()[index]});
    return beside;
}

TrendRanges::Range withRoom(const ValueRange& values, bool logarithmic) {
    if (logarithmic && values.min > 0) {
        const double factor = std::max(std::pow(values.max / values.min, kRoom), 1.05);
        return {values.min / factor, values.max * factor};
    }
    const double span = values.max - values.min;
    const double size = std::max(std::abs(values.min), std::abs(values.max));
    const bool flat = !(span > size * 1e-9);
    const double room = flat ? (size > 0 ? size * kRoom : 1) : span * kRoom;
    return {values.min - room, values.max + room};
}

} // namespace

TrendRanges::Range shownRange(const ValueRange& values) {
    return {values.min - 0.1 * std::abs(values.min), values.max + 0.1 * std::abs(values.max)};
}

ValueRange valuesOnAxis(const TrendChart& chart, int axis) {
    const auto of = [](bool positive) {
        return [positive](const TrendCurve& curve) {
            return curve.pyramid(positive).range(curve.values(), 0, curve.size());
        };
    };
    const TrendScale* const scale = chart.scale(axis);
    if (!scale) return {};
    const ValueRange shown = overCurves(chart, axis, of(scale->logarithmic));
    return shown.empty() ? overCurves(chart, axis, of(false)) : shown;
}

std::optional<TrendRanges::Range> timesOfAll(const TrendChart& chart) {
    const ValueRange times =
        overCurves(chart, 0, [](const TrendCurve& curve) { return curve.timeRange(); });
    if (times.empty()) return {};
    const double beyond = times.min < times.max ? 0 : aroundLoneMoment(chart.state.xAxis);
    return TrendRanges::Range{times.min - beyond, times.max + beyond};
}

TrendRanges everything(const TrendChart& chart) {
    TrendRanges ranges = TrendRanges::of(chart.state);
    ranges.time = timesOfAll(chart).value_or(ranges.time);
    for (int axis = 1; axis <= trendScaleCount; ++axis) {
        const ValueRange values = valuesOnAxis(chart, axis);
        if (!values.empty())
            ranges.scales[static_cast<std::size_t>(axis - 1)].shown = shownRange(values);
    }
    return ranges;
}

std::optional<TrendRanges::Range> fittedToShownTimes(const TrendChart& chart, int axis) {
    const TrendState& state = chart.state;
    const TrendScale* const scale = chart.scale(axis);
    if (!scale) return {};
    const ValueRange values = overCurves(chart, axis, [&](const TrendCurve& curve) {
        return valuesWithin(curve, state.timeMin, state.timeMax, scale->logarithmic);
    });
    if (values.empty()) return {};
    return withRoom(values, scale->logarithmic);
}

} // namespace pellam
