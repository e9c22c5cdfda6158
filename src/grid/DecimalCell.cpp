#include "grid/DecimalCell.h"

#include <algorithm>
#include <array>

namespace pellam {

namespace {

__extension__ using Wide = unsigned __int128;

constexpr std::array<char, 200> makePairs() {
    std::array<char, 200> pairs{};
    for (std::size_t i = 0; i < 100; ++i) {
        pairs[2 * i] = static_cast<char>('0' + i / 10);
        pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
    }
    return pairs;
}

constexpr std::array<char, 200> kPairs = makePairs();

// Writes the digits of `value` so that they end at `end`, at least one; returns where they begin.
char* writeDigits(std::uint64_t value, char* end) {
    while (value >= 100) {
        end -= 2;
        std::memcpy(end, &kPairs[2 * (value % 100)], 2);
        value /= 100;
    }
    if (value >= 10) {
        end -= 2;
        std::memcpy(end, &kPairs[2 * value], 2);
    } else {
        *--end = static_cast<char>('0' + value);
    }
    return end;
}

// Position of the first byte equal to `wanted` in a word, 8 when none is.
unsigned firstByte(std::uint64_t word, std::uint64_t wanted) {
    const std::uint64_t x = word ^ wanted * detail::kOnes;
    const std::uint64_t hit = (x - detail::kOnes) & ~x & 0x80 * detail::kOnes;
    return hit ? static_cast<unsigned>(std::countr_zero(hit)) / 8 : 8;
}

} // namespace

// The same steps as pack() on a word of sixteen bytes.
bool DecimalCell::packLong(const char* begin, const char* end, char separator, Zeros zeros,
                           Cell& cell) {
    const bool negative = begin != end && *begin == '-';
    const char* const digits = begin + negative;
    const auto length = static_cast<std::size_t>(end - digits);
    if (length == 0) return false;
    if (length > 16) {
        return packPlainly({begin, static_cast<std::size_t>(end - begin)}, separator, zeros, cell);
    }
    if (digits[0] == '0' && digits[1] != separator) return false;

    std::array<std::uint64_t, 2> words;
    std::memcpy(words.data(), end - 16, 16);
    words[0] = (words[0] ^ 0x30 * detail::kOnes) & (~std::uint64_t{0} << 8 * (16 - length));
    words[1] ^= 0x30 * detail::kOnes;
    const std::uint64_t point = static_cast<unsigned char>(separator) ^ 0x30U;
    unsigned at = firstByte(words[0], point);
    if (at == 8) at += firstByte(words[1], point);
    Wide v = static_cast<Wide>(words[1]) << 64 | words[0];
    unsigned scale = 0;
    if (at < 16) {
        scale = 15 - at;
        if (at == 16 - length || (scale == 0 && zeros == Zeros::Keep)) return false;
        const Wide below = (static_cast<Wide>(1) << 8 * at) - 1;
        v = (v & ~below & ~(static_cast<Wide>(0xFF) << 8 * at)) | (v & below) << 8;
        while (zeros == Zeros::Trim && scale > 0 && (v >> 120) == 0) {
            v <<= 8;
            --scale;
        }
    }
    const auto low = static_cast<std::uint64_t>(v);
    const auto high = static_cast<std::uint64_t>(v >> 64);
    if (detail::hasNonDigit(low) || detail::hasNonDigit(high)) return false;
    const std::uint64_t mantissa =
        detail::eightDigits(low) * 100'000'000U + detail::eightDigits(high);
    if (mantissa > Cell::kMaximumMantissa) return false;
    cell = Cell::decimal(negative, scale, mantissa);
    return true;
}

bool DecimalCell::packPlainly(std::string_view text, char separator, Zeros zeros, Cell& cell) {
    const bool negative = !text.empty() && text.front() == '-';
    if (negative) text.remove_prefix(1);
    const std::size_t point = text.find(separator);
    if (point == 0 || text.empty()) return false;
    if (point != std::string_view::npos) {
        if (point + 1 == text.size() && zeros == Zeros::Keep) return false;
        if (zeros == Zeros::Trim) {
            while (text.back() == '0')
                text.remove_suffix(1);
            if (text.size() == point + 1) text.remove_suffix(1);
        }
    }
    if (text.size() > 1 && text[0] == '0' && text[1] != separator) return false;
    std::uint64_t mantissa = 0;
    unsigned scale = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (i == point) continue;
        const auto digit = static_cast<unsigned>(text[i] - '0');
        if (digit > 9 || mantissa > Cell::kMaximumMantissa / 10) return false;
        mantissa = mantissa * 10 + digit;
        scale += i > point ? 1 : 0;
    }
    if (mantissa > Cell::kMaximumMantissa || scale > Cell::kMaximumScale) return false;
    cell = Cell::decimal(negative, scale, mantissa);
    return true;
}

char* DecimalCell::write(Cell cell, char separator, char* out) {
    *out = '-';
    out += cell.negative();
    const unsigned scale = cell.scale();
    std::array<char, 24> digits;
    char* const end = digits.data() + digits.size();
    char* begin = writeDigits(cell.mantissa(), end);
    while (end - begin <= static_cast<std::ptrdiff_t>(scale))
        *--begin = '0';
    const auto whole = static_cast<std::size_t>(end - begin) - scale;
    std::memcpy(out, begin, whole);
    out += whole;
    if (scale > 0) {
        *out++ = separator;
        std::memcpy(out, begin + whole, scale);
        out += scale;
    }
    return out;
}

} // namespace pellam
