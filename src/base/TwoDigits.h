#pragma once

#include <concepts>

namespace pellam {

/// Writes a number from 0 to 99 as two digits; gives the place after them.
template <std::integral Number>
constexpr char* writeTwo(char* out, Number value) {
    out[0] = static_cast<char>('0' + value / 10);
    out[1] = static_cast<char>('0' + value % 10);
    return out + 2;
}

} // namespace pellam
