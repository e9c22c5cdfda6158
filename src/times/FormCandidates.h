#pragma once

#include "times/CalendarWalk.h"

#include <string>
#include <string_view>
#include <vector>

namespace pellam {

/// Names of the calendar forms and times of day that a text may be written in, as its digits, words
/// and marks lie: "03/04/2008 12:00" gives "dd/MM/yyyy HH:mm" and "MM/dd/yyyy HH:mm". None for a
/// text that looks like no date and no time of day, plain numbers among them but for those like
/// 20080304 and 20080304120000. Whether there is such a date is not looked at.
[[nodiscard]] std::vector<std::string> formCandidates(std::string_view text,
                                                      const TimeWords& words);

} // namespace pellam
