#pragma once

#include <string>
#include <string_view>

namespace pellam {

/// An SQL text with its names in brackets ("[data_time]") as the driver takes them: plain names
/// without quotes, others in the driver's own, `quote`; a name stays as it is where that is empty.
[[nodiscard]] std::string withNativeNames(std::string_view text, std::string_view quote);

/// A condition whose text in double quotes stands in single quotes instead: standard SQL takes
/// double quotes for a name. The text ends at the last double quote; those within it are doubled.
[[nodiscard]] std::string withSingleQuotes(std::string_view condition);

} // namespace pellam
