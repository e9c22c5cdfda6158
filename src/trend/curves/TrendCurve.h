#pragma once

#include "trend/curves/CurveStyle.h"
#include "trend/curves/MinMaxPyramid.h"
#include "trend/curves/TrendTimes.h"

#include <QString>
#include <cstdint>
#include <memory>
#include <vector>

namespace pellam {

class BlockSums;

/// One curve of the chart: its name, its display settings and its points. Times may be shared with
/// other curves; a NaN (or infinite) value means that the curve has no value at that time.
class TrendCurve {
  public:
    TrendCurve();
    ~TrendCurve();
    TrendCurve(TrendCurve&&) noexcept;
    TrendCurve& operator=(TrendCurve&&) noexcept;

    const QString& text() const { return m_text; }

    void setText(const QString& text) { m_text = text; }

    const CurveStyle& style() const { return m_style; }

    void setStyle(const CurveStyle& style) { m_style = style; }

    CurveStyle& style() { return m_style; }

    /// Most points that the curve keeps; 0 = no limit. Points beyond it push the oldest out.
    void setMaxDataSets(std::size_t count);

    /// Replaces all points. False, and the curve left empty, when the two lengths differ. `gaps`:
    /// places of points, ascending, over which no line goes: values that are known to be missing.
    bool setPoints(std::shared_ptr<const TrendTimes> times, std::vector<double>&& values,
                   std::vector<std::uint32_t>&& gaps = {});
    /// Adds a point; false when its time is not later than the last one's or not finite.
    bool append(double time, double value);
    /// Removes all points.
    void deleteData();

    /// Number of points, those without a value included.
    std::size_t size() const { return m_values.size(); }

    bool empty() const { return m_values.empty(); }

    /// The points' times; never null.
    const std::shared_ptr<const TrendTimes>& times() const { return m_times; }

    const double* values() const { return m_values.data(); }

    /// Extremes of all values.
    ValueRange valueRange() const;
    /// First and last time that has a value; an empty range without one.
    ValueRange timeRange() const;
    /// Median time between neighbouring points that have a value, in seconds; 0 with fewer than
    /// two.
    double usualStep() const;
    /// Whether a value is known to be missing between two points.
    bool gapBetween(std::size_t first, std::size_t last) const;
    /// Number of values that a logarithmic scale can't show (zero or below).
    std::size_t notPositiveCount() const;
    /// Number of points that have a value.
    std::size_t valueCount() const;

    /// The pyramid over values(); with `logarithmic` the one over the values above zero.
    const MinMaxPyramid& pyramid(bool logarithmic) const;
    const BlockSums& sums() const;
    /// Bytes held for points, a share of the times that other curves use too included in full.
    std::size_t bytes() const;

  private:
    TrendTimes& ownTimes();
    void dropOldest();
    void forgetDerived();

    QString m_text;
    CurveStyle m_style;
    std::size_t m_maxDataSets = 0;
    std::shared_ptr<const TrendTimes> m_times;
    std::shared_ptr<TrendTimes>
        m_ownTimes; ///< the same object as m_times while points are appended
    std::vector<double> m_values;
    std::vector<std::uint32_t> m_gaps;
    MinMaxPyramid m_pyramid;
    mutable std::unique_ptr<MinMaxPyramid> m_positive;
    mutable std::unique_ptr<BlockSums> m_sums;
    mutable double m_usualStep = -1;
    mutable std::size_t m_stepCount = 0;
};

} // namespace pellam
