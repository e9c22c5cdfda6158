#pragma once

#include "trend/control/TrendFont.h"
#include "trend/curves/TrendChart.h"

#include <cstdint>
#include <memory>
#include <optional>

QT_BEGIN_NAMESPACE
class QPainter;
class QRectF;
QT_END_NAMESPACE

namespace pellam {

/// Extent of a curve's points.
struct CurveDataRange {
    double xFrom = 0;
    double xTo = 0;
    double yFrom = 0;
    double yTo = 0;
};

/// The operations on a chart's data and settings. Needs no widget, so that a chart can be set up
/// without a display. Curves count from 0, Y scales from 1 to 6, times are seconds since 1970 (UTC)
/// with a fraction, or what setXAxis() says. Numbers of curves or scales that there are not are
/// ignored by setters; getters then answer as for a new curve or scale.
class TrendOperations {
  public:
    TrendOperations();
    virtual ~TrendOperations();
    TrendOperations(const TrendOperations&) = delete;
    TrendOperations& operator=(const TrendOperations&) = delete;

    const TrendChart& chart() const { return m_chart; }

    /// Size of the pool: curves 0 to GetCurveCount() - 1 can be used.
    int GetCurveCount() const { return trendCurvePool; }

    /// Numbers of curves that were touched so far; those above have no settings and no data.
    int GetUsedCurveCount() const { return static_cast<int>(m_chart.curves.size()); }

    // The chart as a whole. Settings kept as numbers are 0 = off.
    void SetRotated(int rotated);
    void SetIdenticalXData(int identical);
    void SetCurveButtons(int buttons); ///< 2 = buttons on screen, 0 = a plain legend
    void SetFollowModeButton(int shown);
    void SetDrawMultithreaded(int threads);
    void SetDockingScales(int docking);
    void SetBackColor(const QColor& colour);      ///< invalid = the theme's
    void SetTrendBackColor(const QColor& colour); ///< of the drawing area; invalid = the theme's
    virtual void SetLassoZoom(int on);
    int GetLassoZoom() const;
    void SetFontScaleFactor(double factor); ///< kept within 0.1 to 1.0
    double GetFontScaleFactor() const;
    TrendFont GetFont();
    void setTitle(const QString& title);
    void setXAxis(const XAxis& axis); ///< what the curves' times count; a calendar at start
    void setPaperNotes(const QStringList& notes); ///< more of them, where there are no buttons
    void setNotes(const QStringList& notes);      ///< lines about points that were left out
    virtual void setBreakGaps(bool on);
    void setDecimalPoint(QChar point); ///< in numbers and times; '.' at start

    // Curves.
    void SetCurveRelatedScale(int curve, int axis); ///< 0 = none
    int GetCurveRelatedScale(int curve) const;
    virtual void SetCurveVisible(int curve, int visible);
    int GetCurveVisible(int curve) const;
    void SetCurveDispRangeComp(int curve, int on);   ///< kept only: nothing is ever compressed
    void SetCurveDispAverageComp(int curve, int on); ///< kept only
    void SetCurveColor(int curve, const QColor& colour);
    void SetCurveMaxDataSets(int curve, std::size_t count); ///< 0 = no limit
    void SetCurveSymbol(int curve, int symbol);             ///< -1 = none
    void SetCurveText(int curve, const QString& text);
    QString GetCurveText(int curve) const;
    /// Y of the next point; SetCurveXValue() then appends it. A point whose X is not later than the
    /// curve's last one is not taken.
    void SetCurveYValue(int curve, double y);
    void SetCurveXValue(int curve, double x);
    double GetCurveXValue(int curve) const; ///< of the last point; minus infinity without one
    void DeleteData(int curve);
    /// Replaces a curve's points; times may be shared with other curves. NaN = no value. False, and
    /// the curve left without points, when the lengths differ or the times are null.
    /// `gaps`: places of points, ascending, that are known to miss a value.
    bool setCurvePoints(int curve, std::shared_ptr<const TrendTimes> times,
                        std::vector<double>&& values, std::vector<std::uint32_t>&& gaps = {});
    /// Extent of the points that have a value; nothing without one.
    std::optional<CurveDataRange> GetDataRange(int curve) const;

    // Y scales.
    void SetYScEnabled(int axis, int on);
    int GetYScEnabled(int axis) const;
    void SetYScText(int axis, const QString& text);
    QString GetYScText(int axis) const;
    void SetYScUserDialogEnabled(int axis, int on);
    void SetYScDlgLogarithmic(int axis, int on);
    void SetYScLogarithmic(int axis, int on);
    int GetYScLogarithmic(int axis) const;
    void SetYScRangeRes(int axis, double resolution);
    double GetYScRangeRes(int axis) const;
    void SetYScRangeMin(int axis, double value);
    void SetYScRangeMax(int axis, double value);
    double GetYScRangeMin(int axis) const;
    double GetYScRangeMax(int axis) const;
    /// What is shown.
    void SetYScActualRangeMin(int axis, double value);
    void SetYScActualRangeMax(int axis, double value);
    double GetYScActualRangeMin(int axis) const;
    double GetYScActualRangeMax(int axis) const;
    void SetYScDataRangeMin(int axis, double value);
    void SetYScDataRangeMax(int axis, double value);
    double GetYScDataRangeMin(int axis) const;
    double GetYScDataRangeMax(int axis) const;
    void SetYScForeColor(int axis, const QColor& colour);
    void YScSetPosition(int axis, const ScalePosition& position);

    // The time axis: what is shown.
    void SetXScActualRangeMin(double time);
    void SetXScActualRangeMax(double time);
    double GetXScActualRangeMin() const;
    double GetXScActualRangeMax() const;
    /// Offset from UTC, in seconds, of the clock that times are shown by; without one it is that
    /// of the zone that the chart was made for.
    void setUtcOffset(std::optional<int> offset);

    /// 1 suspends redrawing, 0 resumes it; calls nest.
    void SetLockUpdate(int lock);

    bool locked() const { return m_locks > 0; }

    /// Saves all display settings; RestoreTrend() puts the last saved ones back. Calls nest.
    void SaveTrend();
    void RestoreTrend();

    /// Draws the chart into a rectangle of a painter's units, of which `unitsPerInch` make an inch,
    /// with the settings as they are, on white where no background colour is set.
    void PrintTrend(QPainter& painter, const QRectF& target, double unitsPerInch) const;

  protected:
    /// What an operation has touched.
    enum class Change {
        Display, ///< settings
        Range,   ///< shown ranges
        Data     ///< points
    };

    /// Called after each change, also while updates are locked.
    virtual void chartChanged(Change) {}

    /// Called when the last lock was taken off.
    virtual void unlocked() {}

    TrendChart m_chart;

  private:
    struct CurveExtras {
        double nextY = 0;
        int rangeCompression = 0;
        int averageCompression = 0;
    };

    TrendCurve* writable(int curve);
    const TrendCurve* find(int curve) const;
    const TrendScale& scaleOrNew(int axis) const;
    CurveExtras& extras(int curve);
    template <typename Edit>
    void editScale(int axis, Edit edit, Change change = Change::Display);
    template <typename Edit>
    void editCurve(int curve, Edit edit);
    template <typename Value>
    void setSetting(Value& setting, const Value& value);

    std::vector<CurveExtras> m_extras;
    std::vector<TrendState> m_saved;
    int m_locks = 0;
};

} // namespace pellam
