#include "logger/FloatText.h"

#include <array>
#include <bit>
#include <charconv>
#include <cstring>

namespace pellam {

namespace {

constexpr std::uint32_t kFractionBits = 23;
constexpr std::uint32_t kHiddenBit = 1U << kFractionBits;
constexpr std::uint32_t kUnit = 100'000; // five decimals
constexpr int kBias = 127 + 23;          // of the exponent that goes with a whole mantissa

/// "00" to "99".
constexpr auto kPairs = [] {
    std::array<char, 200> pairs{};
    for (std::size_t i = 0; i < 100; ++i) {
        pairs[2 * i] = static_cast<char>('0' + i / 10);
        pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
    }
    return pairs;
}();

char* writePair(std::uint32_t pair, char* out) {
    std::memcpy(out, &kPairs[std::size_t{2} * pair], 2);
    return out + 2;
}

char* writeWhole(std::uint64_t value, char* out) {
    if (value < 10) {
        *out = static_cast<char>('0' + value);
        return out + 1;
    }
    if (value < 100) return writePair(static_cast<std::uint32_t>(value), out);
    if (value < 10000) {
        const auto number = static_cast<std::uint32_t>(value);
        if (value < 1000) {
            *out = static_cast<char>('0' + number / 100);
            return writePair(number % 100, out + 1);
        }
        return writePair(number % 100, writePair(number / 100, out));
    }
    return std::to_chars(out, out + 20, value).ptr;
}

char* writeDecimals(std::uint32_t value, char decimal, char* out) {
    *out++ = decimal;
    *out++ = static_cast<char>('0' + value / 10000);
    return writePair(value % 100, writePair(value / 100 % 100, out));
}

char* writeSpecial(bool negative, bool isNan, char* out) {
    // A field of five characters, flush right.
    std::memcpy(out, negative ? " -" : "  ", 2);
    std::memcpy(out + 2, isNan ? "nan" : "inf", 3);
    return out + 5;
}

} // namespace

char* FloatText::write(std::uint32_t bits, char decimal, char* out) {
    const bool negative = (bits >> 31) != 0;
    const auto exponentField = static_cast<int>(bits >> kFractionBits & 0xFF);
    const std::uint32_t fraction = bits & (kHiddenBit - 1);
    if (exponentField == 0xFF) return writeSpecial(negative, fraction != 0, out);
    const std::uint64_t mantissa = exponentField ? fraction | kHiddenBit : fraction;
    const int exponent = (exponentField ? exponentField : 1) - kBias;
    if (negative) *out++ = '-';
    if (exponent >= 0) {
        // A whole number; up to 2^63 it fits a word.
        if (exponent < 40) {
            out = writeWhole(mantissa << exponent, out);
        } else {
            const float magnitude = std::bit_cast<float>(bits & 0x7FFFFFFFU);
            out = std::to_chars(out, out + kRoom - 8, magnitude, std::chars_format::fixed, 0).ptr;
        }
        return writeDecimals(0, decimal, out);
    }
    // The product has at most 41 bits: shifted by more it is below a half.
    const int shift = -exponent;
    std::uint64_t scaled = 0;
    if (shift < 42) {
        const std::uint64_t product = mantissa * kUnit;
        const std::uint64_t half = std::uint64_t{1} << (shift - 1);
        scaled = product >> shift;
        const std::uint64_t rest = product & (2 * half - 1);
        scaled += rest > half || (rest == half && (scaled & 1) != 0);
    }
    out = writeWhole(scaled / kUnit, out);
    return writeDecimals(static_cast<std::uint32_t>(scaled % kUnit), decimal, out);
}

} // namespace pellam
