#pragma once

#include "grid/Cell.h"
#include "grid/DecimalCell.h"
#include "grid/TimeCell.h"

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

namespace pellam {

/// Writes the texts of packed cells of one column, quickly where the usual cases hold: numbers of
/// up to eight digits, times that lie in the same minute as the one before.
class CellText {
  public:
    /// Room that write() needs, in bytes.
    static constexpr std::size_t kRoom = sizeof(CellBuffer);

    explicit CellText(char decimalSeparator) : m_decimalSeparator(decimalSeparator) {}

    /// Writes the text of a cell that does not stand in the arena; returns the end. Bytes past the
    /// end, within kRoom, are overwritten.
    char* write(Cell cell, char* out) {
        if (cell.kind() == Cell::Kind::Decimal) {
            return cell.mantissa() < kShort ? writeShort(cell, out)
                                            : DecimalCell::write(cell, m_decimalSeparator, out);
        }
        if (cell.isTime()) return writeTime(cell, out);
        if (cell.kind() == Cell::Kind::Short) {
            const std::uint64_t bytes = cell.payload() >> 3;
            std::memcpy(out, &bytes, sizeof bytes);
            return out + (cell.payload() & 7);
        }
        return out;
    }

  private:
    static constexpr std::uint64_t kShort = 100'000'000; ///< least number of nine digits
    static constexpr std::size_t kToMinute = 17;         ///< length of "2008/02/25 12:00:"
    static constexpr unsigned kSecondAt = 24;            ///< lowest bit of a time's second
    static constexpr unsigned kMinuteAt = 30;            ///< lowest bit of a time's minute

    /// The eight decimal digits of a number below 10^8, one a byte, the first in the lowest byte.
    /// Halves are divided side by side in one word: 10486 / 2^20 is 1 / 100 for numbers up to 9999,
    /// 103 / 2^10 is 1 / 10 for numbers up to 99.
    static std::uint64_t digitsOf(std::uint64_t number) {
        const std::uint64_t fours = number / 10'000 | (number % 10'000) << 32;
        const std::uint64_t hundreds = fours * 10'486 >> 20 & 0x0000'007F'0000'007F;
        const std::uint64_t twos = hundreds | (fours - 100 * hundreds) << 16;
        const std::uint64_t tens = twos * 103 >> 10 & 0x000F'000F'000F'000F;
        return tens | (twos - 10 * tens) << 8;
    }

    char* writeShort(Cell cell, char* out) const {
        *out = '-';
        out += cell.negative();
        const std::uint64_t digits = digitsOf(cell.mantissa());
        const unsigned scale = cell.scale();
        const auto zeros = static_cast<unsigned>(std::countr_zero(digits | kLastByte)) / 8;
        unsigned length = 8 - zeros;
        if (length <= scale) {
            if (scale >= 8)
                return DecimalCell::write(cell, m_decimalSeparator, out - cell.negative());
            length = scale + 1;
        }
        const std::uint64_t text = (digits | kZeros) >> (8 * (8 - length));
        std::memcpy(out, &text, sizeof text);
        if (scale == 0) return out + length;
        const unsigned whole = length - scale;
        const std::uint64_t fraction = text >> (8 * whole);
        out[whole] = m_decimalSeparator;
        std::memcpy(out + whole + 1, &fraction, sizeof fraction);
        return out + length + 1;
    }

    char* writeTime(Cell cell, char* out) {
        const std::uint64_t minute =
            cell.payload() >> kMinuteAt << 3 | static_cast<std::uint64_t>(cell.kind());
        const bool hasFraction = (cell.payload() >> 1 & 7) != 0;
        if (minute != m_minute || hasFraction) {
            char* const end = TimeCell::write(cell, out);
            std::memcpy(m_toMinute.data(), out, kToMinute);
            m_minute = minute;
            return end;
        }
        const auto second = static_cast<unsigned>(cell.payload() >> kSecondAt & 63);
        std::memcpy(out, m_toMinute.data(), kToMinute);
        out[kToMinute] = static_cast<char>('0' + second / 10);
        out[kToMinute + 1] = static_cast<char>('0' + second % 10);
        return out + kToMinute + 2;
    }

    static constexpr std::uint64_t kZeros = 0x3030'3030'3030'3030; ///< "00000000"
    static constexpr std::uint64_t kLastByte = std::uint64_t{1} << 56;

    std::uint64_t m_minute = 0; ///< what m_toMinute stands for; no time has 0
    std::array<char, kToMinute> m_toMinute{};
    char m_decimalSeparator;
};

} // namespace pellam
