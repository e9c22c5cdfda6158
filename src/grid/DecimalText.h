#pragma once

#include <optional>
#include <string_view>

namespace pellam {

/// Value of a decimal number: an optional sign, digits with at most one `separator` (or '.') among
/// them, and optionally an exponent. Blanks around it are passed over; nothing for any other text
/// and for numbers beyond a double's range.
[[nodiscard]] std::optional<double> parseDecimal(std::string_view text, char separator);

} // namespace pellam
