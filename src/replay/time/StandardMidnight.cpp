#include "replay/time/StandardMidnight.h"

#include <algorithm>
#include <ctime>

namespace pellam {

namespace {

struct Cached {
    std::int32_t year = 0;
    std::int32_t month = 0;
    std::int32_t day = 0;
    long zone = -1;
    const char* standardName = nullptr;
    const char* daylightName = nullptr;
    std::int64_t midnight = 0;

    [[nodiscard]] bool holds(std::int32_t y, std::int32_t m, std::int32_t d) const {
        return y == year && m == month && d == day && zone == timezone &&
               standardName == tzname[0] && daylightName == tzname[1] && standardName != nullptr;
    }
};

// Far outside every calendar, yet safe to calculate with.
std::int32_t tame(std::int32_t number) {
    constexpr std::int32_t kMost = 100'000'000;
    return std::clamp(number, -kMost, kMost);
}

} // namespace

std::int64_t standardMidnight(std::int32_t year, std::int32_t month, std::int32_t day) {
    // The C library takes a microsecond for this and rows of one day follow one another.
    static thread_local Cached cached;
    if (cached.holds(year, month, day)) return cached.midnight;
    std::tm fields{};
    fields.tm_year = tame(year) - 1900;
    fields.tm_mon = tame(month) - 1;
    fields.tm_mday = tame(day);
    fields.tm_isdst = 0;
    const std::int64_t midnight = std::mktime(&fields);
    cached = {year, month, day, timezone, tzname[0], tzname[1], midnight};
    return midnight;
}

} // namespace pellam
