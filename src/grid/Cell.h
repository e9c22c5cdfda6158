#pragma once

#include "grid/CellColour.h"

#include <array>
#include <cstdint>

namespace pellam {

/// Room for the text of a cell that is stored in packed form.
using CellBuffer = std::array<char, 48>;

/// One cell in eight bytes: the colour of its text and either the text itself, packed so that it
/// comes back character for character, or where it stands in the text arena.
///
/// From the low end: 2 bits colour, 3 bits kind, 59 bits that depend on the kind:
/// - decimal: 1 bit sign, 5 bits digits after the point, 53 bits of all digits as one number;
/// - time: 1 bit fraction separator (0 point, 1 comma), 3 bits fraction digits, 20 bits fraction,
///   then second 6, minute 6, hour 5, day 5, month 4, year - 1900 9 bits;
/// - short: 3 bits length, seven bytes;
/// - arena: 24 bits length (all of them set: see TextArena::kLong), 35 bits offset.
class Cell {
  public:
    enum class Kind : std::uint8_t {
        Empty = 0,
        Decimal = 1,
        TimeSlash = 2,      ///< 2008/02/25 12:00:00
        TimeDash = 3,       ///< 2008-02-25 12:00:00
        TimeDashLetter = 4, ///< 2008-02-25T12:00:00
        Short = 5,          ///< any text of one to seven bytes
        Arena = 6,
    };

    constexpr Cell() = default;

    constexpr Cell(Kind kind, std::uint64_t payload)
        : m_bits(payload << 5 | static_cast<std::uint64_t>(kind) << 2) {}

    [[nodiscard]] constexpr Kind kind() const { return static_cast<Kind>(m_bits >> 2 & 7); }

    [[nodiscard]] constexpr std::uint64_t payload() const { return m_bits >> 5; }

    [[nodiscard]] constexpr bool isEmpty() const { return kind() == Kind::Empty; }

    [[nodiscard]] constexpr bool isTime() const {
        return kind() >= Kind::TimeSlash && kind() <= Kind::TimeDashLetter;
    }

    [[nodiscard]] constexpr CellColour colour() const {
        return static_cast<CellColour>(m_bits & 3);
    }

    [[nodiscard]] constexpr Cell withColour(CellColour colour) const {
        Cell cell;
        cell.m_bits = (m_bits & ~std::uint64_t{3}) | static_cast<std::uint64_t>(colour);
        return cell;
    }

    friend constexpr bool operator==(Cell, Cell) = default;

    // Decimal numbers.
    static constexpr std::uint64_t kMaximumMantissa = (std::uint64_t{1} << 53) - 1;
    static constexpr unsigned kMaximumScale = 22; ///< 10^22 is the largest exact power in a double

    static constexpr Cell decimal(bool negative, unsigned scale, std::uint64_t mantissa) {
        return {Kind::Decimal, mantissa << 6 | scale << 1 | (negative ? 1U : 0U)};
    }

    [[nodiscard]] constexpr bool negative() const { return (payload() & 1) != 0; }

    [[nodiscard]] constexpr unsigned scale() const {
        return static_cast<unsigned>(payload() >> 1 & 31);
    }

    [[nodiscard]] constexpr std::uint64_t mantissa() const { return m_bits >> 11; }

    // Texts in the arena.
    static constexpr Cell arena(std::uint64_t offset, std::uint64_t length) {
        return {Kind::Arena, offset << 24 | length};
    }

    [[nodiscard]] constexpr std::uint64_t arenaOffset() const { return payload() >> 24; }

    [[nodiscard]] constexpr std::uint64_t arenaLength() const {
        return payload() & ((std::uint64_t{1} << 24) - 1);
    }

  private:
    std::uint64_t m_bits = 0;
};

static_assert(sizeof(Cell) == 8);

} // namespace pellam
