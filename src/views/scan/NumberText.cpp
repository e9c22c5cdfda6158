#include "views/scan/NumberText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace pellam {

namespace {

std::string finish(const char* begin, const char* end, char decimalSeparator) {
    std::string text(begin, end);
    std::replace(text.begin(), text.end(), '.', decimalSeparator);
    return text;
}

} // namespace

std::string exactNumberText(double number, char decimalSeparator) {
    std::array<char, 32> buffer;
    char* const end = buffer.data() + buffer.size();
    // The shortest form of 10000000 would be 1e+07.
    const double size = std::abs(number);
    const bool plain = size >= 1e5 && size < 1e15;
    const auto done = plain ? std::to_chars(buffer.data(), end, number, std::chars_format::fixed)
                            : std::to_chars(buffer.data(), end, number);
    return finish(buffer.data(), done.ptr, decimalSeparator);
}

std::string numberText(double number, int digits, char decimalSeparator) {
    std::array<char, 48> buffer;
    const auto done = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number,
                                    std::chars_format::general, digits);
    return finish(buffer.data(), done.ptr, decimalSeparator);
}

} // namespace pellam
