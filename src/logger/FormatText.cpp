#include "logger/FormatText.h"

#include <algorithm>
#include <charconv>
#include <string>

namespace pellam {

namespace {

constexpr std::string_view kFlags = "-+ #0"; // in the order of the flags' bits
constexpr int kMostDigits = 64;

/// Takes a number of at most 64 off the front; false when it is larger.
bool takeNumber(std::string_view& text, int& number) {
    number = 0;
    while (!text.empty() && text.front() >= '0' && text.front() <= '9') {
        number = number * 10 + (text.front() - '0');
        if (number > kMostDigits) return false;
        text.remove_prefix(1);
    }
    return true;
}

char* copyTo(char* out, std::string_view text) {
    return std::copy(text.begin(), text.end(), out);
}

} // namespace

FormatText::FormatText(std::string_view text) {
    text = text.substr(0, std::min(text.find('\0'), kMaximumSize));
    const std::size_t percent = text.find('%');
    if (percent != std::string_view::npos) {
        if (text.find('%', percent + 1) != std::string_view::npos) return;
        if (!parseConversion(text.substr(percent + 1))) return;
        m_after = static_cast<std::uint8_t>(m_after + percent + 1);
    }
    m_before = static_cast<std::uint8_t>(std::min(percent, text.size()));
    m_size = static_cast<std::uint8_t>(text.size());
    std::copy(text.begin(), text.end(), m_text.begin());
}

bool FormatText::parseConversion(std::string_view conversion) {
    const char* const begin = conversion.data();
    for (std::size_t flag; !conversion.empty(); conversion.remove_prefix(1)) {
        flag = kFlags.find(conversion.front());
        if (flag == std::string_view::npos) break;
        m_flags = static_cast<std::uint8_t>(m_flags | 1U << flag);
    }
    int number = 0;
    if (!takeNumber(conversion, number)) return false;
    m_width = static_cast<std::uint8_t>(number);
    if (!conversion.empty() && conversion.front() == '.') {
        conversion.remove_prefix(1);
        if (!takeNumber(conversion, number)) return false;
        m_precision = static_cast<std::int8_t>(number);
    }
    if (conversion.empty() ||
        std::string_view("diuxXos").find(conversion.front()) == std::string_view::npos)
        return false;
    m_conversion = conversion.front();
    m_after = static_cast<std::uint8_t>(conversion.data() + 1 - begin);
    return true;
}

std::string_view FormatText::after() const {
    if (m_conversion == '\0') return {};
    return {m_text.data() + m_after, static_cast<std::size_t>(m_size - m_after)};
}

bool FormatText::formatsTexts() const {
    return m_size > 0 && (m_conversion == 's' || m_conversion == '\0');
}

char* FormatText::writeInteger(std::int32_t value, char* out) const {
    if (m_size == 0 || m_conversion == 's') return std::to_chars(out, out + kRoom, value).ptr;
    out = copyTo(out, before());
    if (m_conversion == '\0') return out;
    const bool isSigned = m_conversion == 'd' || m_conversion == 'i';
    auto magnitude = static_cast<std::uint32_t>(value);
    if (isSigned && value < 0) magnitude = 0U - magnitude;
    const int base = m_conversion == 'o' ? 8 : m_conversion == 'x' || m_conversion == 'X' ? 16 : 10;
    char digits[16];
    char* end = std::to_chars(digits, digits + sizeof digits, magnitude, base).ptr;
    if (m_precision == 0 && magnitude == 0) end = digits;
    if (m_conversion == 'X')
        std::transform(digits, end, digits,
                       [](char c) { return c >= 'a' ? static_cast<char>(c - 32) : c; });
    const auto count = static_cast<std::size_t>(end - digits);
    auto zeros = static_cast<std::size_t>(std::max(0, m_precision - static_cast<int>(count)));
    // '#' makes an octal number begin with a zero.
    if (base == 8 && has(Alternate) && zeros == 0 && (count == 0 || digits[0] != '0')) zeros = 1;
    const std::string_view sign = signOf(value, magnitude == 0);
    if (has(Zero) && !has(Left) && m_precision < 0 && m_width > sign.size() + count + zeros)
        zeros = m_width - sign.size() - count;
    return copyTo(writeField(sign, zeros, {digits, count}, out), after());
}

std::string_view FormatText::signOf(std::int32_t value, bool isZero) const {
    switch (m_conversion) {
    case 'd':
    case 'i':
        if (value < 0) return "-";
        return has(Plus) ? "+" : has(Space) ? " " : "";
    case 'x':
        return has(Alternate) && !isZero ? "0x" : "";
    case 'X':
        return has(Alternate) && !isZero ? "0X" : "";
    default:
        return {};
    }
}

char* FormatText::writeText(std::string_view value, char* out) const {
    out = copyTo(out, before());
    if (m_conversion == '\0') return out;
    if (m_precision >= 0) value = value.substr(0, static_cast<std::size_t>(m_precision));
    return copyTo(writeField({}, 0, value, out), after());
}

char* FormatText::writeField(std::string_view sign, std::size_t zeros, std::string_view body,
                             char* out) const {
    const std::size_t size = sign.size() + zeros + body.size();
    const std::size_t padding = m_width > size ? m_width - size : 0;
    if (!has(Left)) out = std::fill_n(out, padding, ' ');
    out = std::fill_n(copyTo(out, sign), zeros, '0');
    out = copyTo(out, body);
    return has(Left) ? std::fill_n(out, padding, ' ') : out;
}

} // namespace pellam
