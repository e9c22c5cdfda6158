#include "times/ElapsedClock.h"

#include "times/TimeCursor.h"
#include "times/TimeUnit.h"

#include <array>

namespace pellam {

namespace {

/// Takes "1", "1:02" or "1:02:03"; how many numbers there were, 0 when it is none of them.
int takeNumbers(TimeCursor& cursor, std::array<std::int64_t, 3>& numbers) {
    int count = 0;
    do {
        const int digits = cursor.digitsAhead();
        if (count == 0 ? digits < 1 || digits > 9 : digits != 2 || count == 3) return 0;
        std::int64_t& number = numbers[static_cast<std::size_t>(count++)];
        number = cursor.digits(digits);
        if (count > 1 && number > 59) return 0;
    } while (cursor.take(':'));
    return count;
}

} // namespace

std::optional<TimeMoment> elapsedClock(std::string_view text, bool minutesFirst) {
    TimeCursor cursor(text);
    const bool before = cursor.take('-');
    std::array<std::int64_t, 3> numbers{};
    std::int64_t days = 0;
    int count = takeNumbers(cursor, numbers);
    if (count == 1 && cursor.blanks()) {
        days = numbers[0];
        count = takeNumbers(cursor, numbers);
    }
    if (count < 2) return {};
    const bool seconds = count == 3 || minutesFirst;
    TimeMoment moment;
    if (!cursor.atEnd()) {
        const auto fraction = countedMoment(cursor.rest(), {});
        const bool point = cursor.peek() == '.' || cursor.peek() == ',';
        if (!seconds || !point || !fraction || fraction->seconds > 0) return {};
        moment = *fraction;
    }
    for (int i = 0; i < count; ++i)
        moment.seconds = moment.seconds * 60 + numbers[static_cast<std::size_t>(i)];
    if (!seconds) moment.seconds *= 60;
    moment.seconds += days * 86'400;
    return before ? negative(moment) : moment;
}

} // namespace pellam
