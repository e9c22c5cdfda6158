#include "times/TimeMoment.h"

#include "base/CalendarText.h"

#include <array>

namespace pellam {

namespace {

// Digits behind a point in groups of a size, those of zeros at the end left off.
void appendFraction(std::string& text, std::uint32_t nanoseconds, std::size_t group) {
    if (nanoseconds == 0) return;
    std::string digits = std::to_string(nanoseconds);
    digits.insert(0, 9 - digits.size(), '0');
    const std::size_t used = digits.find_last_not_of('0') + 1;
    digits.resize((used + group - 1) / group * group);
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
    std::array<char, kCalendarTextRoom> buffer;
    std::string text(buffer.data(), writeDateTime(buffer.data(), moment.wall()));
    appendFraction(text, moment.nanoseconds, 3);
    return text;
}

std::string elapsedText(const TimeMoment& moment) {
    const bool before = moment.seconds < 0;
    const TimeMoment size = before ? negative(moment) : moment;
    std::string text(before ? 1 : 0, '-');
    text += std::to_string(size.seconds);
    appendFraction(text, size.nanoseconds, 1);
    return text;
}

} // namespace pellam
