#pragma once

#include "views/series/ClockChoice.h"

#include <cstdint>
#include <optional>

namespace pellam {

/// Turns local calendar seconds into seconds since 1970 UTC: by the C library's zone rules, which
/// are asked once a quarter of an hour of data and not once a row, or by one offset from UTC.
class ZoneClock {
  public:
    explicit ZoneClock(ClockChoice choice = ClockChoice::Computer) : m_choice(choice) {}

    /// The two moments that a local time may stand for; the same one outside a repeated hour. A
    /// local time that a forward jump leaves out counts as if the clock had not jumped yet.
    struct Moments {
        std::int64_t earlier;
        std::int64_t later;
    };

    /// `local`: seconds since 1970-01-01 00:00:00 as a wall clock shows them.
    Moments moments(std::int64_t local);

    /// Whether it was asked for a local time that the zone's clock leaves out: it is none of that
    /// clock's then.
    [[nodiscard]] bool sawSkipped() const { return m_sawSkipped; }

    /// The one offset from UTC, in seconds, by which the clock goes; nothing when it is the zone's.
    /// `near`: a moment of the data.
    std::optional<std::int64_t> offset(std::int64_t near);

  private:
    void enterWindow(std::int64_t start);

    ClockChoice m_choice;
    std::optional<std::int64_t> m_offset;
    std::int64_t m_windowStart = INT64_MIN;
    std::int64_t m_before = 0; ///< local time minus UTC of the earlier moment, and of the later one
    std::int64_t m_after = 0;
    bool m_sawSkipped = false;
};

} // namespace pellam
