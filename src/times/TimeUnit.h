#pragma once

#include "times/TimeMoment.h"

#include <cstddef>
#include <optional>
#include <string_view>

namespace pellam {

/// A unit that time is counted in.
struct TimeUnit {
    int exponent = 0; ///< of ten, of the unit in seconds: -3 for milliseconds
    int factor = 1;   ///< seconds of a unit longer than a second
};

/// A number's own unit: what "250 ms" has behind its number.
struct UnitBehind {
    std::string_view
        name; ///< as time forms have it: "ms", and "us" for "µs"; empty when there is none
    std::size_t at = 0; ///< where it begins, the length of the text when there is none
};

[[nodiscard]] UnitBehind unitBehind(std::string_view text);

/// What a name such as "epoch-ms" or "elapsed-h" counts in; nothing for other names.
[[nodiscard]] std::optional<TimeUnit> timeUnit(std::string_view name);

/// The moment of a count such as "1354320000.25", "-1.5E-3" or "12,5", exact to the nanosecond;
/// nothing for other texts and for counts that no moment holds.
[[nodiscard]] std::optional<TimeMoment> countedMoment(std::string_view text, TimeUnit unit);

} // namespace pellam
