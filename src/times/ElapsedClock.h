#pragma once

#include "times/TimeMoment.h"

#include <optional>
#include <string_view>

namespace pellam {

/// Reads "h:mm:ss", "h:mm:ss.f" or "h:mm" with any number of hours, "d h:mm:ss", and "-" before
/// them; with `minutesFirst` two numbers are minutes and seconds, "m:ss.f".
[[nodiscard]] std::optional<TimeMoment> elapsedClock(std::string_view text, bool minutesFirst);

} // namespace pellam
