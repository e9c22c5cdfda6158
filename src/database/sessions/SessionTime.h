#pragma once

#include "database/odbc/CTime.h"

#include <optional>
#include <string_view>

namespace pellam {

/// A start or end of a session's range from "yyyy/MM/dd,HH:mm:ss"; nothing for a text that is not
/// a date and time of day written so.
[[nodiscard]] std::optional<CTime> sessionTime(std::string_view text);

} // namespace pellam
