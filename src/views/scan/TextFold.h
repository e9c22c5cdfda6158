#pragma once

#include <string>
#include <string_view>

namespace pellam {

/// Appends UTF-8 text to `out` with its capital letters made small: ASCII, Latin-1, Latin
/// Extended-A, Greek and Cyrillic (the one-to-one mappings of Unicode's CaseFolding.txt that keep
/// the length in bytes). All else is copied.
void appendFolded(std::string_view utf8, std::string& out);

} // namespace pellam
