#pragma once

#include "base/XAxis.h"
#include "trend/ticks/TimeTicks.h"

namespace pellam {

/// Marks and words of an X axis, whatever it counts: dates and times, elapsed time or rows. Numbers
/// have a point in them.
class XAxisTicks {
  public:
    /// `times` does it for calendars, and must outlive this.
    XAxisTicks(const XAxis& axis, const TimeTicks& times) : m_axis(axis), m_times(times) {}

    /// Marks of from..to (from below to) with at most `labels` labelled ones.
    [[nodiscard]] TimeMarks find(double from, double to, int labels) const;
    /// A value in full for a reading, with `digits` fraction digits of a second: "0:00:10.5",
    /// "1 d 2:03:04", "250.125 ms", "row 1200".
    [[nodiscard]] QString fullText(double value, int digits) const;
    /// The distance of two values: "1 d 02:03:04.5", "0:00:10", "250 ms", "12 rows".
    [[nodiscard]] QString spanText(double span, int digits) const;
    /// Widest label that find() gives, for measuring.
    [[nodiscard]] QString sampleLabel(double from, double to, int labels) const;

  private:
    [[nodiscard]] AxisTick majorTick(double value, double step, bool days) const;

    XAxis m_axis;
    const TimeTicks& m_times;
};

} // namespace pellam
