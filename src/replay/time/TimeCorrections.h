#pragma once

#include "base/LoggerEpoch.h"

#include <cstdint>

namespace pellam {

/// Seconds that turn a logger's numeric time stamps into calendar time, fixed at start-up.
struct TimeCorrections {
    /// Where numeric time stamps count from, in calendar seconds.
    static constexpr std::int32_t dtOffset = kLoggerEpoch;

    std::int32_t standardBias = 0; ///< seconds west of UTC in standard time
    std::int32_t daylightBias =
        0; ///< minus the zone's daylight shift while that is in force, else 0

    /// The corrections of the C library's zone (TZ) at a moment; `now` in calendar seconds.
    static TimeCorrections fromZone(std::int64_t now);
};

} // namespace pellam
