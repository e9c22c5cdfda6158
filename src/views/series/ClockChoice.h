#pragma once

#include <cstdint>

namespace pellam {

/// The clock by which the rows of a file were stamped, and which the chart shows.
enum class ClockChoice : std::uint8_t {
    Computer,         ///< that of this computer's time zone, put forward and back with it
    NoDaylightSaving, ///< that of the zone's winter, all year round
    Utc
};

} // namespace pellam
