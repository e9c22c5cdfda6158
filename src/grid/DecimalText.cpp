#include "grid/DecimalText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string>

namespace pellam {

namespace {

std::string_view trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

} // namespace

std::optional<double> parseDecimal(std::string_view text, char separator) {
    text = trimmed(text);
    if (!text.empty() && text.front() == '+') {
        text.remove_prefix(1);
        if (!text.empty() && text.front() == '-') return {};
    }
    // from_chars would also take "inf" and "nan".
    if (text.find_first_of("0123456789") == std::string_view::npos ||
        text.find_first_not_of("+-.,0123456789eE") != std::string_view::npos) {
        return {};
    }
    double value = 0;
    const auto read = [&value](std::string_view digits) {
        const auto [end, error] =
            std::from_chars(digits.data(), digits.data() + digits.size(), value);
        return error == std::errc() && end == digits.data() + digits.size();
    };
    if (separator == '.' || text.find(separator) == std::string_view::npos) {
        return read(text) ? std::optional(value) : std::nullopt;
    }
    std::array<char, 64> buffer;
    std::string longText;
    char* copy = buffer.data();
    if (text.size() > buffer.size()) {
        longText.resize(text.size());
        copy = longText.data();
    }
    if (text.find('.') != std::string_view::npos) return {};
    std::replace_copy(text.begin(), text.end(), copy, separator, '.');
    return read({copy, text.size()}) ? std::optional(value) : std::nullopt;
}

} // namespace pellam
