#pragma once

#include <cstdint>
#include <string_view>

namespace pellam {

/// What a field looks like on its own. Times are told by their shape alone: whether there is such a
/// date, and in which order its numbers stand, takes a whole column.
enum class FieldKind : std::uint8_t {
    Empty,
    Missing, ///< a text that stands for no value: "NaN", "---", "null"
    Number,  ///< with a decimal point, an exponent, or whole
    Comma,   ///< a number with a decimal comma
    Time,    ///< a date, a time of day or both
    Text,
};

/// The kind of a field without blanks around it.
[[nodiscard]] FieldKind fieldKindOf(std::string_view field);

/// Whether a field is one of the texts that stand for no value.
[[nodiscard]] bool isMissingText(std::string_view field);

/// Whether a field holds a reading: a number or a time.
[[nodiscard]] constexpr bool isReading(FieldKind kind) {
    return kind >= FieldKind::Number && kind <= FieldKind::Time;
}

/// Whether a field holds a number.
[[nodiscard]] constexpr bool isNumber(FieldKind kind) {
    return kind == FieldKind::Number || kind == FieldKind::Comma;
}

/// Whether there is nothing to read in a field, whatever its column holds.
[[nodiscard]] constexpr bool isAbsent(FieldKind kind) {
    return kind <= FieldKind::Missing;
}

} // namespace pellam
