#pragma once

#include <QTimeZone>
#include <cstdint>
#include <vector>

namespace pellam {

/// A stretch of time over which a zone's clock runs without a jump: [from, to) in seconds since
/// 1970 UTC.
struct ZoneStretch {
    double from = 0;
    double to = 0;
    std::int64_t offset = 0; ///< local minus UTC, in seconds
    QString abbreviation;
};

/// The offsets of a time zone, looked up once for a span and kept for the next question.
class ZoneOffsets {
  public:
    explicit ZoneOffsets(const QTimeZone& zone = QTimeZone::systemTimeZone()) : m_zone(zone) {}

    /// The stretches that touch from..to, in order, without a gap. Consecutive ones differ in
    /// offset.
    std::vector<ZoneStretch> stretches(double from, double to) const;

    const QTimeZone& zone() const { return m_zone; }

  private:
    void load(double from, double to) const;

    QTimeZone m_zone;
    mutable std::vector<ZoneStretch> m_known;
};

} // namespace pellam
