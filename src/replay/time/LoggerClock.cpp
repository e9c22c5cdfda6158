#include "replay/time/LoggerClock.h"

#include "base/CalendarText.h"
#include "base/LoggerEpoch.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdint>

namespace pellam {

namespace {

using std::chrono::sys_days;

constexpr std::int64_t kDay = 86400;
constexpr std::size_t kMostDigits = 31; // of a fraction; the buffer has no room for more
constexpr std::int64_t kFirst =
    sys_days(std::chrono::year(0) / 1 / 1).time_since_epoch().count() * kDay;
constexpr std::int64_t kEnd =
    sys_days(std::chrono::year(10000) / 1 / 1).time_since_epoch().count() * kDay;

// Calendar seconds of a count since 1989; false beyond the years that can be shown.
bool calendarSeconds(double since1989, std::int64_t& seconds) {
    const double value = std::floor(since1989) + kLoggerEpoch;
    if (!(value >= double{kFirst} && value < double{kEnd})) return false;
    seconds = static_cast<std::int64_t>(value);
    return true;
}

// A number of seconds in two parts, the fraction as its digits.
struct Seconds {
    std::int64_t whole = 0; ///< since 1970
    std::string_view fraction;
    std::array<char, 8> digits{}; ///< of a fraction that the field does not show as such
};

// Digits and a point, the usual form: its fraction keeps every digit.
bool readPlain(std::string_view field, Seconds& seconds) {
    const char* const end = field.data() + field.size();
    std::int64_t whole = 0;
    const auto [point, error] = std::from_chars(field.data(), end, whole);
    if (error != std::errc() || whole < 0 || field.front() == '-') return false;
    if (!calendarSeconds(static_cast<double>(whole), seconds.whole)) return false;
    if (point == end) return true;
    if (*point != '.') return false;
    seconds.fraction = {point + 1, static_cast<std::size_t>(end - point - 1)};
    return seconds.fraction.find_first_not_of("0123456789") == std::string_view::npos;
}

// Any other number, to the microsecond.
bool readDouble(std::string_view field, Seconds& seconds) {
    if (field.find_first_not_of("+-.0123456789eE") != std::string_view::npos) return false;
    const char* const end = field.data() + field.size();
    double value = 0;
    const auto [stop, error] = std::from_chars(field.data(), end, value);
    if (error != std::errc() || stop != end) return false;
    double whole = std::floor(value);
    double microseconds = std::round((value - whole) * 1e6);
    if (microseconds >= 1e6) {
        whole += 1;
        microseconds = 0;
    }
    if (!calendarSeconds(whole, seconds.whole)) return false;
    if (microseconds == 0) return true;
    // A leading one keeps the zeros.
    std::to_chars(seconds.digits.data(), seconds.digits.data() + 7,
                  1'000'000 + static_cast<int>(microseconds));
    seconds.fraction = {seconds.digits.data() + 1, 6};
    return true;
}

std::string_view asNumber(std::string_view field) {
    const std::size_t first = field.find_first_not_of(" \t");
    if (first == std::string_view::npos) return {};
    field = field.substr(first, field.find_last_not_of(" \t") + 1 - first);
    if (field.size() > 1 && field[0] == '+' && field[1] != '-') field.remove_prefix(1);
    return field;
}

} // namespace

std::string_view LoggerClock::dateTime(std::string_view field, char separator, Buffer& buffer) {
    field = asNumber(field);
    if (field.empty()) return {};
    Seconds seconds;
    if (!readPlain(field, seconds)) {
        seconds.fraction = {};
        if (!readDouble(field, seconds)) return {};
    }
    if (seconds.fraction.size() > kMostDigits) return {};
    char* out = writeDateTime(buffer.data(), seconds.whole);
    if (!seconds.fraction.empty()) {
        *out++ = separator;
        // Six digits at least: a shorter number of them would count microseconds.
        out = std::copy(seconds.fraction.begin(), seconds.fraction.end(), out);
        for (std::size_t digits = seconds.fraction.size(); digits < 6; ++digits)
            *out++ = '0';
    }
    return {buffer.data(), static_cast<std::size_t>(out - buffer.data())};
}

std::string_view LoggerClock::date(double days, Buffer& buffer) {
    std::int64_t seconds = 0;
    if (!calendarSeconds(days * static_cast<double>(kDay), seconds)) return {};
    const char* const out = writeDateOf(buffer.data(), seconds);
    return {buffer.data(), static_cast<std::size_t>(out - buffer.data())};
}

std::string_view LoggerClock::timeOfDay(double number, Buffer& buffer) {
    std::int64_t seconds = 0;
    if (!calendarSeconds(number, seconds)) return {};
    const char* const out = writeTimeOf(buffer.data(), seconds);
    return {buffer.data(), static_cast<std::size_t>(out - buffer.data())};
}

} // namespace pellam
