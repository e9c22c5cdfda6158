#pragma once

#include <string>
#include <string_view>

namespace pellam {

/// Whether a person's text has wildcards: '*' for any run of characters, '?' for one.
[[nodiscard]] bool hasWildcards(std::string_view text);

/// Whether a text has SQL's own: '%' or '_'.
[[nodiscard]] bool hasSqlWildcards(std::string_view text);

/// The text with each '*' turned into '%' and each '?' into '_'; nothing else changes.
[[nodiscard]] std::string toSqlWildcards(std::string_view text);

} // namespace pellam
