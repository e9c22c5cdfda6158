#include "base/LeadingNumber.h"

#include <charconv>
#include <limits>

namespace pellam {

namespace {

std::string_view afterSpaces(std::string_view text) {
    const std::size_t begin = text.find_first_not_of(" \t\r\n\v\f");
    return begin == std::string_view::npos ? std::string_view() : text.substr(begin);
}

// The C++ conversions know no plus sign.
std::string_view afterPlus(std::string_view text) {
    if (text.size() > 1 && text[0] == '+' && text[1] != '-') text.remove_prefix(1);
    return text;
}

} // namespace

std::int32_t leadingInteger(std::string_view text) {
    text = afterPlus(afterSpaces(text));
    std::int32_t value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec != std::errc::result_out_of_range) return value;
    return text[0] == '-' ? std::numeric_limits<std::int32_t>::min()
                          : std::numeric_limits<std::int32_t>::max();
}

double leadingDouble(std::string_view text) {
    text = afterPlus(afterSpaces(text));
    double value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    return result.ec == std::errc() ? value : 0;
}

std::uint32_t leadingHexadecimal(std::string_view text) {
    text = afterSpaces(text);
    if (text.starts_with("0x") || text.starts_with("0X")) text.remove_prefix(2);
    std::uint32_t value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value, 16);
    return result.ec == std::errc() ? value : 0;
}

} // namespace pellam
