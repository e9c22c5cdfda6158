#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace pellam {

/// The file of this computer that a "file:" URL names (RFC 8089), as the bytes of its path, its
/// escapes undone. Nothing for any other text: a path, a URL of another kind or of another
/// computer, one with a damaged escape or with an escaped '/' or NUL.
[[nodiscard]] std::optional<std::string> localFileOf(std::string_view url);

/// Whether a text is a URL ("scheme://...") that names no file of this computer.
[[nodiscard]] bool isForeignUrl(std::string_view text);

} // namespace pellam
