#pragma once

#include <string>

namespace pellam {

/// The shortest text that gives the number back, with this character before the decimals.
std::string exactNumberText(double number, char decimalSeparator);

/// The number rounded to at most so many significant digits, without trailing zeros.
std::string numberText(double number, int digits, char decimalSeparator);

} // namespace pellam
