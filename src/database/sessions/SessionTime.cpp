#include "database/sessions/SessionTime.h"

#include "base/InternationalSettings.h"
#include "times/TimeReader.h"

#include <algorithm>
#include <string>

namespace pellam {

std::optional<CTime> sessionTime(std::string_view text) {
    static const TimeReader kReader(*TimeForm::parse("yyyy/MM/dd,HH:mm:ss"), {});
    constexpr std::size_t kLength = 19;
    const auto moment = kReader.readOwn(text);
    if (!moment || text.size() != kLength) return std::nullopt;
    // The reader is generous; what says the same in other words is not written so.
    std::string written = calendarText(*moment);
    written[written.find(' ')] = ',';
    if (written != text) return std::nullopt;
    std::replace(written.begin(), written.end(), '/', '-');
    std::replace(written.begin(), written.end(), ',', ' ');
    return CTime::parse(written);
}

} // namespace pellam
