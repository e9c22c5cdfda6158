#include "times/TimeUnit.h"

#include "times/TimeCursor.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

namespace pellam {

namespace {

constexpr std::array<std::pair<std::string_view, TimeUnit>, 7> kUnits = {{
    {"s", {0, 1}},
    {"ms", {-3, 1}},
    {"us", {-6, 1}},
    {"ns", {-9, 1}},
    {"min", {0, 60}},
    {"h", {0, 3600}},
    {"d", {0, 86'400}},
}};

constexpr std::size_t kEpochUnits = 4;
constexpr int kMostDigits = 19;    // that 64 bits hold
constexpr double kFarthest = 9e11; // seconds; beyond, a year has more than five digits

constexpr std::uint64_t powerOfTen(int exponent) {
    std::uint64_t power = 1;
    for (; exponent > 0; --exponent)
        power *= 10;
    return power;
}

/// A decimal number as it is written: digits times a power of ten.
struct Count {
    std::uint64_t digits = 0;
    int exponent = 0;
    bool negative = false;
};

// Digits of a number; those that 64 bits do not hold count as zeros.
int takeDigits(TimeCursor& cursor, Count& count, int& room, bool fraction) {
    int taken = 0;
    for (; TimeCursor::isDigit(cursor.peek()); ++taken) {
        const int digit = cursor.digits(1);
        if (room > 0) {
            count.digits = count.digits * 10 + static_cast<unsigned>(digit);
            if (count.digits > 0) --room;
            if (fraction) --count.exponent;
        } else if (!fraction) {
            ++count.exponent;
        }
    }
    return taken;
}

std::optional<Count> readCount(std::string_view text) {
    TimeCursor cursor(text);
    Count count;
    count.negative = cursor.peek() == '-';
    cursor.oneOf("+-");
    int room = kMostDigits;
    int digits = takeDigits(cursor, count, room, false);
    if (cursor.oneOf(".,")) digits += takeDigits(cursor, count, room, true);
    if (digits == 0) return {};
    if (cursor.oneOf("eE")) {
        const bool negative = cursor.peek() == '-';
        cursor.oneOf("+-");
        const int length = cursor.digitsAhead();
        if (length < 1 || length > 3) return {};
        const int exponent = cursor.digits(length);
        count.exponent += negative ? -exponent : exponent;
    }
    if (!cursor.atEnd()) return {};
    return count;
}

TimeMoment exactMoment(std::uint64_t digits, int decimals) {
    const std::uint64_t one = powerOfTen(decimals);
    const std::uint64_t rest = digits % one;
    TimeMoment moment;
    moment.seconds = static_cast<std::int64_t>(digits / one);
    moment.nanoseconds = static_cast<std::uint32_t>(decimals > 9 ? rest / powerOfTen(decimals - 9)
                                                                 : rest * powerOfTen(9 - decimals));
    return moment;
}

TimeMoment roundedMoment(double seconds) {
    TimeMoment moment;
    moment.seconds = static_cast<std::int64_t>(seconds);
    const double rest = (seconds - static_cast<double>(moment.seconds)) * 1e9;
    moment.nanoseconds = static_cast<std::uint32_t>(std::min(rest + 0.5, 999'999'999.0));
    return moment;
}

} // namespace

UnitBehind unitBehind(std::string_view text) {
    while (text.ends_with(' '))
        text.remove_suffix(1);
    const std::size_t digits = text.find_last_of("0123456789.,") + 1;
    std::size_t at = digits;
    while (at < text.size() && text[at] == ' ')
        ++at;
    const std::string_view written = text.substr(at);
    if (digits == 0 || written.empty()) return {{}, text.size()};
    // micro, and the Greek letter
    if (written == "\xC2\xB5s" || written == "\xCE\xBCs") return {"us", digits};
    for (const auto& [name, unit] : kUnits) {
        if (name == written) return {name, digits};
    }
    return {{}, text.size()};
}

std::optional<TimeUnit> timeUnit(std::string_view name) {
    const std::size_t hyphen = std::min(name.find('-'), name.size());
    const std::string_view what = name.substr(0, hyphen);
    if (hyphen == name.size() || (what != "epoch" && what != "elapsed")) return {};
    const auto* const end = kUnits.begin() + (what == "epoch" ? kEpochUnits : kUnits.size());
    const auto* const found = std::find_if(kUnits.begin(), end, [&](const auto& unit) {
        return unit.first == name.substr(hyphen + 1);
    });
    if (found == end) return {};
    return found->second;
}

std::optional<TimeMoment> countedMoment(std::string_view text, TimeUnit unit) {
    const auto count = readCount(text);
    if (!count) return {};
    const int exponent = count->exponent + unit.exponent;
    const double seconds =
        static_cast<double>(count->digits) * unit.factor * std::pow(10.0, exponent);
    if (!(seconds < kFarthest)) return {};
    const bool decimals = unit.factor == 1 && exponent <= 0 && exponent >= -kMostDigits;
    const TimeMoment moment =
        decimals ? exactMoment(count->digits, -exponent) : roundedMoment(seconds);
    return count->negative ? negative(moment) : moment;
}

} // namespace pellam
