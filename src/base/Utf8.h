#pragma once

#include <string>
#include <string_view>

namespace pellam {

inline constexpr unsigned kReplacementCharacter = 0xFFFD;

/// Writes a code point as UTF-8 (RFC 3629), at most four bytes; returns the end. A surrogate or a
/// value past U+10FFFF is written as U+FFFD.
char* appendUtf8(char* out, unsigned codePoint);

/// Whether the bytes are well-formed UTF-8 (RFC 3629): no overlong forms, no surrogates.
[[nodiscard]] bool isUtf8(std::string_view bytes);

/// The text for the screen: well-formed UTF-8 as it stands, anything else read as Windows-1252
/// (its five unassigned bytes as the C1 controls of the same number).
[[nodiscard]] std::string toUtf8(std::string_view bytes);

/// A text for a terminal: control characters (C0 but for line feed and tab, DEL, and the C1 ones in
/// UTF-8), which a terminal would obey, are U+FFFD. All other bytes stay.
[[nodiscard]] std::string forTerminal(std::string_view text);

} // namespace pellam
