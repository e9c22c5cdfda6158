#pragma once

#include "grid/Cell.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace pellam {

/// Decimal numbers and their packed cells.
struct DecimalCell {
    /// What becomes of "12.500": kept, or shortened to "12.5" (and "3.000" or "3." to "3").
    enum class Zeros { Keep, Trim };

    /// Packs a plain decimal text: an optional '-', digits without needless leading zeros, and
    /// optionally `separator` and more digits. False (and `cell` untouched) for any other text and
    /// for more digits than the packed form holds. Reads up to 16 bytes before `end`, of which
    /// those before `begin` may hold anything.
    static bool pack(const char* begin, const char* end, char separator, Zeros zeros, Cell& cell);

    /// The same result for any text, one character at a time.
    static bool packPlainly(std::string_view text, char separator, Zeros zeros, Cell& cell);

    /// Writes the text of a decimal cell, at most 25 characters; returns the end.
    static char* write(Cell cell, char separator, char* out);

    /// Correctly rounded value of a decimal cell: mantissa and power of ten are both exact, so one
    /// division rounds once (W. D. Clinger, "How to read floating point numbers accurately", 1990).
    static double value(Cell cell) {
        const double magnitude = static_cast<double>(cell.mantissa()) / kPowers[cell.scale()];
        return cell.negative() ? -magnitude : magnitude;
    }

    static constexpr double kPowers[Cell::kMaximumScale + 1] = {
        1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
        1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

  private:
    static bool packLong(const char* begin, const char* end, char separator, Zeros zeros,
                         Cell& cell);
};

namespace detail {

inline constexpr std::uint64_t kOnes = 0x0101010101010101U;

/// Value of eight decimal digits, one a byte (0 to 9), the first in the lowest byte.
inline std::uint64_t eightDigits(std::uint64_t v) {
    v = v * 10 + (v >> 8);
    return ((v & 0x000000FF000000FFU) * 0x000F424000000064U +
            ((v >> 16) & 0x000000FF000000FFU) * 0x0000271000000001U) >>
           32;
}

/// Whether any byte is not 0 to 9.
inline bool hasNonDigit(std::uint64_t v) {
    return (((v + 0x76 * kOnes) | v) & (0x80 * kOnes)) != 0;
}

} // namespace detail

inline bool DecimalCell::pack(const char* begin, const char* end, char separator, Zeros zeros,
                              Cell& cell) {
    static_assert(std::endian::native == std::endian::little, "words are read low byte first");
    const bool negative = *begin == '-';
    const char* const digits = begin + negative;
    const auto length = static_cast<std::size_t>(end - digits);
    if (length - 1 >= 8) return packLong(begin, end, separator, zeros, cell);
    if (digits[0] == '0' && length > 1 && digits[1] != separator) return false;

    std::uint64_t v;
    std::memcpy(&v, end - 8, 8);
    v = (v ^ 0x30 * detail::kOnes) & (~std::uint64_t{0} << 8 * (8 - length));
    const std::uint64_t point = static_cast<unsigned char>(separator) ^ 0x30U;
    const std::uint64_t x = v ^ point * detail::kOnes;
    const std::uint64_t hit = (x - detail::kOnes) & ~x & 0x80 * detail::kOnes;
    unsigned scale = 0;
    if (hit != 0) {
        const auto at = static_cast<unsigned>(std::countr_zero(hit)) / 8;
        scale = 7 - at;
        if (at == 8 - length || (scale == 0 && zeros == Zeros::Keep)) return false;
        const std::uint64_t below = (std::uint64_t{1} << 8 * at) - 1;
        v = (v & ~below & ~(std::uint64_t{0xFF} << 8 * at)) | (v & below) << 8;
        if (zeros == Zeros::Trim) {
            const auto zeroBytes = static_cast<unsigned>(std::countl_zero(v | 1)) / 8;
            const unsigned cut = zeroBytes < scale ? zeroBytes : scale;
            v <<= 8 * cut;
            scale -= cut;
        }
    }
    if (detail::hasNonDigit(v)) return false;
    cell = Cell::decimal(negative, scale, detail::eightDigits(v));
    return true;
}

} // namespace pellam
