#include "times/TimeMoment.h"

#include "base/CalendarText.h"

#include <array>
#include <chrono>

namespace pellam {

namespace {

// Digits behind a point without trailing zeros; nothing for none.
void appendFraction(std::string& text, std::uint32_t nanoseconds) {
    if (nanoseconds == 0) return;
    std::string digits = std::to_string(nanoseconds);
    digits.insert(0, 9 - digits.size(), '0');
    digits.erase(digits.find_last_not_of('0') + 1);
    text.append(1, '.').append(digits);
}

} // namespace

TimeMoment negative(TimeMoment moment) {
    moment.seconds = -moment.seconds;
    if (moment.nanoseconds > 0) {
        --moment.seconds;
        moment.nanoseconds = 1'000'000'000 - moment.nanoseconds;
    }
    return moment;
}

std::string calendarText(const TimeMoment& moment) {
    using namespace std::chrono;
    const sys_seconds time{seconds(moment.wall())};
    const sys_days day = floor<days>(time);
    const year_month_day date(day);
    const hh_mm_ss<seconds> clock(time - day);
    std::array<char, 32> buffer;
    char* out =
        writeDate(buffer.data(), int{date.year()}, unsigned{date.month()}, unsigned{date.day()});
    *out++ = ' ';
    out = writeTime(out, static_cast<unsigned>(clock.hours().count()),
                    static_cast<unsigned>(clock.minutes().count()),
                    static_cast<unsigned>(clock.seconds().count()));
    std::string text(buffer.data(), out);
    appendFraction(text, moment.nanoseconds);
    return text;
}

std::string elapsedText(const TimeMoment& moment) {
    const bool before = moment.seconds < 0;
    const TimeMoment size = before ? negative(moment) : moment;
    std::string text = (before ? "-" : "") + std::to_string(size.seconds);
    appendFraction(text, size.nanoseconds);
    return text;
}

} // namespace pellam
