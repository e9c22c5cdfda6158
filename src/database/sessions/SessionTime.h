#pragma once

#include "replay/time/CMyTime.h"

#include <optional>
#include <string_view>

namespace pellam {

/// A start or end of a session's range from "yyyy/MM/dd,HH:mm:ss"; nothing for a text that is not
/// a date and time of day written so. Times before 1971 give 0, which sets no bound in any zone;
/// times past the last that CMyTime holds (in 2106) give that one.
[[nodiscard]] std::optional<CMyTime> sessionTime(std::string_view text);

} // namespace pellam
