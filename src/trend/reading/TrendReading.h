#pragma once

#include "trend/curves/CurveReader.h"
#include "trend/curves/TrendChart.h"
#include "trend/ticks/XAxisTicks.h"

#include <map>
#include <optional>

namespace pellam {

struct TrendMarks;
struct ReadoutContent;
class TrendLayout;

/// Puts values of the drawn curves into words: at the crosshair, between the cursors, in the lasso.
/// A curve's value at a time is that of its last sample at or before it.
class TrendReading {
  public:
    TrendReading(const TrendChart& chart, const TimeTicks& times);

    /// Text after a curve's values; without one the title of its scale.
    void setUnit(int curve, const QString& unit);
    QString unit(int curve) const;

    /// Fraction digits of times; -1 = what the points' times need.
    void setTimeDigits(int digits) { m_digits = digits; }

    int timeDigits() const;

    /// The points have changed.
    void forgetPoints() {
        m_foundDigits.reset();
        m_between.clear();
    }

    QString timeText(double time) const;
    QString spanText(double seconds) const;
    /// As short as it can be told apart from every other double, but values that no decimal text
    /// of up to 15 digits gave are rounded to 10 digits.
    static QString valueText(double value);
    /// The same with the chart's decimal point.
    QString number(double value) const;
    /// Numbers of the drawn curves, in order.
    std::vector<int> drawnCurves() const;
    std::optional<CurveSample> sample(int curve, double time) const;
    /// "12.5 mm", or "no value".
    QString valueAt(int curve, double time) const;

    /// The table of crosshair and cursors; empty without either.
    ReadoutContent table(const TrendMarks& marks) const;
    /// Time span and value spans of a rectangle that selects time, values or both.
    ReadoutContent spans(const QRectF& rect, const TrendLayout& layout, bool time,
                         bool values) const;

  private:
    /// Statistics between two times, kept while only the crosshair moves.
    class Between {
      public:
        const CurveStatistics& of(int curve, double from, double to, const TrendChart& chart);

        void clear() { m_found.clear(); }

      private:
        double m_from = 0;
        double m_to = 0;
        std::map<int, CurveStatistics> m_found;
    };

    XAxisTicks axis() const { return {m_chart.state.xAxis, m_times}; }

    void addTimes(ReadoutContent& content, const TrendMarks& marks) const;
    QStringList cells(int curve, const TrendMarks& marks, double heading) const;
    void addBetween(QStringList& cells, int curve, double a, double b) const;
    int findDigits() const;
    void noteTimes(const TrendMarks& marks) const;
    void noteSample(const std::optional<CurveSample>& sample) const;

    const TrendChart& m_chart;
    const TimeTicks& m_times;
    std::vector<QString> m_units;
    int m_digits = -1;
    mutable std::optional<int> m_foundDigits;
    mutable Between m_between;
};

} // namespace pellam
