#include "times/TimeFields.h"

#include <chrono>

namespace pellam {

std::optional<TimeMoment> TimeFields::moment() const {
    using namespace std::chrono;
    const std::chrono::year thisYear(year);
    const year_month_day date{thisYear, std::chrono::month(static_cast<unsigned>(month)),
                              std::chrono::day(static_cast<unsigned>(day))};
    const bool endOfDay = hour == 24 && minute == 0 && second == 0 && nanoseconds == 0;
    if (!date.ok() || (hour > 23 && !endOfDay) || minute > 59 || second > 59) return {};
    sys_days midnight = date;
    if (dayOfYear > 0) {
        if (dayOfYear > (thisYear.is_leap() ? 366 : 365)) return {};
        midnight = sys_days(thisYear / January / 1) + days(dayOfYear - 1);
    }
    TimeMoment moment;
    moment.seconds = midnight.time_since_epoch().count() * std::int64_t{86'400};
    moment.seconds += hour * 3600 + minute * 60 + second;
    moment.seconds -= utcOffset.value_or(0);
    moment.nanoseconds = nanoseconds;
    moment.offset = utcOffset.value_or(0);
    moment.utc = utcOffset.has_value();
    return moment;
}

} // namespace pellam
