#include "replay/time/LoggerClock.h"

#include "base/CalendarText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <ctime>

namespace pellam {

namespace {

constexpr std::int64_t kWindow = 900;

std::int64_t floorTo(std::int64_t value, std::int64_t step) {
    const std::int64_t rest = value % step;
    return value - (rest < 0 ? rest + step : rest);
}

// Beyond this many seconds either side of 1970 a year has more than five digits.
constexpr double kFarthest = 1e12;

} // namespace

LoggerClock::Offset LoggerClock::offsetAt(std::int64_t time) {
    const std::int64_t window = floorTo(time, kWindow);
    if (window != m_windowStart) {
        const std::time_t moment = time;
        std::tm local{};
        m_windowStart = window;
        m_offset = {0, false};
        if (::localtime_r(&moment, &local)) m_offset = {local.tm_gmtoff, local.tm_isdst > 0};
    }
    return m_offset;
}

std::int64_t LoggerClock::displayed(std::int64_t time) {
    time += m_corrections.standardBias;
    if (m_corrections.daylightBias != 0 && offsetAt(time).daylight) {
        time += m_corrections.daylightBias;
    }
    return time + offsetAt(time).seconds;
}

std::string_view LoggerClock::dateTime(std::string_view field, char separator, Buffer& buffer) {
    std::int64_t seconds = 0;
    const char* const end = field.data() + field.size();
    const char* stop = std::from_chars(field.data(), end, seconds).ptr;
    if (std::abs(static_cast<double>(seconds)) > kFarthest) seconds = 0;
    std::string_view fraction;
    if (stop != end && *stop == '.') {
        fraction = {stop + 1, static_cast<std::size_t>(end - stop - 1)};
        fraction =
            fraction.substr(0, std::min<std::size_t>(31, fraction.find_first_not_of("0123456789")));
    }
    const std::int64_t local = displayed(seconds + TimeCorrections::dtOffset);
    char* out = writeDateTime(buffer.data(), local);
    if (!fraction.empty()) {
        *out++ = separator;
        // Six digits at least: a shorter number of them would count microseconds.
        std::memcpy(out, fraction.data(), fraction.size());
        out += fraction.size();
        for (std::size_t digits = fraction.size(); digits < 6; ++digits)
            *out++ = '0';
    }
    return {buffer.data(), static_cast<std::size_t>(out - buffer.data())};
}

std::string_view LoggerClock::date(double days, Buffer& buffer) {
    const double seconds = days * 86'400.0 + TimeCorrections::dtOffset;
    if (!(std::abs(seconds) < kFarthest)) return {};
    const char* out = writeDateOf(buffer.data(), displayed(static_cast<std::int64_t>(seconds)));
    return {buffer.data(), static_cast<std::size_t>(out - buffer.data())};
}

std::string_view LoggerClock::timeOfDay(double seconds, Buffer& buffer) {
    if (!(std::abs(seconds) < kFarthest)) return {};
    const char* out = writeTimeOf(buffer.data(), displayed(static_cast<std::int64_t>(seconds)));
    return {buffer.data(), static_cast<std::size_t>(out - buffer.data())};
}

} // namespace pellam
