#pragma once

#include <cstdint>

namespace pellam {

/// Calendar seconds of local midnight of a date, daylight saving taken as not in force: in summer
/// the clocks on the wall show 01:00. A date that does not exist counts on from the last one that
/// does (February 30 is March 1 or 2).
[[nodiscard]] std::int64_t standardMidnight(std::int32_t year, std::int32_t month,
                                            std::int32_t day);

} // namespace pellam
