#pragma once

#include <cstdint>

namespace pellam {

/// Turns local calendar seconds into seconds since 1970 UTC by the C library's zone rules, which
/// are asked once a quarter of an hour of data and not once a row.
class ZoneClock {
  public:
    /// The two moments that a local time may stand for; the same one outside a repeated hour. A
    /// local time that a forward jump leaves out counts as if the clock had not jumped yet.
    struct Moments {
        std::int64_t earlier;
        std::int64_t later;
    };

    /// `local`: seconds since 1970-01-01 00:00:00 as a wall clock shows them.
    Moments moments(std::int64_t local);

  private:
    void enterWindow(std::int64_t start);

    std::int64_t m_windowStart = INT64_MIN;
    std::int64_t m_before = 0; ///< local time minus UTC of the earlier moment, and of the later one
    std::int64_t m_after = 0;
};

} // namespace pellam
