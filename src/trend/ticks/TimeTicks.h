#pragma once

#include "trend/ticks/AxisTick.h"
#include "trend/ticks/ZoneOffsets.h"

#include <functional>
#include <optional>
#include <vector>

namespace pellam {

/// A moment at which the local clock jumps.
struct ClockChange {
    double time = 0;
    int seconds = 0; ///< how far it is put forward (back when negative)
    QString label;   ///< such as "+1 h EDT"
};

/// Marks of a time axis, and the clock changes to be shown with them.
struct TimeMarks {
    std::vector<AxisTick> ticks;
    std::vector<ClockChange> changes; ///< only while marks are closer than a day
    QString start; ///< context of the axis' start, as marks have it: the date; may be empty
    QString step;  ///< how far labelled marks stand apart: "2 h"
};

/// Marks of a time axis at round local times: microseconds to seconds, minutes, hours, days, weeks,
/// months and years. An hour that a daylight change repeats gets its marks twice, a missing one
/// gets none.
class TimeTicks {
  public:
    explicit TimeTicks(const QTimeZone& zone = QTimeZone::systemTimeZone())
        : m_zone(zone),
          m_offsets(zone) {}

    /// From now on local times are those of one offset from UTC, in seconds; without one those of
    /// the zone again.
    void setUtcOffset(std::optional<int> offset);

    /// Marks of from..to (seconds since 1970 UTC, from below to) with at most `labels` labelled
    /// ones.
    TimeMarks find(double from, double to, int labels) const;
    /// A time in full for a reading: "2024-03-10 14:05:09.250", with `digits` fraction digits (0 to
    /// 6); in an hour that the clock repeats, with the zone's name behind it.
    QString fullText(double time, int digits) const;
    /// A span of time for a reading: "1 d 02:03:04.5", with `digits` fraction digits.
    static QString spanText(double seconds, int digits);
    /// Widest label that find() gives for a span at this density, for measuring.
    static QString sampleLabel(double span, int labels);

  private:
    QTimeZone m_zone;
    std::optional<int> m_utcOffset;
    ZoneOffsets m_offsets;
};

} // namespace pellam
