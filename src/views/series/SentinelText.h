#pragma once

#include "grid/Cell.h"

#include <cstdint>
#include <string_view>

namespace pellam {

/// Whether a value text contains "99999.9", "-99999.9" or "-9.00000E9" anywhere; `separator` may
/// stand for the point.
[[nodiscard]] bool containsSentinel(std::string_view text, char separator);

/// The same for the text of a packed decimal cell, decided on its digits.
[[nodiscard]] inline bool isSentinel(Cell decimal) {
    constexpr std::uint64_t kDigits = 999'999; // five nines and the one behind the point
    if (decimal.mantissa() < kDigits || decimal.scale() == 0) return false;
    std::uint64_t digits = decimal.mantissa();
    for (unsigned i = decimal.scale(); i > 1; --i)
        digits /= 10;
    return digits % (kDigits + 1) == kDigits;
}

} // namespace pellam
