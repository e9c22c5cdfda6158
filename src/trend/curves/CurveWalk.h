#pragma once

#include "trend/curves/CurveReader.h"

namespace pellam {

class ScaleMap;

/// Walks along a curve from one notable sample to the next. Points without a value are passed over.
class CurveWalk {
  public:
    /// `direction`: 1 = later, -1 = earlier.
    CurveWalk(const TrendCurve& curve, int direction) : m_curve(curve), m_direction(direction) {}

    /// The next sample beyond a time at which the curve turns back by at least `depth` pixels of
    /// its scale; nothing when it turns no more.
    std::optional<CurveSample> extreme(double time, const ScaleMap& scale, double depth) const;

    /// The next sample beyond a time behind which values are missing: the one after it comes later
    /// than three times the curve's usual step. Nothing without one.
    std::optional<CurveSample> gap(double time) const;

  private:
    std::optional<CurveSample> beyond(const CurveSample& sample) const;
    std::optional<CurveSample> start(double time) const;

    const TrendCurve& m_curve;
    int m_direction;
};

} // namespace pellam
