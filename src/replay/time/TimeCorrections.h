#pragma once

#include <cstdint>

namespace pellam {

/// Seconds that turn a logger's numeric time stamps into calendar time, fixed at start-up.
struct TimeCorrections {
    /// 1989-01-01 00:00:00 in calendar seconds: numeric time stamps count from there.
    static constexpr std::int32_t dtOffset = 599'616'000;

    std::int32_t standardBias = 0; ///< seconds west of UTC in standard time
    std::int32_t daylightBias =
        0; ///< minus the zone's daylight shift while that is in force, else 0

    /// The corrections of the C library's zone (TZ) at a moment; `now` in calendar seconds.
    static TimeCorrections fromZone(std::int64_t now);
};

} // namespace pellam
