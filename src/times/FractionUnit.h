#pragma once

namespace pellam {

/// What the digits behind the seconds of a row's time mean.
enum class FractionUnit {
    DecimalPlaces, ///< .25 is a quarter of a second
    Microseconds,  ///< .25 is 25 microseconds, as loggers write their sub-second count
};

} // namespace pellam
