#pragma once

#include <cstddef>
#include <optional>

namespace pellam {

class TrendCurve;

/// One point of a curve that has a value.
struct CurveSample {
    double time = 0;
    double value = 0;
    std::size_t index = 0;
};

/// What a curve did between two times.
struct CurveStatistics {
    std::size_t count = 0; ///< points that have a value; with 0 the others mean nothing
    double min = 0;
    double max = 0;
    double mean = 0;
};

/// Reads values off a curve. Points without a value are passed over everywhere.
class CurveReader {
  public:
    explicit CurveReader(const TrendCurve& curve) : m_curve(curve) {}

    /// The last sample at or before a time; nothing before the first.
    std::optional<CurveSample> atOrBefore(double time) const;
    /// The first sample after a time, and the last one before it.
    std::optional<CurveSample> next(double time) const;
    std::optional<CurveSample> previous(double time) const;
    /// The sample nearest to a time, the earlier of two equally near ones.
    std::optional<CurveSample> nearest(double time) const;
    /// Over the samples from..to, both inclusive, in either order.
    CurveStatistics statistics(double from, double to) const;

  private:
    std::optional<CurveSample> sampleBefore(std::size_t end) const;
    std::optional<CurveSample> sampleFrom(std::size_t first) const;

    const TrendCurve& m_curve;
};

} // namespace pellam
