#pragma once

#include <cstdint>
#include <string_view>

namespace pellam {

/// The decimal integer at the start of the text, after spaces and with an optional sign. Garbage
/// reads as 0; what does not fit gives the nearest 32-bit number.
[[nodiscard]] std::int32_t leadingInteger(std::string_view text);

/// The decimal number at the start of the text, after spaces, by the C locale's rules. Garbage
/// and what does not fit read as 0.
[[nodiscard]] double leadingDouble(std::string_view text);

/// The hexadecimal number at the start of the text, after spaces. Garbage and what does not fit
/// into 32 bits read as 0.
[[nodiscard]] std::uint32_t leadingHexadecimal(std::string_view text);

} // namespace pellam
