#pragma once

#include <cstddef>
#include <string_view>

namespace pellam {

/// Given by decodeUtf8() where no code point starts.
inline constexpr char32_t kNoCodePoint = 0xFFFF'FFFF;

/// The code point that starts at `at` (RFC 3629), moving `at` past it; kNoCodePoint for a byte
/// that starts none, moving past that byte. `at` must lie inside the text.
char32_t decodeUtf8(std::string_view text, std::size_t& at);

} // namespace pellam
