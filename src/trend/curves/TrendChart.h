#pragma once

#include "trend/curves/TrendCurve.h"
#include "trend/curves/TrendState.h"

#include <vector>

namespace pellam {

/// Everything that is drawn: display settings and curves.
struct TrendChart {
    TrendState state;
    std::vector<TrendCurve> curves;

    /// Curve `index`, made with its starting style when the pool is shorter. Below trendCurvePool.
    TrendCurve& curve(int index);
    /// The settings with those of the curves in them.
    TrendState save() const;
    /// Puts saved settings back; curves beyond the saved ones stay as they are.
    void restore(const TrendState& saved);

    TrendScale* scale(int axis);
    const TrendScale* scale(int axis) const;
    /// Number of Y scales that are shown.
    int enabledScales() const;
    /// Whether scales share the height, each in a strip of its own.
    bool isStrip() const;
    /// Whether a scale (1 to 6) has curves, all of them hidden.
    bool isIdle(int axis) const;
    /// Whether a curve is to be drawn: visible, with points, on an enabled scale.
    bool drawn(const TrendCurve& curve) const;
    /// The one curve drawn on an axis (1 to 6); null when there is none or more than one.
    const TrendCurve* onlyCurve(int axis) const;
    /// The state's notes, and for curves on logarithmic scales how many values these can't show.
    QStringList noteLines() const;
};

} // namespace pellam
