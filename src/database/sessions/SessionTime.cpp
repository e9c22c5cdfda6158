#include "database/sessions/SessionTime.h"

#include "base/InternationalSettings.h"
#include "times/TimeReader.h"

#include <limits>

namespace pellam {

namespace {

constexpr std::int64_t kFirst = 31'536'000;   // 1971, in seconds since 1970
constexpr std::int64_t kLast = 4'291'747'200; // 2106

} // namespace

std::optional<CMyTime> sessionTime(std::string_view text) {
    static const TimeReader kReader(*TimeForm::parse("yyyy/MM/dd,HH:mm:ss"), {});
    const auto moment = kReader.readOwn(text);
    if (!moment) return std::nullopt;
    // The reader is generous; what says the same in other words is not written so.
    std::string written = calendarText(*moment);
    written[written.find(' ')] = ',';
    if (written != text) return std::nullopt;
    CMyTime time;
    if (moment->seconds < kFirst) return time;
    if (moment->seconds >= kLast) return CMyTime(std::numeric_limits<std::uint32_t>::max());
    time.ParseDateTime(text);
    return time;
}

} // namespace pellam
