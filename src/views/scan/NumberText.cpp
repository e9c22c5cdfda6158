#include "views/scan/NumberText.h"

#include <algorithm>
#include <array>
#include <charconv>

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
    const auto done = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number);
    return finish(buffer.data(), done.ptr, decimalSeparator);
}

std::string numberText(double number, int digits, char decimalSeparator) {
    std::array<char, 48> buffer;
    const auto done = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number,
                                    std::chars_format::general, digits);
    return finish(buffer.data(), done.ptr, decimalSeparator);
}

} // namespace pellam
