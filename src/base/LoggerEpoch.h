#pragma once

#include <cstdint>

namespace pellam {

/// 1989-01-01 00:00:00 UTC in seconds since 1970: loggers count their times from there.
inline constexpr std::int32_t kLoggerEpoch = 599'616'000;

} // namespace pellam
