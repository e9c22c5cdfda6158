#pragma once

#include "grid/Cell.h"

#include <cstdint>
#include <string_view>

namespace pellam {

/// Time stamps with four-digit years, two-digit fields and up to six fraction digits, and their
/// packed cells: "2008/02/25 12:00:00", "2008-02-25 12:00:00.25", "2008-02-25T12:00:00,000488".
struct TimeCell {
    /// The fields as the text has them; no calendar is applied (30 February is kept).
    struct Fields {
        int year = 0;
        int month = 0;
        int day = 0;
        int hour = 0;
        int minute = 0;
        int second = 0;
        std::uint32_t fraction = 0; ///< the fraction's digits as a number
        unsigned fractionDigits = 0;

        /// The fraction in microseconds.
        [[nodiscard]] std::uint32_t microseconds() const;
    };

    /// Packs a time stamp; false (and `cell` untouched) for any other text and for years before
    /// 1900 or after 2411.
    static bool pack(std::string_view text, Cell& cell);

    /// Writes the text of a time cell, at most 26 characters; returns the end.
    static char* write(Cell cell, char* out);

    [[nodiscard]] static Fields fields(Cell cell);

    /// Whether a cell is a time whose fraction stands behind a comma.
    [[nodiscard]] static constexpr bool hasComma(Cell cell) {
        return cell.isTime() && (cell.payload() & 1) != 0;
    }

  private:
    static constexpr int kFirstYear = 1900;
};

inline TimeCell::Fields TimeCell::fields(Cell cell) {
    std::uint64_t packed = cell.payload();
    const auto take = [&packed](unsigned bits) {
        const auto value = static_cast<unsigned>(packed & ((std::uint64_t{1} << bits) - 1));
        packed >>= bits;
        return value;
    };
    Fields fields;
    take(1);
    fields.fractionDigits = take(3);
    fields.fraction = take(20);
    fields.second = static_cast<int>(take(6));
    fields.minute = static_cast<int>(take(6));
    fields.hour = static_cast<int>(take(5));
    fields.day = static_cast<int>(take(5));
    fields.month = static_cast<int>(take(4));
    fields.year = static_cast<int>(take(9)) + kFirstYear;
    return fields;
}

inline std::uint32_t TimeCell::Fields::microseconds() const {
    std::uint32_t value = fraction;
    for (unsigned digits = fractionDigits; value > 0 && digits < 6; ++digits)
        value *= 10;
    return value;
}

} // namespace pellam
